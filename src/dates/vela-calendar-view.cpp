// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "dates/vela-calendar-view.h"

#include "controls/mouse-filters.h"
#include "controls/vela-button.h"
#include "dates/month-calendar_p.h"
#include "dates/weekday-row_p.h"
#include "look/look-change_p.h"
#include "look/look_p.h"
#include "scale/scaled.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

using namespace Vela;

namespace {

constexpr int AbbreviatedMonth = 3; // letters in the menu of months

// Logical pixels, but for the section.
constexpr int TodayButtonHeight = 24;
constexpr int SectionSize = 30; // pixels, at any scale

constexpr Text Months[] = {Text::January,   Text::February, Text::March,    Text::April,
                           Text::May,       Text::June,     Text::July,     Text::August,
                           Text::September, Text::October,  Text::November, Text::December};
struct Arrow
{
    const char *objectName;
    Text accessibleName;
    Image image;
};

constexpr Arrow Arrows[] = {
    {"qt_calendar_prevmonth", Text::CalendarPreviousMonth, Image::PagingFirst},
    {"qt_calendar_nextmonth", Text::CalendarNextMonth, Image::PagingLast},
};

QString abbreviated(const QString &month)
{
    return month.left(AbbreviatedMonth);
}

} // namespace

class VelaCalanderViewPrivate
{
public:
    explicit VelaCalanderViewPrivate(VelaCalanderView *view) : q(view) { }

    void createChildren();
    void setUpCalendar();
    void colorWeekend();
    void handleNavigationBar();
    void handleArrow(const Arrow &arrow);
    void handleMonthMenu();
    void handleWeekdayHeader();
    void handleTabOrder();
    void watchKeys();
    void connectSignals();
    void renew(const LookChange &change);
    void renewArrow(const LookChange &change, const Arrow &arrow);
    void renewMonths(const LookChange &change);

    // A child of Qt's calendar by its fixed name.
    template<typename Widget>
    Widget *child(const char *objectName) const
    {
        return q->findChild<Widget *>(QString::fromLatin1(objectName));
    }
    QToolButton *monthButton() const { return child<QToolButton>("qt_calendar_monthbutton"); }
    QTableView *dayGrid() const { return child<QTableView>("qt_calendar_calendarview"); }

    VelaCalanderView *const q;
    WeekdayRow *weekdays = nullptr;
    QStringList monthNames;
    MonthCalendar *calendar = nullptr;
    VelaButton *todayButton = nullptr;
};

void VelaCalanderViewPrivate::createChildren()
{
    auto *column = new QVBoxLayout(q);
    calendar = new MonthCalendar(q);
    calendar->setFirstDayOfWeek(Qt::Sunday);
    todayButton = new VelaButton(Look::text(Text::Today), VelaButton::CancelButton, q);
    todayButton->setFixedHeight(scaled(TodayButtonHeight));
    todayButton->setObjectName(QStringLiteral("qt_calendar_today_button"));
    column->addWidget(calendar);
    column->addWidget(todayButton, 0, Qt::AlignHCenter);
}

void VelaCalanderViewPrivate::setUpCalendar()
{
    q->setSelectionMode(QAbstractItemView::NoSelection);
    calendar->setHorizontalHeaderFormat(QCalendarWidget::NoHorizontalHeader);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);

    colorWeekend();

    q->setAccessibleName(Look::text(Text::Calendar));
}

void VelaCalanderViewPrivate::colorWeekend()
{
    QTextCharFormat format = calendar->weekdayTextFormat(Qt::Saturday);
    format.setForeground(QBrush(Look::color(Color::CalendarWeekend), Qt::SolidPattern));
    calendar->setWeekdayTextFormat(Qt::Saturday, format);
    calendar->setWeekdayTextFormat(Qt::Sunday, format);
}

