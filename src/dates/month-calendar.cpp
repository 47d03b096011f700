// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "dates/month-calendar_p.h"

#include "look/mirrored_p.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <QStylePainter>
#include <QTableView>
#include <QToolButton>

namespace Vela {

namespace {

// Keeps Enter, which ends the editing of the year, from being a combo box's shortcut to close its popup.
void keepEnter(QKeyEvent *event)
{
    event->setAccepted(event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter);
}

// Gives way to what a button is painted from.
class PaintedButton : public QToolButton
{
public:
    using QToolButton::initStyleOption;
};

void paintWithFocus(QToolButton *button)
{
    QStylePainter painter(button);
    QStyleOptionToolButton option;
    (button->*&PaintedButton::initStyleOption)(&option);
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}

} // namespace

MonthCalendar::MonthCalendar(QWidget *parent) :
    QCalendarWidget(parent), m_dayGrid(qobject_cast<QTableView *>(focusProxy()))
{
    setFocusProxy(nullptr);
    setFocusPolicy(Qt::ClickFocus);
}

void MonthCalendar::setArrow(QToolButton *button, const QPixmap &pixmap)
{
    button->installEventFilter(this);
    const QIcon icon(Look::mirrored(pixmap, this));
    button->setIcon(icon);
    m_arrows.insert(button, {pixmap, icon.cacheKey()});
}

bool MonthCalendar::showsArrow(QToolButton *button) const
{
    return button->icon().cacheKey() == m_arrows.value(button).iconKey;
}

// By themselves the arrows never show that they have the focus.
bool MonthCalendar::eventFilter(QObject *watched, QEvent *event)
{
    auto *button = qobject_cast<QToolButton *>(watched);
    if (event->type() == QEvent::Paint && button && button->hasFocus() && m_arrows.contains(button)) {
        paintWithFocus(button);
        return true;
    }
    return QCalendarWidget::eventFilter(watched, event);
}

// An icon that an application has put in an arrow's place stays as it is.
void MonthCalendar::turnArrows()
{
    const QHash<QToolButton *, Arrow> arrows = m_arrows;
    for (auto arrow = arrows.cbegin(); arrow != arrows.cend(); ++arrow) {
        if (showsArrow(arrow.key())) {
            setArrow(arrow.key(), arrow->pixmap);
        }
    }
}

// Weeks may get lower than the font has them, which lets the calendar's owner shrink them, but do not ask for less
// room.
QSize MonthCalendar::minimumSizeHint() const
{
    QHeaderView *weeks = m_dayGrid->verticalHeader();
    weeks->setMinimumSectionSize(-1);
    const QSize hint = QCalendarWidget::minimumSizeHint();
    weeks->setMinimumSectionSize(0);
    return hint;
}

void MonthCalendar::focusInEvent(QFocusEvent *event)
{
    m_dayGrid->setFocus(event->reason());
}

// By itself the grid never shows that it has the focus. Qt marks days that cannot be chosen by the window's colour,
// which a style sheet makes that of all days. Then they look as in a disabled grid, if that has another surface.
void MonthCalendar::paintCell(QPainter *painter, const QRect &rect, const QDate &date) const
{
    QCalendarWidget::paintCell(painter, rect, date);
    const QPalette palette = m_dayGrid->palette();
    if (date == selectedDate() && m_dayGrid->hasFocus()) {
        painter->save();
        painter->setPen(palette.color(QPalette::HighlightedText));
        painter->drawRect(rect.adjusted(1, 1, -2, -2));
        painter->restore();
    }
    const QBrush &surface = palette.brush(QPalette::Disabled, QPalette::Base);
    const bool isMarked = palette.window() != palette.base() || surface == palette.base();
    if (isMarked || (date >= minimumDate() && date <= maximumDate())) {
        return;
    }
    painter->save();
    painter->fillRect(rect, surface);
    painter->setPen(palette.color(QPalette::Disabled, QPalette::Text));
    painter->setFont(m_dayGrid->font());
    const QString day = m_dayGrid->locale().toString(date.day());
    const QSize size = painter->fontMetrics().size(Qt::TextSingleLine, day);
    painter->drawText(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size, rect), Qt::AlignCenter, day);
    painter->restore();
}

bool MonthCalendar::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        keepEnter(static_cast<QKeyEvent *>(event));
        return QCalendarWidget::event(event);
    case QEvent::LocaleChange:
    case QEvent::LayoutDirectionChange:
        event->type() == QEvent::LocaleChange ? showYear() : turnArrows();
        // Qt's calendar would begin the week on another day and give the months and the arrows its own looks.
        return QWidget::event(event); // NOLINT(bugprone-parent-virtual-call)
    default:
        return QCalendarWidget::event(event);
    }
}

// Shows the year with the locale's digits, as its edit does already.
void MonthCalendar::showYear()
{
    const auto *edit = findChild<QSpinBox *>(QStringLiteral("qt_calendar_yearedit"));
    findChild<QToolButton *>(QStringLiteral("qt_calendar_yearbutton"))->setText(edit->text());
}

} // namespace Vela
