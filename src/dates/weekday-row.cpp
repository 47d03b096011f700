// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "dates/weekday-row_p.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "scale/scaled.h"

#include <QHeaderView>

namespace Vela {

namespace {

constexpr int DaysPerWeek = 7;
constexpr int RowHeight = 30; // logical pixels

constexpr Text Weekdays[DaysPerWeek] = {Text::Sunday,   Text::Monday, Text::Tuesday, Text::Wednesday,
                                        Text::Thursday, Text::Friday, Text::Saturday};

QString initialOf(const QString &weekday)
{
    return weekday.left(1); // clazy:exclude=qstring-left
}

} // namespace

WeekdayRow::WeekdayRow(QWidget *parent) : QTableWidget(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setObjectName(QStringLiteral("qt_calendar_weekdayview"));
    setFixedHeight(scaled(RowHeight));
    horizontalHeader()->hide();
    verticalHeader()->hide();

    // Shown headers would be styled now, to be measured, and again with each sheet.
    setColumnCount(DaysPerWeek);
    insertRow(0);
    for (int i = 0; i < DaysPerWeek; ++i) {
        auto *item = new QTableWidgetItem(initialOf(Look::text(Weekdays[i])));
        item->setTextAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        setItem(0, i, item);
    }
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setFrameStyle(0);
    setShowGrid(false);
}

void WeekdayRow::renew(const LookChange &change)
{
    for (int i = 0; i < DaysPerWeek; ++i) {
        QTableWidgetItem *day = item(0, i);
        if (day->text() == initialOf(change.former(Weekdays[i]))) {
            day->setText(initialOf(change.now(Weekdays[i])));
        }
    }
    change.restyle(this, Style::Table);
    change.restyle(horizontalHeader(), Style::TableHeader);
}

} // namespace Vela
