// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "dates/calendar-test.h"

#include "support/controls.h"
#include "utils/component-strings.h"

#include <QApplication>

#include <algorithm>

namespace {

// No two sheets give the same colour.
const char *const Sheets =
    "== component.table ==\nQTableView { background: #10e0e0; border: none; min-width: 9px }\n"
    "== component.table_header ==\nQHeaderView { max-height: 91px }\n"
    "== component.cancel_button ==\nQPushButton { background: #e0e010; padding: 0px 9px }\n"
    "== component.date_selector ==\nQComboBox { background: #f0d0d0; border: 3px solid #a01010 }\n"
    "== component.menu ==\nQComboBox { background: #d0f0d0; padding: 0px 9px }\n";

// Waits for the new day if midnight is near: the library reads the date too.
void keepClearOfMidnight()
{
    constexpr int Margin = 20000; // milliseconds, longer than any test takes
    const int left = QTime::currentTime().msecsTo(QTime(23, 59, 59, 999)) + 1;
    if (left < Margin) {
        QTest::qSleep(left);
    }
}

} // namespace

void installTexts(const QStringList &months, const QStringList &weekdays)
{
    QMap<QString, QString> texts {
        {QStringLiteral("today"), QStringLiteral("Today!")},
        {QStringLiteral("accessible_calendar"), QStringLiteral("the calendar")},
        {QStringLiteral("accessible_calendar_prev_month"), QStringLiteral("back")},
        {QStringLiteral("accessible_calendar_next_month"), QStringLiteral("on")},
    };
    for (int i = 0; i < months.size(); ++i) {
        texts.insert(MonthKeys[i], months[i]);
    }
    for (int i = 0; i < weekdays.size(); ++i) {
        texts.insert(WeekdayKeys[i], weekdays[i]);
    }
    ComponentStrings::getInstance()->installStrings(texts);
}

QStringList rotated(QStringList names, int first)
{
    std::rotate(names.begin(), names.begin() + first % names.size(), names.end());
    return names;
}

QStringList reversed(QStringList names)
{
    std::reverse(names.begin(), names.end());
    return names;
}

QList<QDate> dates(const QSignalSpy &spy)
{
    QList<QDate> dates;
    for (const QList<QVariant> &arguments : spy) {
        dates.append(arguments.first().toDate());
    }
    return dates;
}

QModelIndex Calendar::cell(int day) const
{
    const QAbstractItemModel *model = grid()->model();
    for (int i = 0; i < model->rowCount() * model->columnCount(); ++i) {
        if (model->index(i / DaysPerWeek, i % DaysPerWeek).data().toInt() == 1) {
            const int position = i + day - 1;
            return model->index(position / DaysPerWeek, position % DaysPerWeek);
        }
    }
    return QModelIndex();
}

QStringList Calendar::stops() const
{
    QStringList names;
    for (const QWidget *stop :
         {static_cast<QWidget *>(view), static_cast<QWidget *>(previous()), static_cast<QWidget *>(next()),
          static_cast<QWidget *>(month()), static_cast<QWidget *>(year()), static_cast<QWidget *>(grid()),
          static_cast<QWidget *>(today())}) {
        names.append(stop->objectName());
    }
    return names;
}

QStringList Calendar::visit(Qt::Key key, int times) const
{
    QStringList names;
    for (int i = 0; i < times; ++i) {
        this->key(key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        names.append(QApplication::focusWidget() ? QApplication::focusWidget()->objectName()
                                                 : QStringLiteral("nothing"));
    }
    return names;
}

ShownCalendar::ShownCalendar() : Calendar(new VelaCalanderView)
{
    view->show();
    QVERIFY(QTest::qWaitForWindowActive(view));
    QTest::mouseMove(window(), Outside);
    view->setFocus();
}

void CalendarTest::prepareDay()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    keepClearOfMidnight();
}

void CalendarTest::initTestCase()
{
    m_folder.writeImage(QStringLiteral("bt_pagebar_backend"), QSize(64, 48), Qt::magenta);
    m_folder.writeImage(QStringLiteral("bt_pagebar_nextend"), QSize(48, 64), Qt::blue);
    m_folder.writeCatalogue({QStringLiteral("bt_pagebar_backend"), QStringLiteral("bt_pagebar_nextend")});
    installSheets(m_folder, "");
}

void CalendarTest::init()
{
    installSheets(m_folder, Sheets);
    installTexts(EnglishMonths, EnglishWeekdays);
    prepareDay();
}

void CalendarTest::cleanup()
{
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}
