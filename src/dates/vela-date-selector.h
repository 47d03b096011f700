// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/vela-calendar-view.h"
#include "vela_export.h"

#include <QComboBox>
#include <QDate>

#include <memory>

class VelaDateSelectorPrivate;

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
    /// A selector without a date, which says nothing of it, as forms make it.
    explicit VelaDateSelector(QWidget *parent);
    ~VelaDateSelector() override;

    /// The chosen date; a null one while none is chosen.
    QDate date() const;
    /// Goes back to having no date; the calendar shows today's month. Its selected day stays, and an open popup.
    void clearDate();
    /// The calendar that pops up, to set its limits for instance; the selector owns it. Null once another view has
    /// taken its place.
    VelaCalanderView *getCalendarView();

    /// Pops the calendar up, with the focus on its days.
    void showPopup() override;

public Q_SLOTS:
    /// Puts @p date into the field and closes the popup; an invalid date empties the field and leaves the popup alone.
    void dateSelect(const QDate &date);

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaDateSelectorPrivate> d;
};
