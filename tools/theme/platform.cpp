// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "platform.h"

#include <QApplication>
#include <QFont>
#include <QLocale>
#include <QTemporaryDir>
#include <QtGlobal>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

// The platform without a display says of every window what it cannot do with it, and the toolkit of each colour,
// property and image that it does not know what the check says better.
void passOn(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    static const char *const silenced[] = {"This plugin does not support ", "QCssParser::", "Unknown property ",
                                           "Could not create pixmap from ", "QFont::setP",  "QWidget::setM"};
    const bool isSilenced = std::any_of(std::begin(silenced), std::end(silenced), [&message](const char *beginning) {
        return message.startsWith(QLatin1String(beginning));
    });
    if (!isSilenced) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    }
}

constexpr int FontSize = 10; // points

} // namespace

void preparePlatform()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_STYLE_OVERRIDE", "fusion");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    for (const char *name : {"QT_QPA_PLATFORMTHEME", "QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR",
                             "QT_ENABLE_HIGHDPI_SCALING", "QT_SCALE_FACTOR_ROUNDING_POLICY"}) {
        qunsetenv(name);
    }
    qputenv("QT_FONT_DPI", "96"); // of itself the platform has 100, which is no scale that anybody has
    qputenv("QT_SCALE_FACTOR", "1");
    static const QTemporaryDir runtime; // without one the toolkit complains
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    }
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

void completePlatform()
{
    qInstallMessageHandler(passOn);
    if (qobject_cast<QApplication *>(QCoreApplication::instance())) {
        QApplication::setCursorFlashTime(0); // a cursor that blinks is there or not
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QApplication::setFont(QFont(QStringLiteral("Sans Serif"), FontSize));
    }
}
