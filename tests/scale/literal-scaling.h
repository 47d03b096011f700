// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRegExp>
#include <QString>
#include <QStringList>

#include <limits>

// What scaleLengths() does in linear time, in the terms of its definition.

inline int cutToInteger(double value)
{
    const bool isInt = value > -2147483649.0 && value < 2147483648.0;
    return isInt ? static_cast<int>(value) : std::numeric_limits<int>::min();
}

/// @p sheet with its lengths multiplied by @p factor, step by step.
inline QString literallyScaled(const QString &sheet, double factor)
{
    QRegExp expression(QStringLiteral("(\\d+\\.?\\d*)(px)"));
    const QStringList pieces = sheet.split(expression);
    QString result;
    int position = 0;
    int index = 0;
    while (position >= 0) {
        position = expression.indexIn(sheet, position);
        if (position < 0) {
            break;
        }
        if (index < pieces.size()) {
            result += pieces.at(index);
        }
        result += QStringLiteral("%1px").arg(cutToInteger(expression.cap(1).toDouble() * factor));
        position += 3;
        ++index;
    }
    if (index < pieces.size()) {
        result += pieces.at(index);
    }
    return result;
}
