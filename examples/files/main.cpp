// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "start/appearance.h"
#include "start/start-request.h"
#include "window/files-window.h"

#include <QtSingleApplication>

#include <QScreen>
#include <QTextStream>

#include <cstdlib>

namespace {

int answer(const QString &text, FILE *stream, int result)
{
    QTextStream(stream) << text << '\n';
    return result;
}

int run(QtSingleApplication *application, const StartRequest &request)
{
    if (application->sendMessage(request.toMessage())) {
        return EXIT_SUCCESS;
    }
    if (application->isRunning()) {
        return answer(QStringLiteral("vela-files runs already, but does not answer."), stderr, EXIT_FAILURE);
    }
    Settings settings = Settings::read();
    settings.folder = request.folder.isEmpty() ? settings.folder : request.folder;
    if (!applyAppearance(request.theme.isEmpty() ? settings.theme : request.theme,
                         request.language.isEmpty() ? settings.language : request.language)) {
        return EXIT_FAILURE;
    }
    FilesWindow window(settings);
    window.resize(window.size().boundedTo(window.screen()->availableSize()));
    window.show();
    application->setActivationWindow(&window);
    QObject::connect(application, &QtSingleApplication::messageReceived, &window,
                     [&window](const QString &message) { window.obey(StartRequest::fromMessage(message)); });
    return QtSingleApplication::exec();
}

// Each session of a user has an instance of its own.
QString instanceId()
{
    return QStringLiteral("vela-files-") + qEnvironmentVariable("WAYLAND_DISPLAY", qEnvironmentVariable("DISPLAY"));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("vela-files"));
    QCoreApplication::setOrganizationName(QStringLiteral("vela-files"));
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps); // or icons are drawn at ratio 1
    QtSingleApplication application(instanceId(), argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("vela-files"));

    QString said;
    bool isHelp = false;
    const StartRequest request = readArguments(QCoreApplication::arguments(), &said, &isHelp);
    if (!said.isEmpty()) {
        return isHelp ? answer(said, stdout, EXIT_SUCCESS) : answer(said, stderr, EXIT_FAILURE);
    }
    return run(&application, request);
}
