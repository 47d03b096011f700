// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/item-view_p.h"

#include "accessible/plain-text_p.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QHeaderView>
#include <QTableView>

namespace Vela::Accessible {

namespace {

QCalendarWidget *calendarOf(const QWidget *grid)
{
    return static_cast<QCalendarWidget *>(grid->parentWidget());
}

// The calendar does not say which date is in which cell: days are counted from the first "1" on.
QDate dateOf(const QCalendarWidget *calendar, const QModelIndex &index)
{
    const QAbstractItemModel *model = index.model();
    const int columns = model->columnCount();
    const auto cell = [model, columns](int place) { return model->index(place / columns, place % columns); };
    int first = 0;
    while (first < model->rowCount() * columns && cell(first).data().toInt() != 1) {
        ++first;
    }
    const QDate firstDay(calendar->yearShown(), calendar->monthShown(), 1);
    return firstDay.addDays(index.row() * columns + index.column() - first);
}

class DayCell : public Cell
{
public:
    DayCell(QAbstractItemView *grid, const QModelIndex &index) : Cell(grid, index, QAccessible::Cell) { }

    QString text(QAccessible::Text text) const override
    {
        if (!isValid()) {
            return QString();
        }
        if (text == QAccessible::Name) {
            return view()->locale().toString(date(), QLocale::LongFormat);
        }
        if (text == QAccessible::Description && date() == QDate::currentDate()) {
            const auto *today =
                calendar()->parentWidget()->findChild<QAbstractButton *>(QStringLiteral("qt_calendar_today_button"));
            return today ? withoutAccessKey(today->text()) : QString();
        }
        return QString();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = Cell::state();
        if (!isValid()) {
            return state;
        }
        const bool isWithin = date() >= calendar()->minimumDate() && date() <= calendar()->maximumDate();
        state.disabled = state.disabled || !isWithin;
        state.focusable = !state.disabled;
        state.selectable = !state.disabled;
        state.selected = isSelected();
        return state;
    }

    // Its name says which day of which week it is.
    QList<QAccessibleInterface *> columnHeaderCells() const override { return {}; }
    bool isSelected() const override { return isValid() && date() == calendar()->selectedDate(); }

private:
    QCalendarWidget *calendar() const { return calendarOf(view()); }
    QDate date() const { return dateOf(calendar(), index()); }
};

} // namespace

DayGrid::DayGrid(QAbstractItemView *grid) : ItemView(grid, QAccessible::Table) { }

int DayGrid::rowCount() const
{
    return view()->model()->rowCount();
}

int DayGrid::rowOf(const QModelIndex &index) const
{
    return index.row();
}

// The month, in the words that are shown above.
QString DayGrid::name() const
{
    QStringList words;
    for (const char *button : {"qt_calendar_monthbutton", "qt_calendar_yearbutton"}) {
        const auto *shown = calendarOf(view())->findChild<QAbstractButton *>(QString::fromLatin1(button));
        words.append(shown ? withoutAccessKey(shown->text()) : QString());
    }
    return words.join(QLatin1Char(' '));
}

QModelIndex DayGrid::indexAt(int row, int column) const
{
    return view()->model()->index(row, column);
}

Cell *DayGrid::createCell(const QModelIndex &index) const
{
    return new DayCell(view(), index);
}

QHeaderView *DayGrid::columnHeader() const
{
    return static_cast<QTableView *>(view())->horizontalHeader();
}

QHeaderView *DayGrid::rowHeader() const
{
    return static_cast<QTableView *>(view())->verticalHeader();
}

} // namespace Vela::Accessible
