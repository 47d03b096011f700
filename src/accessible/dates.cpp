// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/dates_p.h"

#include "accessible/plain-text_p.h"
#include "component/vela-date-selector.h"
#include "look/look_p.h"

#include <QAbstractButton>
#include <QCalendarWidget>

namespace Vela::Accessible {

namespace {

QList<QWidget *> named(const QWidget *parent, std::initializer_list<const char *> names)
{
    QList<QWidget *> widgets;
    for (const char *name : names) {
        if (auto *widget = parent->findChild<QWidget *>(QString::fromLatin1(name))) {
            widgets.append(widget);
        }
    }
    return widgets;
}

} // namespace

Calendar::Calendar(QWidget *view) : Group(view, QAccessible::Grouping) { }

QList<QWidget *> Calendar::parts() const
{
    QList<QWidget *> parts {widget()->findChild<QCalendarWidget *>()};
    return parts + named(widget(), {"qt_calendar_today_button"});
}

CalendarMonth::CalendarMonth(QWidget *calendar) : Group(calendar, QAccessible::Client) { }

// Letters of the weekdays are only for the eye: each day says its own.
QList<QWidget *> CalendarMonth::parts() const
{
    return named(widget(), {"qt_calendar_navigationbar", "qt_calendar_calendarview"});
}

// The calendar hands the focus on to the days.
QAccessible::State CalendarMonth::state() const
{
    QAccessible::State state = Group::state();
    state.focusable = false;
    return state;
}

CalendarButton::CalendarButton(QAbstractButton *button) : Button(button) { }

QString CalendarButton::description() const
{
    if (button()->objectName() == QLatin1String("qt_calendar_monthbutton")) {
        return Look::spoken(SpokenText::Month);
    }
    const bool isYear = button()->objectName() == QLatin1String("qt_calendar_yearbutton");
    return isYear ? Look::spoken(SpokenText::Year) : Button::description();
}

DateField::DateField(QWidget *selector) : Group(selector, QAccessible::ComboBox)
{
    addControllingSignal(QStringLiteral("currentIndexChanged(int)"));
}

// Tools that know no value of a combo box take its name for it, so that both stand there.
QString DateField::text(QAccessible::Text text) const
{
    const QString date = static_cast<const QComboBox *>(widget())->currentText();
    const QString given = QAccessibleWidget::text(text);
    switch (text) {
    case QAccessible::Name:
        return joined({given.isEmpty() ? Look::spoken(SpokenText::Date) : given, date});
    case QAccessible::Value:
        return date;
    default:
        return given;
    }
}

QAccessible::State DateField::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const QWidget *calendar = static_cast<const QComboBox *>(widget())->view();
    state.expandable = true;
    state.expanded = calendar->isVisible();
    state.collapsed = !state.expanded;
    state.hasPopup = true;
    return state;
}

QList<QWidget *> DateField::parts() const
{
    return {static_cast<const QComboBox *>(widget())->view()};
}

QAccessibleInterface *DateField::childAt(int, int) const
{
    return nullptr; // the calendar is in a window of its own
}

QStringList DateField::actionNames() const
{
    return widget()->isEnabled() ? QStringList {showMenuAction()} + Group::actionNames() : Group::actionNames();
}

void DateField::doAction(const QString &name)
{
    auto *selector = static_cast<QComboBox *>(widget());
    if (name != showMenuAction()) {
        Group::doAction(name);
    } else if (!selector->isEnabled()) {
        return;
    } else if (selector->view()->isVisible()) {
        selector->hidePopup();
    } else {
        selector->showPopup();
    }
}

} // namespace Vela::Accessible
