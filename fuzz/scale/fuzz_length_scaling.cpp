// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Lengths in style sheets at the factors of real screens and at others.

#include "scale/length-scaling_p.h"
#include "scale/literal-scaling.h"
#include "support/input.h"

namespace {

constexpr double Factors[] = {1.0, 1.25, 1.5, 2.0, 96.0 / 97.0, 0.75, 3.0, 1.0 / 3.0, 109.0 / 96.0};

// Half of the inputs are UTF-16, in which surrogates may stand alone.
QString sheetFrom(FuzzInput &input)
{
    if (input.take<quint8>() % 2 == 0) {
        return textOf(input.rest());
    }
    QString text;
    while (!input.isAtEnd()) {
        text += QChar(input.take<quint16>());
    }
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzInput input(data, size);
    const double factor = input.takeOneOf(Factors);
    const QString sheet = sheetFrom(input);
    agree("scaled sheet", scaleLengths(sheet, factor), literallyScaled(sheet, factor));
    return 0;
}
