// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "command-line.h"
#include "gallery-window.h"
#include "log-view.h"
#include "pages.h"
#include "platform.h"
#include "resources.h"
#include "screenshots.h"
#include "vela_components_version.h"
#include "warning-log.h"

#include <QtSingleApplication>

#include <QScreen>
#include <QTextStream>

#include <cstdlib>

namespace {

void print(FILE *stream, const QString &text)
{
    QTextStream(stream) << text;
}

void warn(const QString &text)
{
    print(stderr, QCoreApplication::applicationName() + QStringLiteral(": ") + text + u'\n');
}

int fail(const QString &text)
{
    warn(text);
    return EXIT_FAILURE;
}

int run(const CommandLine &commandLine, QtSingleApplication *application)
{
    const bool wantsScreenshots = !commandLine.screenshots().isEmpty();
    if (!wantsScreenshots && !canShowWindows()) {
        return fail(QStringLiteral("There is no display. '--screenshots DIR' renders the pages without one."));
    }

    if (!wantsScreenshots && application->sendMessage(commandLine.page())) {
        return EXIT_SUCCESS;
    }
    if (!wantsScreenshots && application->isRunning()) {
        return fail(QStringLiteral("It runs already, but does not answer."));
    }

    Resources resources(commandLine.resources().isEmpty() ? Resources::referenceFolder() : commandLine.resources());
    if (!resources.read(commandLine.language())) {
        return fail(resources.errorText());
    }
    const WarningLog warningLog;
    resources.install(commandLine.imageLoading());
    const QStringList warnings = resources.warnings();
    for (const QString &warning : warnings) {
        warn(warning);
    }

    GalleryWindow window(resources.language());
    QObject::connect(&warningLog, &WarningLog::warned, window.log(), &LogView::addWarning);
    const QStringList pages = commandLine.page().isEmpty() ? pageNames() : QStringList(commandLine.page());
    if (wantsScreenshots) {
        const QString error = saveScreenshots(&window, pages, commandLine.screenshots());
        return error.isEmpty() ? EXIT_SUCCESS : fail(error);
    }
    window.showPage(pages.constFirst());
    window.resize(window.size().boundedTo(window.screen()->availableSize()));
    window.show();
    application->setActivationWindow(&window);
    QObject::connect(application, &QtSingleApplication::messageReceived, &window, &GalleryWindow::showPage);
    return QtSingleApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("vela-gallery"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELA_COMPONENTS_VERSION_STRING));

    CommandLine commandLine;
    QString instanceId;
    {
        // Help needs no screen, so it is given before anything looks for one. Arguments that are wrong here may yet be
        // options of the toolkit, which a QApplication takes out.
        const QCoreApplication application(argc, argv);
        if (commandLine.parse(QCoreApplication::arguments()) && !commandLine.answer().isEmpty()) {
            print(stdout, commandLine.answer());
            return EXIT_SUCCESS;
        }
        instanceId = commandLine.instanceId();
    }

    preparePlatform();
    // The library brings the images for the screen's whole-number pixel ratio, and by default icons would be drawn at
    // ratio 1 nevertheless. Qt::AA_EnableHighDpiScaling stays off: the library scales by the logical DPI itself, and
    // the toolkit would round a scale such as 1.5 to a ratio of 2.
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QtSingleApplication application(instanceId, argc, argv);
    completePlatform();
    QGuiApplication::setDesktopFileName(QStringLiteral("vela-gallery"));
    QApplication::setPalette(galleryPalette());

    if (!commandLine.parse(QCoreApplication::arguments())) {
        return fail(commandLine.errorText());
    }
    if (!commandLine.answer().isEmpty()) {
        print(stdout, commandLine.answer());
        return EXIT_SUCCESS;
    }
    return run(commandLine, &application);
}
