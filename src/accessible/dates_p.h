// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "accessible/button_p.h"
#include "accessible/group_p.h"

namespace Vela::Accessible {

/// A VelaCalanderView: its arrows, month, year, days and the button for today.
class Calendar : public Group
{
public:
    explicit Calendar(QWidget *view);

protected:
    QList<QWidget *> parts() const override;
};

/// Qt's calendar in a VelaCalanderView.
class CalendarMonth : public Group
{
public:
    explicit CalendarMonth(QWidget *calendar);

    QAccessible::State state() const override;

protected:
    QList<QWidget *> parts() const override;
};

/// An arrow of a calendar, or one of the buttons that are named by the month and the year that they show.
class CalendarButton : public Button
{
public:
    explicit CalendarButton(QAbstractButton *button);

protected:
    QString description() const override;
};

/// A VelaDateSelector: the date that is chosen, and the calendar that pops up.
class DateField : public Group
{
public:
    explicit DateField(QWidget *selector);

    QString text(QAccessible::Text text) const override;
    QAccessible::State state() const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

protected:
    QList<QWidget *> parts() const override;
};

} // namespace Vela::Accessible
