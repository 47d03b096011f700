// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "platform.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QStyle>
#include <QtGlobal>

namespace {

constexpr char PlatformVariable[] = "QT_QPA_PLATFORM";
constexpr char FontDpiVariable[] = "QT_FONT_DPI";
constexpr char OffscreenPlatform[] = "offscreen";
constexpr int OffscreenFontSize = 10; // points

bool hasNoDisplay = false;

bool isOffscreen()
{
    return QGuiApplication::platformName() == QLatin1String(OffscreenPlatform);
}

} // namespace

void preparePlatform()
{
    hasNoDisplay = qEnvironmentVariableIsEmpty(PlatformVariable) && qEnvironmentVariableIsEmpty("DISPLAY")
        && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
    if (hasNoDisplay) {
        qputenv(PlatformVariable, OffscreenPlatform);
    }
    // That platform has 100 dots per inch of itself, which is no scale that anybody has.
    if (qgetenv(PlatformVariable).startsWith(OffscreenPlatform) && qEnvironmentVariableIsEmpty(FontDpiVariable)) {
        qputenv(FontDpiVariable, "96");
    }
}

void completePlatform()
{
    // A theme without a palette is taken for a light one, on a dark desktop, too.
    QApplication::setPalette(QApplication::style()->standardPalette());
    // No desktop sets a font there; the toolkit's own default is one certain family at a large size.
    if (isOffscreen()) {
        QApplication::setFont(QFont(QStringLiteral("Sans Serif"), OffscreenFontSize));
    }
}

bool canShowWindows()
{
    return !(hasNoDisplay && isOffscreen());
}
