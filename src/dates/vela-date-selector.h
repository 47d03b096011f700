// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDate>

#include <memory>

class QAction;
class VelaCalanderViewPrivate;
class VelaDateSelectorPrivate;

/// Calendar of a month with a button for today below it.
///
/// It is an item view only so that a combo box takes it as its popup, see VelaDateSelector; it has no model and works
/// on its own as well. Texts are those of the language that is installed when it is made. In
/// every locale the week starts on Sunday; the locale decides on the digits of the year.
class VELA_EXPORT VelaCalanderView : public QAbstractItemView
{
    Q_OBJECT

public:
    explicit VelaCalanderView(QWidget *parent = nullptr);
    ~VelaCalanderView() override;

    /// Shows a month, 1 to 12, without selecting a day.
    void setCurrentPage(int year, int month);
    /// \name The days that can be chosen here
    /// They limit neither the date that selectToday() emits nor VelaDateSelector::dateSelect(). The other days lie on
    /// the window's colour, or look as in a disabled grid where a style sheet gives all days one surface and that
    /// another.
    /// @{
    void setMinimumDate(const QDate &date);
    void setMaximumDate(const QDate &date);
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

private:
    const std::unique_ptr<VelaCalanderViewPrivate> d;
};

/// Date field: a combo box that holds one item, the chosen date or a text that says there is none, and pops up a
/// calendar.
///
/// The item's user data is the date, a null QDate while none is chosen. Its text is the date in the short format of the
/// default QLocale, while the names in the calendar are of the installed texts: let QLocale::setDefault() agree with
/// their language.
class VELA_EXPORT VelaDateSelector : public QComboBox
{
    Q_OBJECT

public:
    /// A selector without a date; @p emptyText says so.
    explicit VelaDateSelector(QString emptyText, QWidget *parent = nullptr);
    ~VelaDateSelector() override;

    /// Goes back to having no date; the calendar shows today's month. Its selected day stays, and an open popup.
    void clearDate();
    /// The calendar that pops up, to set its limits for instance; the selector owns it.
    VelaCalanderView *getCalendarView();

public Q_SLOTS:
    /// Puts @p date into the field and closes the popup; an invalid date empties the field and leaves the popup alone.
    void dateSelect(const QDate &date);

private:
    const std::unique_ptr<VelaDateSelectorPrivate> d;
};
