// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QAbstractItemView>
#include <QDate>

#include <memory>

class QAction;
class VelaCalanderViewPrivate;

/// Calendar of a month with a button for today below it.
///
/// It is an item view only so that a combo box takes it as its popup, see VelaDateSelector; it has no model and works
/// on its own as well. Texts are those of the language that is installed when it is made. In
/// every locale the week starts on Sunday; the locale decides on the digits.
class VELA_EXPORT VelaCalanderView : public QAbstractItemView
{
    Q_OBJECT

public:
    /// A calendar of today's month.
    explicit VelaCalanderView(QWidget *parent = nullptr);
    ~VelaCalanderView() override;

    /// Shows a month, 1 to 12, without selecting a day.
    void setCurrentPage(int year, int month);
    /// \name The days that can be chosen here
    /// They limit neither the date that selectToday() emits nor VelaDateSelector::dateSelect(). The other days lie on
    /// the window's colour, or look as in a disabled grid where a style sheet gives all days one surface and that
    /// another.
    /// @{

    /// Sets the first day.
    void setMinimumDate(const QDate &date);
    /// The first day.
    QDate minimumDate() const;
    /// Sets the last day.
    void setMaximumDate(const QDate &date);
    /// The last day.
    QDate maximumDate() const;
    /// @}

    bool eventFilter(QObject *watched, QEvent *event) override;

    /// \name Inert, since the view has no items
    /// @{
    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override;
    /// @}

Q_SIGNALS:
    /// A day was chosen; a double-click and the Enter key say so again.
    void sigDateSelect(const QDate &date);

public Q_SLOTS:
    /// Selects today and emits sigDateSelect().
    void selectToday();
    /// Writes the name of @p month, 1 to 12, on the month button; any other number clears it.
    void pageChanged(int year, int month);
    /// Writes the name of the month that is the data of @p action, 1 to 12, on the month button; other data clear it.
    void slotMonthTriggered(QAction *action);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &index) const override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaCalanderViewPrivate> d;
};
