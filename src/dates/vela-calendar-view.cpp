// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "dates/vela-calendar-view.h"

#include "controls/mouse-filters.h"
#include "controls/vela-button.h"
#include "look/look-change_p.h"
#include "look/look_p.h"
#include "scale/scaled.h"

#include <QCalendarWidget>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QSpinBox>
#include <QStyle>
#include <QTableWidget>
#include <QTextCharFormat>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

using namespace Vela;

namespace {

constexpr int DaysPerWeek = 7;
constexpr int AbbreviatedMonth = 3; // letters in the menu of months

// Logical pixels, but for the section.
constexpr int TodayButtonHeight = 24;
constexpr int WeekdayHeight = 30;
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

constexpr Text Weekdays[DaysPerWeek] = {Text::Sunday,   Text::Monday, Text::Tuesday, Text::Wednesday,
                                        Text::Thursday, Text::Friday, Text::Saturday};

QString initialOf(const QString &weekday)
{
    return weekday.left(1); // clazy:exclude=qstring-left
}

QString abbreviated(const QString &month)
{
    return month.left(AbbreviatedMonth);
}

// Qt's calendar without its focus proxy, the grid of days. With it the calendar would be a second stop on the way to
// the grid, and while the year is edited, and after it, the grid would have the calendar's focus policy.
class Calendar : public QCalendarWidget
{
public:
    explicit Calendar(QWidget *parent) : QCalendarWidget(parent), m_dayGrid(qobject_cast<QTableView *>(focusProxy()))
    {
        setFocusProxy(nullptr);
        setFocusPolicy(Qt::ClickFocus);
    }

    // Weeks may get lower than the font has them, see handleWeekdayHeader(), but do not ask for less room.
    QSize minimumSizeHint() const override
    {
        QHeaderView *weeks = m_dayGrid->verticalHeader();
        weeks->setMinimumSectionSize(-1);
        const QSize hint = QCalendarWidget::minimumSizeHint();
        weeks->setMinimumSectionSize(0);
        return hint;
    }

protected:
    void focusInEvent(QFocusEvent *event) override { m_dayGrid->setFocus(event->reason()); }

    // Qt marks days that cannot be chosen by the window's colour, which a style sheet makes that of all days. Then
    // they look as in a disabled grid, if that has another surface.
    void paintCell(QPainter *painter, const QRect &rect, const QDate &date) const override
    {
        QCalendarWidget::paintCell(painter, rect, date);
        const QPalette palette = m_dayGrid->palette();
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

    bool event(QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::ShortcutOverride:
            keepEnter(static_cast<QKeyEvent *>(event));
            return QCalendarWidget::event(event);
        case QEvent::LocaleChange:
            showYear();
            [[fallthrough]];
        case QEvent::LayoutDirectionChange:
            // Qt's calendar would begin the week on another day and give the months and the arrows its own looks.
            return QWidget::event(event); // NOLINT(bugprone-parent-virtual-call)
        default:
            return QCalendarWidget::event(event);
        }
    }

private:
    // Keeps Enter, which ends the editing of the year, from being a combo box's shortcut to close its popup.
    static void keepEnter(QKeyEvent *event)
    {
        event->setAccepted(event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter);
    }

    // Shows the year with the locale's digits, as its edit does already.
    void showYear()
    {
        const auto *edit = findChild<QSpinBox *>(QStringLiteral("qt_calendar_yearedit"));
        findChild<QToolButton *>(QStringLiteral("qt_calendar_yearbutton"))->setText(edit->text());
    }

    QTableView *const m_dayGrid;
};

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
    void renewWeekdays(const LookChange &change);

    // A child of Qt's calendar by its fixed name.
    template<typename Widget>
    Widget *child(const char *objectName) const
    {
        return q->findChild<Widget *>(QString::fromLatin1(objectName));
    }
    QToolButton *monthButton() const { return child<QToolButton>("qt_calendar_monthbutton"); }
    QTableView *dayGrid() const { return child<QTableView>("qt_calendar_calendarview"); }

    VelaCalanderView *const q;
    QTableWidget *weekdayView = nullptr;
    QStringList monthNames;
    QCalendarWidget *calendar = nullptr;
    VelaButton *todayButton = nullptr;
};

void VelaCalanderViewPrivate::createChildren()
{
    auto *column = new QVBoxLayout(q);
    todayButton = new VelaButton(Look::text(Text::Today), VelaButton::CancelButton);
    todayButton->setFixedHeight(scaled(TodayButtonHeight));
    todayButton->setObjectName(QStringLiteral("qt_calendar_today_button"));
    calendar = new Calendar(q);
    calendar->setFirstDayOfWeek(Qt::Sunday);
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
    button->setIcon(pixmap);
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
    weekdayView = new QTableWidget(0, DaysPerWeek, calendar);
    weekdayView->setFocusPolicy(Qt::NoFocus);
    weekdayView->setObjectName(QStringLiteral("qt_calendar_weekdayview"));
    const QString headerSheet = Look::sheet(Style::TableHeader);
    const QString tableSheet = Look::sheet(Style::Table);
    weekdayView->setFixedHeight(scaled(WeekdayHeight));
    weekdayView->horizontalHeader()->hide();
    weekdayView->verticalHeader()->hide();

    weekdayView->insertRow(0);
    for (int i = 0; i < DaysPerWeek; ++i) {
        auto *item = new QTableWidgetItem(initialOf(Look::text(Weekdays[i])));
        item->setTextAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
        weekdayView->setItem(0, i, item);
    }
    weekdayView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    weekdayView->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
    weekdayView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    weekdayView->setSelectionMode(QAbstractItemView::NoSelection);
    weekdayView->setFrameStyle(0);
    weekdayView->setShowGrid(false);

    // Minimum sizes would else depend on the font, and the sections of a large one might not fit.
    dayGrid()->verticalHeader()->setMinimumSectionSize(0);
    for (QHeaderView *header : {dayGrid()->horizontalHeader(), weekdayView->horizontalHeader()}) {
        header->setMinimumSectionSize(0);
        header->setDefaultSectionSize(SectionSize);
    }
    weekdayView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    qobject_cast<QVBoxLayout *>(calendar->layout())->insertWidget(1, weekdayView);

    // Last, and the table before its header: what comes after a sheet is styled again.
    weekdayView->setStyleSheet(tableSheet);
    weekdayView->horizontalHeader()->setStyleSheet(headerSheet);
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
    renewWeekdays(change);
    if (calendar->weekdayTextFormat(Qt::Saturday).foreground().color() == change.former(Color::CalendarWeekend)) {
        colorWeekend();
    }
}

void VelaCalanderViewPrivate::renewArrow(const LookChange &change, const Arrow &arrow)
{
    auto *button = child<QToolButton>(arrow.objectName);
    change.renewAccessibleName(button, arrow.accessibleName);
    if (change.isOfEverything()) {
        const QPixmap pixmap = change.now(arrow.image);
        button->setIcon(pixmap);
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

void VelaCalanderViewPrivate::renewWeekdays(const LookChange &change)
{
    for (int i = 0; i < DaysPerWeek; ++i) {
        QTableWidgetItem *item = weekdayView->item(0, i);
        if (item->text() == initialOf(change.former(Weekdays[i]))) {
            item->setText(initialOf(change.now(Weekdays[i])));
        }
    }
    change.restyle(weekdayView, Style::Table);
    change.restyle(weekdayView->horizontalHeader(), Style::TableHeader);
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
    d->monthButton()->setText(d->monthNames.value(month - 1));
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
