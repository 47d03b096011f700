// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-date-selector.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/panels.h"
#include "support/resources.h"
#include "utils/component-strings.h"

#include <QApplication>
#include <QCalendarWidget>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QTextCharFormat>
#include <QToolButton>

namespace {

constexpr int Count = 4;
constexpr double Target = 1.05;
constexpr QSize ViewSize(320, 320); // room for six weeks in any of the calendars
constexpr QSize PopupSize(280, 260);
constexpr int SelectorHeight = 32;
constexpr int WeekdayHeight = 30;
constexpr int IconSize = 16;

constexpr const char *MonthKeys[] = {"month_jan", "month_feb", "month_mar", "month_apr", "month_may", "month_jun",
                                     "month_jul", "month_aug", "month_sep", "month_oct", "month_nov", "month_dec"};
constexpr const char *WeekdayKeys[] = {"sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"};

const QString EmptyText = QStringLiteral("No date chosen");

QString sheetOf(const char *key)
{
    return getStyleSheet(key, false);
}

QString text(const char *key)
{
    return ComponentStrings::getInstance()->getString(QString::fromLatin1(key));
}

QPushButton *bareTodayButton(QWidget *parent)
{
    auto *button = new QPushButton(text("today"), parent);
    button->setFlat(true);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setFixedHeight(24);
    button->setStyleSheet(sheetOf("component.cancel_button"));
    return button;
}

void styleTable(QTableView *table)
{
    table->setStyleSheet(sheetOf("component.table"));
    table->horizontalHeader()->setStyleSheet(sheetOf("component.table_header"));
}

// Qt's calendar as it is: it draws the weekdays as the first row of its grid.
QCalendarWidget *plainCalendar(QWidget *parent)
{
    auto *calendar = new QCalendarWidget(parent);
    calendar->setFirstDayOfWeek(Qt::Sunday);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    styleTable(calendar->findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview")));
    return calendar;
}

// The row of weekdays, a table of its own.
QTableWidget *weekdayTable(QWidget *parent)
{
    auto *table = new QTableWidget(1, static_cast<int>(std::size(WeekdayKeys)), parent);
    table->setFocusPolicy(Qt::NoFocus);
    table->setFixedHeight(WeekdayHeight);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    for (int i = 0; i < table->columnCount(); ++i) {
        auto *item = new QTableWidgetItem(text(WeekdayKeys[i]).left(1));
        item->setTextAlignment(Qt::AlignCenter);
        table->setItem(0, i, item);
    }
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setFrameStyle(0);
    table->setShowGrid(false);
    table->horizontalHeader()->setMinimumSectionSize(0);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    styleTable(table); // comes last, as each sheet has what is there laid out anew
    return table;
}

// The calendar that VelaCalanderView shows: own weekdays, month names and arrows, black weekends, and a bar of no
// colour.
QCalendarWidget *dressedCalendar(QWidget *parent)
{
    auto *calendar = new QCalendarWidget(parent);
    calendar->setFirstDayOfWeek(Qt::Sunday);
    calendar->setHorizontalHeaderFormat(QCalendarWidget::NoHorizontalHeader);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    QTextCharFormat format;
    format.setForeground(Qt::black);
    calendar->setWeekdayTextFormat(Qt::Saturday, format);
    calendar->setWeekdayTextFormat(Qt::Sunday, format);

    const std::pair<const char *, const char *> arrows[] = {{"qt_calendar_prevmonth", "bt_pagebar_backend"},
                                                            {"qt_calendar_nextmonth", "bt_pagebar_nextend"}};
    for (const auto &[name, image] : arrows) {
        auto *arrow = calendar->findChild<QToolButton *>(QLatin1String(name));
        arrow->setIcon(getGlobalImage(image, ImageManager::IMAGE_NORMAL));
        arrow->setIconSize(QSize(IconSize, IconSize));
    }
    calendar->findChild<QWidget *>(QStringLiteral("qt_calendar_navigationbar"))->setAutoFillBackground(false);
    auto *month = calendar->findChild<QToolButton *>(QStringLiteral("qt_calendar_monthbutton"));
    const QList<QAction *> actions = month->menu()->actions();
    for (QAction *action : actions) {
        action->setText(text(MonthKeys[action->data().toInt() - 1]).left(3));
    }
    month->setText(text(MonthKeys[QDate::currentDate().month() - 1]));
    static_cast<QVBoxLayout *>(calendar->layout())->insertWidget(1, weekdayTable(calendar));
    return calendar;
}

using MakeCalendar = QCalendarWidget *(*)(QWidget *parent);

void fill(QWidget *view, MakeCalendar makeCalendar)
{
    auto *column = new QVBoxLayout(view);
    column->addWidget(makeCalendar(view));
    column->addWidget(bareTodayButton(view), 0, Qt::AlignHCenter);
}

QWidget *calanderView(QWidget *parent)
{
    auto *view = new VelaCalanderView(parent);
    view->setFixedSize(ViewSize);
    return view;
}

template<MakeCalendar makeCalendar>
QWidget *bareView(QWidget *parent)
{
    auto *view = new QWidget(parent);
    fill(view, makeCalendar);
    view->setFixedSize(ViewSize);
    return view;
}

// An item view without items, which is what a combo box can pop up.
class EmptyView : public QAbstractItemView
{
public:
    QRect visualRect(const QModelIndex &) const override { return QRect(); }
    void scrollTo(const QModelIndex &, ScrollHint) override { }
    QModelIndex indexAt(const QPoint &) const override { return QModelIndex(); }

protected:
    QModelIndex moveCursor(CursorAction, Qt::KeyboardModifiers) override { return QModelIndex(); }
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override { return 0; }
    bool isIndexHidden(const QModelIndex &) const override { return true; }
    void setSelection(const QRect &, QItemSelectionModel::SelectionFlags) override { }
    QRegion visualRegionForSelection(const QItemSelection &) const override { return QRegion(); }
};

QComboBox *dateSelector(QWidget *parent)
{
    return new VelaDateSelector(EmptyText, parent);
}

// Gives a combo box the one item, the sizes and the sheets of a date selector.
QComboBox *asSelector(QComboBox *combo)
{
    combo->addItem(EmptyText, QDate());
    combo->view()->setFixedSize(PopupSize);
    combo->setFixedHeight(SelectorHeight);
    combo->setStyleSheet(sheetOf("component.date_selector") + sheetOf("component.menu"));
    return combo;
}

QComboBox *listSelector(QWidget *parent)
{
    return asSelector(new QComboBox(parent));
}

template<MakeCalendar makeCalendar>
QComboBox *calendarSelector(QWidget *parent)
{
    auto *combo = new QComboBox(parent);
    auto *view = new EmptyView;
    fill(view, makeCalendar);
    combo->setView(view);
    return asSelector(combo);
}

using MakeSelector = QComboBox *(*)(QWidget *parent);

// Measures from nothing to the first paint of the popup, which opens below a selector that has been painted.
void openSelectors(benchmark::State &state, MakeSelector makeSelector)
{
    QWidget window;
    window.resize(400, 400);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        QComboBox *selector = makeSelector(&window);
        const PaintWatcher field(selector);
        selector->show();
        field.waitForPaint();
        const PaintWatcher popup(selector->view()->viewport());
        selector->showPopup();
        popup.waitForPaint();

        state.PauseTiming();
        selector->hidePopup();
        delete selector;
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

// Measures the popup alone, of a selector that has shown it before.
void reopenPopups(benchmark::State &state, MakeSelector makeSelector)
{
    QWidget window;
    window.resize(400, 400);
    QComboBox *selector = makeSelector(&window);
    window.show();
    selector->showPopup();
    QApplication::processEvents();
    selector->hidePopup();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        const PaintWatcher popup(selector->view()->viewport());
        selector->showPopup();
        popup.waitForPaint();

        state.PauseTiming();
        selector->hidePopup();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

using Measure = void (*)(benchmark::State &state, MakeSelector makeSelector);

void compareSelectors(const char *what, Measure measure, MakeSelector floor)
{
    compare(
        what, Target, [measure](benchmark::State &state) { measure(state, dateSelector); },
        [measure, floor](benchmark::State &state) { measure(state, floor); });
}

void compareViews(const char *what, QWidget *(*floor)(QWidget *parent))
{
    compare(
        what, Target, [](benchmark::State &state) { showPanels(state, Count, calanderView); },
        [floor](benchmark::State &state) { showPanels(state, Count, floor); });
}

QByteArray sheets()
{
    return headed("component.cancel_button", buttonSheet("QPushButton"))
        + headed("component.table",
                 "QTableView { color: #17202b; background-color: #ffffff; border: 1px solid #e4e9ef }\n"
                 "QTableView::item { border: none; padding: 0px 8px }\n"
                 "QTableView::item:hover { background-color: #f3f6fa }")
        + headed("component.table_header",
                 "QHeaderView { background-color: #f5f7fa; border: none }\n"
                 "QHeaderView::section { color: #45525f; padding: 0px 8px; border-right: 1px solid #e4e9ef }")
        + headed("component.date_selector",
                 buttonSheet("QComboBox")
                     + "QComboBox { combobox-popup: 0 }\n"
                       "QComboBox QAbstractItemView { background-color: #ffffff; border: 1px solid #c8d2dc }\n"
                       "QCalendarWidget QToolButton { color: #17202b; background-color: transparent }")
        + headed("component.menu", buttonSheet("QMenu"));
}

QMap<QString, QString> strings()
{
    const QLocale english(QLocale::English);
    QMap<QString, QString> all;
    for (const char *key :
         {"today", "accessible_calendar", "accessible_calendar_prev_month", "accessible_calendar_next_month"}) {
        all.insert(QLatin1String(key), QLatin1String(key));
    }
    for (int i = 0; i < static_cast<int>(std::size(MonthKeys)); ++i) {
        all.insert(QLatin1String(MonthKeys[i]), english.monthName(i + 1));
    }
    for (int i = 0; i < static_cast<int>(std::size(WeekdayKeys)); ++i) {
        all.insert(QLatin1String(WeekdayKeys[i]), english.dayName(i == 0 ? Qt::Sunday : i));
    }
    return all;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources resources;
    const QStringList arrows {QStringLiteral("bt_pagebar_backend"), QStringLiteral("bt_pagebar_nextend")};
    for (const QString &arrow : arrows) {
        resources.writeImage(arrow, 4 * IconSize);
    }
    resources.writeCatalogue(arrows);
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize({resources.writeSheet(QStringLiteral("dates.qss"), sheets())});
    ComponentStrings::getInstance()->installStrings(strings());

    compareViews("VelaCalanderView, first paint", bareView<plainCalendar>);
    compareViews("VelaCalanderView, first paint, weekdays in both", bareView<dressedCalendar>);
    compareSelectors("VelaDateSelector, popup, floor a list", openSelectors, listSelector);
    compareSelectors("VelaDateSelector, popup, floor a calendar", openSelectors, calendarSelector<plainCalendar>);
    compareSelectors("VelaDateSelector, popup, weekdays in both", openSelectors, calendarSelector<dressedCalendar>);
    compareSelectors("VelaDateSelector, popup again, weekdays in both", reopenPopups,
                     calendarSelector<dressedCalendar>);
    return runComparisons(argc, argv);
}