void VelaCalanderViewPrivate::handleNavigationBar()
{
    for (const char *name :
         {"qt_calendar_prevmonth", "qt_calendar_nextmonth", "qt_calendar_monthbutton", "qt_calendar_yearbutton"}) {
        child<QToolButton>(name)->setFocusPolicy(Qt::StrongFocus);
    }
    for (const Arrow &arrow : Arrows) {
        child<QToolButton>(arrow.objectName)->setAccessibleName(Look::text(arrow.accessibleName));
    }
    for (const Arrow &arrow : Arrows) {
        handleArrow(arrow);
    }
    auto *yearEdit = child<QSpinBox>("qt_calendar_yearedit");
    yearEdit->setAttribute(Qt::WA_MacShowFocusRect, false);
    yearEdit->setAccessibleName(Look::spoken(SpokenText::Year));

    auto *bar = child<QWidget>("qt_calendar_navigationbar");
    bar->setAutoFillBackground(false);
    auto *filter = new MouseButtonFilter;
    filter->setParent(bar);
    bar->installEventFilter(filter);
    handleMonthMenu();
}

void VelaCalanderViewPrivate::handleArrow(const Arrow &arrow)
{
    const QPixmap pixmap = Look::image(arrow.image);
    auto *button = child<QToolButton>(arrow.objectName);
    calendar->setArrow(button, pixmap);
    button->setIconSize(Look::logicalSize(pixmap));
}

void VelaCalanderViewPrivate::handleMonthMenu()
{
    for (Text month : Months) {
        monthNames.append(Look::text(month));
    }
    const QList<QAction *> actions = monthButton()->menu()->actions();
    for (QAction *action : actions) {
        action->setText(abbreviated(monthNames.value(action->data().toInt() - 1)));
    }
    monthButton()->setText(monthNames.at(QDate::currentDate().month() - 1));
}

void VelaCalanderViewPrivate::handleWeekdayHeader()
{
    const QString headerSheet = Look::sheet(Style::TableHeader);
    const QString tableSheet = Look::sheet(Style::Table);
    weekdays = new WeekdayRow(calendar);

    // Minimum sizes would else depend on the font, and the sections of a large one might not fit.
    dayGrid()->verticalHeader()->setMinimumSectionSize(0);
    for (QHeaderView *header : {dayGrid()->horizontalHeader(), weekdays->horizontalHeader()}) {
        header->setMinimumSectionSize(0);
        header->setDefaultSectionSize(SectionSize);
    }
    weekdays->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    qobject_cast<QVBoxLayout *>(calendar->layout())->insertWidget(1, weekdays);

    // Last, and the table before its header: what comes after a sheet is styled again.
    weekdays->setStyleSheet(tableSheet);
    weekdays->horizontalHeader()->setStyleSheet(headerSheet);
}

void VelaCalanderViewPrivate::handleTabOrder()
{
    QWidget *const stops[] = {
        q,
        child<QWidget>("qt_calendar_prevmonth"),
        child<QWidget>("qt_calendar_nextmonth"),
        monthButton(),
        child<QWidget>("qt_calendar_yearbutton"),
        child<QWidget>("qt_calendar_yearedit"),
        dayGrid(),
        todayButton,
        q,
    };
    for (std::size_t i = 1; i < std::size(stops); ++i) {
        QWidget::setTabOrder(stops[i - 1], stops[i]);
    }
}

void VelaCalanderViewPrivate::watchKeys()
{
    for (const char *name :
         {"qt_calendar_yearbutton", "qt_calendar_yearedit", "qt_calendar_calendarview", "qt_calendar_today_button"}) {
        child<QWidget>(name)->installEventFilter(q);
    }
}

void VelaCalanderViewPrivate::connectSignals()
{
    QObject::connect(calendar, &QCalendarWidget::activated, q, &VelaCalanderView::sigDateSelect);
    QObject::connect(calendar, &QCalendarWidget::clicked, q, &VelaCalanderView::sigDateSelect);
    QObject::connect(todayButton, &VelaButton::clicked, q, &VelaCalanderView::selectToday);
    QObject::connect(calendar, &QCalendarWidget::currentPageChanged, q, &VelaCalanderView::pageChanged);
}

void VelaCalanderViewPrivate::renew(const LookChange &change)
{
    change.renewAccessibleName(q, Text::Calendar);
    change.renewAccessibleName(child<QSpinBox>("qt_calendar_yearedit"), SpokenText::Year);
    change.renewText(todayButton, Text::Today);
    for (const Arrow &arrow : Arrows) {
        renewArrow(change, arrow);
    }
    renewMonths(change);
    weekdays->renew(change);
    if (calendar->weekdayTextFormat(Qt::Saturday).foreground().color() == change.former(Color::CalendarWeekend)) {
        colorWeekend();
    }
}

