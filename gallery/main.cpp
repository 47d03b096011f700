// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "command-line.h"
#include "gallery-window.h"
#include "inspector.h"
#include "log-view.h"
#include "pages.h"
#include "platform.h"
#include "restart.h"
#include "screenshots.h"
#include "themes.h"
#include "vela_components_version.h"
#include "warning-log.h"

#include <QtSingleApplication>
#include <VelaLocale>
#include <VelaTheme>

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

// The start that takes the place of this one once the application object is gone.
struct Successor
{
    double scale = 0.0; // new scale, 0 without one
    GalleryState state;
};

// Puts the theme into force; otherwise tells why not.
bool loadTheme(const CommandLine &commandLine, VelaTheme::Problems *problems)
{
    const QString folder = commandLine.theme();
    const QStringList languages = VelaTheme::languages(folder);
    QString language = commandLine.language();
    if (!language.isEmpty() && !languages.isEmpty() && !languages.contains(language)) {
        warn(QStringLiteral("There are no texts in the language '%1'. There are: %2.")
                 .arg(language, languages.join(QStringLiteral(", "))));
        return false;
    }
    if (language.isEmpty()) {
        language = VelaLocale::getInstance()->getDefaultLanguage();
    }
    *problems = VelaTheme::getInstance()->load(folder, language, QStringLiteral("enu"), commandLine.imageLoading());
    for (const VelaTheme::Problem &problem : qAsConst(*problems)) {
        warn(problem.toString());
    }
    return !VelaTheme::hasErrors(*problems);
}

int run(const CommandLine &commandLine, QtSingleApplication *application, Successor *successor)
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

    const WarningLog warningLog;
    VelaTheme::Problems problems;
    if (!loadTheme(commandLine, &problems)) {
        return EXIT_FAILURE;
    }
    QApplication::setLayoutDirection(commandLine.isRightToLeft() ? Qt::RightToLeft : QApplication::layoutDirection());

    GalleryWindow window(themesToChoose(commandLine.theme()));
    window.addProblems(problems);
    QObject::connect(&warningLog, &WarningLog::warned, window.log(), &LogView::addWarning);
    const QStringList pages = commandLine.page().isEmpty() ? pageNames() : QStringList(commandLine.page());
    if (wantsScreenshots) {
        const QString error = saveScreenshots(&window, pages, commandLine.screenshots());
        return error.isEmpty() ? EXIT_SUCCESS : fail(error);
    }
    window.showPage(pages.constFirst());
    window.resize(window.size().boundedTo(window.screen()->availableSize()));
    window.restoreGeometry(commandLine.geometry());
    const InspectorKey inspectorKey(&window);
    window.show();
    application->setActivationWindow(&window);
    QObject::connect(application, &QtSingleApplication::messageReceived, &window, &GalleryWindow::showPage);
    QObject::connect(&window, &GalleryWindow::scaleChosen, application, [&window, successor](double scale) {
        *successor = {scale, window.state()};
        QCoreApplication::quit();
    });
    return QtSingleApplication::exec();
}

int start(int argc, char **argv, const QString &instanceId, Successor *successor)
{
    QtSingleApplication application(instanceId, argc, argv);
    completePlatform();
    QGuiApplication::setDesktopFileName(QStringLiteral("vela-gallery"));

    CommandLine commandLine;
    if (!commandLine.parse(QCoreApplication::arguments())) {
        return fail(commandLine.errorText());
    }
    if (!commandLine.answer().isEmpty()) {
        print(stdout, commandLine.answer());
        return EXIT_SUCCESS;
    }
    return run(commandLine, &application, successor);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("vela-gallery"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VELA_COMPONENTS_VERSION_STRING));

    QStringList arguments;
    QString program;
    QString instanceId;
    {
        // Help needs no screen, so it is given before anything looks for one. Arguments that are wrong here may yet be
        // options of the toolkit, which a QApplication takes out.
        const QCoreApplication application(argc, argv);
        arguments = QCoreApplication::arguments();
        program = QCoreApplication::applicationFilePath();
        CommandLine commandLine;
        if (commandLine.parse(arguments) && !commandLine.answer().isEmpty()) {
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
    Successor successor;
    const int result = start(argc, argv, instanceId, &successor);
    if (successor.scale > 0.0) {
        restart(program, CommandLine::resumed(arguments, successor.state), successor.scale);
        return fail(QStringLiteral("It cannot be started again."));
    }
    return result;
}
