// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Runs the examples of the reference in a theme, and makes the pictures of what they show.

#include "snippets.h"
#include "traps.h"

#include <VelaTheme>

#include "scale/scaled.h"

#include <QtWidgets>

namespace {

// Layouts in layouts, masks that follow their windows, rows that are cut to a width.
void settle()
{
    for (int pass = 0; pass < 5; ++pass) {
        QCoreApplication::processEvents();
    }
}

bool isBlank(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0)) {
                return false;
            }
        }
    }
    return true;
}

bool run(const Snippet &snippet, const QString &file)
{
    QWidget window;
    window.resize(scaled(snippet.size.width()), scaled(snippet.size.height()));
    window.setFocusPolicy(Qt::StrongFocus); // and no widget in it has the focus, unless the example gives it
    window.show();
    window.setFocus();
    QWidget *shown = snippet.show(&window);
    if (!shown) {
        return true;
    }
    if (snippet.size.isEmpty()) {
        window.adjustSize();
    }
    settle();
    const QImage picture = shown->grab().toImage();
    return !isBlank(picture) && picture.save(file);
}

bool runAll(const QString &themes, const QString &name, const QString &output)
{
    if (VelaTheme::hasErrors(VelaTheme::getInstance()->load(themes + u'/' + name, QStringLiteral("enu")))) {
        return false;
    }
    for (const Snippet &snippet : snippets()) {
        const QString file = QStringLiteral("%1/%2-%3.png").arg(output, QLatin1String(snippet.name), name);
        if (!run(snippet, file)) {
            qCritical().noquote() << "There is no picture" << file;
            return false;
        }
    }
    return true;
}

} // namespace

// vela-reference <folder of themes> <folder for pictures> [--traps]
int main(int argc, char **argv)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QStandardPaths::setTestModeEnabled(true);
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0); // it is always there
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 3 || !QDir().mkpath(arguments.at(2))) {
        return EXIT_FAILURE;
    }
    if (arguments.value(3) == QLatin1String("--traps")) {
        return makeTraps(arguments.at(1), arguments.at(2)) ? EXIT_SUCCESS : EXIT_FAILURE;
    }
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false")); // what the examples print
    startUp(arguments.at(1) + QStringLiteral("/light"));
    const bool isDone = runAll(arguments.at(1), QStringLiteral("light"), arguments.at(2))
        && runAll(arguments.at(1), QStringLiteral("dark"), arguments.at(2));
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
