// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "toolkit-parser.h"

#include <QWidget>
#include <QtGlobal>

namespace {

bool isRefused = false;

// The toolkit tells only by a warning that it has refused a sheet. What else it says of one the check says better.
void listen(QtMsgType, const QMessageLogContext &, const QString &message)
{
    isRefused = isRefused || message.startsWith(QLatin1String("Could not parse stylesheet of object"));
}

} // namespace

// The toolkit reads a sheet that it cannot parse a second time, as declarations for all widgets, and skips there what
// it does not understand. So that it has refused no sheet tells little; that a rule of the sheet holds tells all.
bool isUnderstood(const QString &sheet)
{
    constexpr int ProbeWidth = 4321;
    const QString probeName = QStringLiteral("vela_theme_probe");
    const bool hasRules = sheet.contains(QLatin1Char('{'));
    const QString ownRule = QStringLiteral("#%1 { min-width: %2px; }\n").arg(probeName).arg(ProbeWidth);
    bool isHeld = true;
    const QtMessageHandler handler = qInstallMessageHandler(listen);
    isRefused = false;
    {
        QWidget probe;
        probe.setObjectName(probeName);
        probe.setStyleSheet(hasRules ? QString(ownRule + sheet) : sheet);
        probe.ensurePolished();
        isHeld = !hasRules || probe.minimumWidth() == ProbeWidth;
    }
    qInstallMessageHandler(handler);
    return !isRefused && isHeld;
}
