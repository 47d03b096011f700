// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Declarations of columns, with any width and ratio, in a table that is resized.

#include "scale/dpi-info.h"
#include "support/input.h"
#include "support/widgets.h"
#include "views/vela-table-widget.h"

#include <QHeaderView>

#include <cmath>

namespace {

constexpr int MaximalColumns = 8;
constexpr int LongestSection = (1 << 20) - 1; // pixels, the toolkit's limit

int truncatedLiterally(double value)
{
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : INT_MIN;
}

// A header passes over what is no width.
void resizeSection(int &section, int width)
{
    if (width >= 0 && width <= LongestSection) {
        section = width;
    }
}

double takeRatio(FuzzInput &input)
{
    constexpr double Ratios[] = {0.0, 0.5, 1.0, 1.0 / 3.0, -1.0, 1e300, INFINITY, NAN};
    const auto byte = input.take<quint8>();
    return byte < 8 ? Ratios[byte] : input.take<double>();
}

VelaTableColumnsInfo takeColumns(FuzzInput &input)
{
    VelaTableColumnsInfo columns;
    const int count = input.takeIndex(MaximalColumns + 1);
    for (int i = 0; i < count; ++i) {
        const auto flags = input.take<quint8>();
        const int width = flags & 2 ? input.take<qint32>() : input.take<quint8>();
        const double ratio = takeRatio(input);
        agree("index", columns.addColumn(textOf(input.takeUpTo('\n')), width, flags & 1, ratio), i);
    }
    return columns;
}

// The widths in a body that is so wide, by the widths before.
QList<int> widthsIn(const VelaTableColumnsInfo &columns, QList<int> widths, int bodyWidth)
{
    const double scale = DPIinfo::getInstance()->getDPI();
    qint64 fixedSum = 0;
    const auto isStretching = [&columns](int i) {
        return columns.column(i).resizable && !(columns.column(i).stretchRatio == 0.0);
    };
    for (int i = 0; i < widths.size(); ++i) {
        fixedSum += isStretching(i) ? 0 : columns.column(i).width;
    }
    const int free = truncatedLiterally(bodyWidth - static_cast<double>(fixedSum) * scale);
    for (int i = 0; i < widths.size(); ++i) {
        if (isStretching(i)) {
            const double minimum = columns.column(i).width * scale;
            const int width = truncatedLiterally(free * columns.column(i).stretchRatio);
            resizeSection(widths[i], minimum > width ? truncatedLiterally(minimum) : width);
        }
    }
    return widths;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    startApplication();
    FuzzInput input(data, size);
    const VelaTableColumnsInfo columns = takeColumns(input);
    VelaTableWidget table(columns);
    const double scale = DPIinfo::getInstance()->getDPI();
    const int count = columns.columnCount();
    agree("sections", table.getHeader()->count(), count + 1);
    agree("columns", table.getTable()->columnCount(), count);
    agree("filler", table.getHeader()->sectionSize(count), int(12 * scale));

    QList<int> widths;
    for (int i = 0; i < count; ++i) {
        widths.append(table.getHeader()->defaultSectionSize());
        resizeSection(widths[i], truncatedLiterally(columns.column(i).width * scale));
    }
    do {
        for (int i = 0; i < count; ++i) {
            agree("title", table.getHeader()->model()->headerData(i, Qt::Horizontal).toString(),
                  columns.column(i).title);
            agree("section", table.getHeader()->sectionSize(i), widths.at(i));
            agree("column", table.getTable()->columnWidth(i), widths.at(i));
        }
        const int bodyWidth = input.take<quint16>();
        table.slotTableResized({bodyWidth, 100});
        widths = widthsIn(columns, widths, bodyWidth);
    } while (!input.isAtEnd());
    return 0;
}
