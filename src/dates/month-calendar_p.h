// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCalendarWidget>
#include <QHash>
#include <QPixmap>

class QTableView;
class QToolButton;

namespace Vela {

/// Qt's calendar without its focus proxy, the grid of days. With it the calendar would be a second stop on the way to
/// the grid, and while the year is edited, and after it, the grid would have the calendar's focus policy.
class MonthCalendar : public QCalendarWidget
{
public:
    explicit MonthCalendar(QWidget *parent);

    /// Shows @p pixmap, which is as it is from left to right, on one of the two arrows.
    void setArrow(QToolButton *button, const QPixmap &pixmap);
    /// Whether @p button shows that still, and no icon of an application.
    bool showsArrow(QToolButton *button) const;

    QSize minimumSizeHint() const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void paintCell(QPainter *painter, const QRect &rect, const QDate &date) const override;
    bool event(QEvent *event) override;

private:
    struct Arrow
    {
        QPixmap pixmap; // as it is from left to right
        qint64 iconKey;
    };

    void turnArrows();
    void showYear();

    QTableView *const m_dayGrid;
    QHash<QToolButton *, Arrow> m_arrows;
};

} // namespace Vela
