// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "disk/folder-reader.h"
#include "kinds.h"

#include <QDate>

/// The columns of the table, in their order.
enum Column { NameColumn, SizeColumn, ChangedColumn, KindColumn, ColumnCount };

/// By what files are sorted.
struct Order
{
    int column = NameColumn;
    Qt::SortOrder direction = Qt::AscendingOrder;
};

/// Which files are shown. Null dates and no kinds leave all.
struct Filter
{
    bool isEmpty() const;

    QString keyword; ///< in the name, in any case
    Kinds kinds;
    QDate from;
    QDate to;
    bool withHidden = false;
};

/// Which of a folder's files are shown and in what order, by their indexes. Folders are in front. For any thread.
std::vector<int> arranged(const FolderContent &content, const Order &order, const Filter &filter,
                          const KindTable &kinds);