void VelaCalanderViewPrivate::renewArrow(const LookChange &change, const Arrow &arrow)
{
    auto *button = child<QToolButton>(arrow.objectName);
    change.renewAccessibleName(button, arrow.accessibleName);
    if (change.isOfEverything() && calendar->showsArrow(button)) {
        const QPixmap pixmap = change.now(arrow.image);
        calendar->setArrow(button, pixmap);
        button->setIconSize(Look::logicalSize(pixmap));
    }
}

void VelaCalanderViewPrivate::renewMonths(const LookChange &change)
{
    const QStringList former = std::exchange(monthNames, {});
    for (Text month : Months) {
        monthNames.append(change.now(month));
    }
    const QList<QAction *> actions = monthButton()->menu()->actions();
    for (QAction *action : actions) {
        const int month = action->data().toInt() - 1;
        if (action->text() == abbreviated(former.value(month))) {
            action->setText(abbreviated(monthNames.value(month)));
        }
    }
    const int shown = former.indexOf(monthButton()->text());
    if (shown >= 0) {
        monthButton()->setText(monthNames.at(shown));
    }
}

VelaCalanderView::VelaCalanderView(QWidget *parent) :
    QAbstractItemView(parent), d(std::make_unique<VelaCalanderViewPrivate>(this))
{
    d->createChildren();
    d->setUpCalendar();
    d->handleNavigationBar();
    d->handleWeekdayHeader();
    d->handleTabOrder();
    d->watchKeys();
    d->connectSignals();
}

VelaCalanderView::~VelaCalanderView()
{
    // A window that is closed ends the editing of its year, which turns the page.
    d->calendar->disconnect(this);
}

void VelaCalanderView::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        d->renew(*change);
    }
    QAbstractItemView::customEvent(event);
}

void VelaCalanderView::setCurrentPage(int year, int month)
{
    d->calendar->setCurrentPage(year, month);
}

void VelaCalanderView::setMinimumDate(const QDate &date)
{
    d->calendar->setMinimumDate(date);
}

QDate VelaCalanderView::minimumDate() const
{
    return d->calendar->minimumDate();
}

void VelaCalanderView::setMaximumDate(const QDate &date)
{
    d->calendar->setMaximumDate(date);
}

QDate VelaCalanderView::maximumDate() const
{
    return d->calendar->maximumDate();
}

void VelaCalanderView::selectToday()
{
    d->calendar->setSelectedDate(QDate::currentDate());
    Q_EMIT sigDateSelect(QDate::currentDate());
}

void VelaCalanderView::pageChanged(int, int month)
{
    d->monthButton()->setText(month > 0 ? d->monthNames.value(month - 1) : QString());
}

void VelaCalanderView::slotMonthTriggered(QAction *action)
{
    d->monthButton()->setText(d->monthNames.value(action->data().toInt() - 1));
}

bool VelaCalanderView::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab) {
        return false;
    }

    key == Qt::Key_Tab ? focusNextChild() : focusPreviousChild();
    QTableView *grid = d->dayGrid();
    const QModelIndex current = grid->currentIndex();
    if (grid->hasFocus() && current.isValid()) {
        grid->setCurrentIndex(QModelIndex());
        grid->setCurrentIndex(current);
    }
    return true;
}

QRect VelaCalanderView::visualRect(const QModelIndex &) const
{
    return QRect();
}

void VelaCalanderView::scrollTo(const QModelIndex &, ScrollHint) { }

QModelIndex VelaCalanderView::indexAt(const QPoint &) const
{
    return QModelIndex();
}

QModelIndex VelaCalanderView::moveCursor(CursorAction, Qt::KeyboardModifiers)
{
    return QModelIndex();
}

int VelaCalanderView::horizontalOffset() const
{
    return 0;
}

int VelaCalanderView::verticalOffset() const
{
    return 0;
}

bool VelaCalanderView::isIndexHidden(const QModelIndex &) const
{
    return true;
}

void VelaCalanderView::setSelection(const QRect &, QItemSelectionModel::SelectionFlags) { }

QRegion VelaCalanderView::visualRegionForSelection(const QItemSelection &) const
{
    return QRegion();
}
