// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCalendarWidget>

class QTableView;

namespace Vela {

/// Qt's calendar without its focus proxy, the grid of days. With it the calendar would be a second stop on the way to
/// the grid, and while the year is edited, and after it, the grid would have the calendar's focus policy.
class MonthCalendar : public QCalendarWidget
{
public:
    explicit MonthCalendar(QWidget *parent);

    QSize minimumSizeHint() const override;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void paintCell(QPainter *painter, const QRect &rect, const QDate &date) const override;
    bool event(QEvent *event) override;

private:
    void showYear();

    QTableView *const m_dayGrid;
};

} // namespace Vela
