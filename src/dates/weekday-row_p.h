// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTableWidget>

namespace Vela {

class LookChange;

/// The initials of the days of the week, from Sunday on, over a calendar's days. Its sheets are for the calendar to
/// set.
class WeekdayRow : public QTableWidget
{
public:
    explicit WeekdayRow(QWidget *parent);

    /// Shows the texts and sheets of the new look in place of those of the former one.
    void renew(const LookChange &change);
};

} // namespace Vela
