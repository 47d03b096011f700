// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QSharedDataPointer>
#include <QTableWidget>

#include <memory>

class QHeaderView;
class ResizeSignalTableWidgetPrivate;
class VelaTableColumnsInfoPrivate;
class VelaTableWidgetPrivate;

/// The columns of a VelaTableWidget, declared before it is made. A value: copies are independent.
class VELA_EXPORT VelaTableColumnsInfo
{
public:
    /// One column.
    struct ColumnInfo
    {
        QString title; ///< title in the header
        qint32 width = 0; ///< logical pixels; the minimum when the column stretches
        bool resizable = false; ///< whether the user may resize it
        double stretchRatio = 0.0; ///< share of the free width that a resizable column takes; 0 for none
    };

    /// No columns.
    VelaTableColumnsInfo();
    /// A copy, which is independent.
    VelaTableColumnsInfo(const VelaTableColumnsInfo &other);
    ~VelaTableColumnsInfo();
    /// Becomes such a copy.
    VelaTableColumnsInfo &operator=(const VelaTableColumnsInfo &other);

    /// Appends a column and returns its index. Nothing is checked. Let the ratios of the columns that stretch sum to 1
    /// to fill the table.
    int addColumn(const QString &title, int width, bool resizable, double stretchRatio);

    /// How many columns have been added.
    int columnCount() const;
    /// The column at @p index, which must be valid.
    const ColumnInfo &column(int index) const;

private:
    QSharedDataPointer<VelaTableColumnsInfoPrivate> d;
};

/// Table that reports its resizing before it acts on it.
class VELA_EXPORT ResizeSignalTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    /// A table of empty cells, without a parent.
    ResizeSignalTableWidget(int rows, int columns);
    ~ResizeSignalTableWidget() override;

Q_SIGNALS:
    /// The room for the rows is @p size now: that of the viewport, without the vertical scroll bar.
    void sigResized(QSize size);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    const std::unique_ptr<ResizeSignalTableWidgetPrivate> d;
};

/// Table with declared columns whose header stays above the scrolling rows.
///
/// Columns that stretch share the width that the others leave free, each by its ratio and never below its base width,
/// whenever the table is resized. Fill rows in through getTable(). Arrow keys move among the cells, Tab
/// leaves the table.
class VELA_EXPORT VelaTableWidget : public QWidget
{
    Q_OBJECT

public:
    /// A table of @p columns, of which it keeps a copy.
    explicit VelaTableWidget(const VelaTableColumnsInfo &columns, QWidget *parent = nullptr);
    ~VelaTableWidget() override;

    /// The rows; its own headers are hidden. Word wrap is on, as the toolkit has it: what is too long for its cell ends
    /// in dots behind the last word or slash that fits, and after setWordWrap(false) behind the last letter.
    QTableWidget *getTable();
    /// The visible header. Its last section, above the vertical scroll bar, belongs to no column. What lies further to
    /// the right than 20000 logical pixels has no header.
    QHeaderView *getHeader();

    /// Builds everything; the constructor has called it.
    void initailze();

public Q_SLOTS:
    /// Gives the column at @p index the width @p new_size, in pixels; the header has told it.
    void slotSectionResized(int index, int old_size, int new_size);
    /// Hides the vertical scroll bar when @p max is 0 and shows it otherwise.
    void slotVerticalScrollRangeChanged(int min, int max);
    /// Stretches the columns to a room of @p size for the rows. Those that do not stretch keep their widths.
    void slotTableResized(QSize size);

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaTableWidgetPrivate> d;
};
