// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-table-widget.h"
#include "support/resource-folder.h"
#include "support/test-window.h"

#include <QHeaderView>
#include <QScrollArea>
#include <QVector>

constexpr int FillerWidth = 12;
inline const QSize TableSize(600, 300);

struct Column
{
    const char *title;
    int width;
    bool resizable;
    double ratio;
};
using Columns = QVector<Column>;

inline const Columns Mixed {
    {"Name", 100, true, 0.75}, {"Size", 60, false, 0.0}, {"Date", 80, true, 0.0}, {"By", 50, true, 0.25}};
inline const Columns Plain {{"A", 90, true, 0.0}, {"B", 70, false, 0.0}, {"C", 110, true, 0.0}};
inline const Columns Wide {{"A", 300, true, 0.0}, {"B", 300, false, 0.0}, {"C", 300, true, 0.0}, {"D", 300, true, 0.0}};

Q_DECLARE_METATYPE(Columns)

VelaTableColumnsInfo declared(const Columns &columns);
QVector<int> baseWidths(const Columns &columns);
QVector<int> widthsOf(const QHeaderView *header, int count);

/// A window with a table that can be given any size, whatever the window manager does to the window.
class TableWindow : public TestWindow
{
public:
    explicit TableWindow(const Columns &columns, const QSize &size = TableSize);

    bool showAndWait();
    void addRows(int count);

    /// The widths of the declared columns, as the header and as the rows show them.
    QVector<int> headerWidths() const { return widthsOf(header, m_count); }
    QVector<int> bodyWidths() const { return widthsOf(body->horizontalHeader(), m_count); }

    /// Where the header and the rows show the left edge of a column, in the window.
    int headerLeft(int column) const;
    int bodyLeft(int column) const;

    QPoint headerCenter() const { return area->mapTo(this, area->rect().center()); }
    /// A point just inside of the right edge of a section, where it is dragged.
    QPoint rightEdge(int section) const;

    /// Drags the right edge of @p section in steps, as a hand does.
    void drag(int section, int distance);

    /// Turns the wheel over @p position; only what seems to come from the system goes from a widget to its parent.
    void wheel(const QPoint &position, const QPoint &angle);

    VelaTableWidget *const table;
    QTableWidget *const body;
    QHeaderView *const header;
    QScrollArea *const area;

private:
    const int m_count;
};

/// Gives all tests a theme of a table.
class TableTest : public QObject
{
    Q_OBJECT

protected:
    ResourceFolder m_folder;

protected Q_SLOTS:
    void initTestCase();
};
