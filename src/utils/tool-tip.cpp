// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/tool-tip.h"

QString getHtmlEscapedStringForToolTip(const QString &text)
{
    const QString lines = text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QLatin1String("<p style='white-space:pre'>") + lines + QLatin1String("</p>");
}
