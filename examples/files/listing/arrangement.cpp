// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "arrangement.h"

#include "disk/native-path.h"

#include <QDateTime>

#include <algorithm>
#include <limits>

namespace {

// A file with what it is sorted by. Its index is its place by name.
struct Row
{
    bool isFolder;
    qint64 number;
    QString word;
    int index;
};

// Seconds since 1970 between which a change must lie.
struct Span
{
    explicit Span(const Filter &filter) :
        first(filter.from.isValid() ? filter.from.startOfDay().toSecsSinceEpoch() : std::numeric_limits<qint64>::min()),
        last(filter.to.isValid() ? filter.to.endOfDay().toSecsSinceEpoch() : std::numeric_limits<qint64>::max())
    {
    }

    bool holds(qint64 seconds) const { return seconds >= first && seconds <= last; }

    qint64 first;
    qint64 last;
};

Row rowOf(const FileEntry &entry, int index, int column)
{
    Row row {entry.isFolder, 0, QString(), index};
    if (column == SizeColumn) {
        row.number = entry.size;
    } else if (column == ChangedColumn) {
        row.number = entry.changed;
    } else if (column == KindColumn) {
        row.word = suffixOf(entry.name);
    }
    return row;
}

bool isLess(const Row &left, const Row &right)
{
    if (left.number != right.number) {
        return left.number < right.number;
    }
    const int words = left.word.compare(right.word);
    return words != 0 ? words < 0 : left.index < right.index;
}

// Rows come in the order of their names.
void sort(std::vector<Row> *rows, const Order &order)
{
    const bool isAscending = order.direction == Qt::AscendingOrder;
    if (order.column != NameColumn) {
        std::sort(rows->begin(), rows->end(), [isAscending](const Row &left, const Row &right) {
            return isAscending ? isLess(left, right) : isLess(right, left);
        });
    } else if (!isAscending) {
        std::reverse(rows->begin(), rows->end());
    }
    std::stable_partition(rows->begin(), rows->end(), [](const Row &row) { return row.isFolder; });
}

} // namespace

bool Filter::isEmpty() const
{
    return keyword.isEmpty() && !kinds && from.isNull() && to.isNull();
}

std::vector<int> arranged(const FolderContent &content, const Order &order, const Filter &filter,
                          const KindTable &kinds)
{
    const Span span(filter);
    std::vector<Row> rows;
    rows.reserve(content.entries.size());
    for (std::size_t i = 0; i < content.entries.size(); ++i) {
        const FileEntry &entry = content.entries[i];
        const bool isShown = (filter.withHidden || !entry.isHidden()) && span.holds(entry.changed)
            && (filter.keyword.isEmpty() || shownName(entry.name).contains(filter.keyword, Qt::CaseInsensitive))
            && (!filter.kinds || filter.kinds.testFlag(kinds.kindOf(entry)));
        if (isShown) {
            rows.push_back(rowOf(entry, static_cast<int>(i), order.column));
        }
    }
    sort(&rows, order);
    std::vector<int> indexes(rows.size());
    std::transform(rows.cbegin(), rows.cend(), indexes.begin(), [](const Row &row) { return row.index; });
    return indexes;
}
