// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "dates/vela-date-selector.h"

#include "controls/mouse-filters.h"
#include "scale/scaled.h"
#include "style-manager/style-manager.h"

namespace {

// Logical pixels.
constexpr int PopupWidth = 280;
constexpr int PopupHeight = 260;
constexpr int SelectorHeight = 32;

} // namespace

class VelaDateSelectorPrivate
{
public:
    explicit VelaDateSelectorPrivate(QString text) : emptyText(std::move(text)) { }

    VelaCalanderView *calendarView = nullptr;
    const QString emptyText;
};

VelaDateSelector::VelaDateSelector(QString emptyText, QWidget *parent) :
    QComboBox(parent), d(std::make_unique<VelaDateSelectorPrivate>(std::move(emptyText)))
{
    d->calendarView = new VelaCalanderView;
    setView(d->calendarView);
    for (QWidget *filtered : {view()->viewport(), static_cast<QWidget *>(view())}) {
        auto *filter = new MouseReleaseFilter;
        filter->setParent(filtered);
        filtered->installEventFilter(filter);
    }
    addItem(d->emptyText, QDate());
    connect(d->calendarView, &VelaCalanderView::sigDateSelect, this, &VelaDateSelector::dateSelect);

    view()->setFixedWidth(scaled(PopupWidth));
    view()->setFixedHeight(scaled(PopupHeight));
    setFixedHeight(scaled(SelectorHeight));
    const QString sheet = getStyleSheet("component.date_selector", false);
    setStyleSheet(sheet + getStyleSheet("component.menu", false));
}

VelaDateSelector::~VelaDateSelector() = default;

void VelaDateSelector::dateSelect(const QDate &date)
{
    clear();
    if (!date.isValid()) {
        addItem(d->emptyText, QDate());
        return;
    }
    addItem(QLocale().toString(date, QLocale::ShortFormat), date);
    setCurrentIndex(0);
    d->calendarView->setCurrentPage(date.year(), date.month());
    update();
    hidePopup();
}

void VelaDateSelector::clearDate()
{
    const QDate today = QDate::currentDate();
    clear();
    addItem(d->emptyText, QDate());
    setCurrentIndex(0);
    d->calendarView->setCurrentPage(today.year(), today.month());
}

VelaCalanderView *VelaDateSelector::getCalendarView()
{
    return d->calendarView;
}
