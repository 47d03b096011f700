// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "scaled-text.h"

#include "scale/length-scaling_p.h"

QString atEachScale(const QString &text)
{
    QStringList results;
    for (const double scale : ToldScales) {
        results.append(QStringLiteral("\"%1\" at %2").arg(scaleLengths(text, scale)).arg(scale));
    }
    return results.join(QLatin1String(", "));
}

int scaledLength(const QString &length, double scale)
{
    QString scaled = scaleLengths(length, scale);
    scaled.chop(scaled.endsWith(QLatin1String("px")) ? 2 : 0);
    return static_cast<int>(scaled.toDouble());
}

bool holdsLength(const QString &text)
{
    return scaleLengths(text, 2.0) != text;
}
