// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/factory_p.h"

#include "accessible/around_p.h"
#include "accessible/countdown-button_p.h"
#include "accessible/dates_p.h"
#include "accessible/field_p.h"
#include "accessible/group_p.h"
#include "accessible/item-view_p.h"
#include "accessible/navigation_p.h"
#include "accessible/window_p.h"
#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "component/vela-button.h"
#include "component/vela-calendar-view.h"
#include "component/vela-combo-box.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-filter-bar.h"
#include "component/vela-input-sheet.h"
#include "component/vela-line-edit.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QToolButton>

#include <algorithm>
#include <iterator>

namespace Vela::Accessible {

namespace {

template<typename Interface>
QAccessibleInterface *create(QWidget *widget)
{
    return new Interface(widget);
}

template<typename Interface>
QAccessibleInterface *createView(QWidget *widget)
{
    return new Interface(static_cast<QAbstractItemView *>(widget));
}

QAccessibleInterface *createWindow(QWidget *widget, QAccessible::Role role)
{
    const bool isWindow = widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog;
    return isWindow ? new Window(widget, role) : nullptr;
}

template<typename Interface>
QAccessibleInterface *createButton(QWidget *widget)
{
    return new Interface(static_cast<QAbstractButton *>(widget));
}

// ---- Widgets of the toolkit, where they are parts of the library's. Qt may ask while they are being made: they have
// their parents then, but perhaps neither names nor places yet.

QAccessibleInterface *createField(QWidget *widget)
{
    auto *field = static_cast<QLineEdit *>(widget);
    if (qobject_cast<VelaLineEdit *>(widget->parentWidget())) {
        return new CompoundField(field);
    }
    if (qobject_cast<VelaComboBox *>(widget->parentWidget())) {
        return new ComboField(field);
    }
    return qobject_cast<VelaInputSheet *>(widget->parentWidget()) ? new PromptedField(field) : nullptr;
}

QAccessibleInterface *createPushButton(QWidget *widget)
{
    if (around<VelaButtonPath>(widget)) {
        return createButton<Link>(widget);
    }
    return qobject_cast<VelaCountdownMessageBox *>(widget->window()) ? createButton<CountdownButton>(widget) : nullptr;
}

QAccessibleInterface *createToolButton(QWidget *widget)
{
    if (qobject_cast<VelaButtonPath *>(widget->parentWidget())) {
        return createButton<IconButton>(widget);
    }
    return around<VelaCalanderView>(widget) ? createButton<CalendarButton>(widget) : nullptr;
}

QAccessibleInterface *createCalendarMonth(QWidget *widget)
{
    return qobject_cast<VelaCalanderView *>(widget->parentWidget()) ? new CalendarMonth(widget) : nullptr;
}

QAccessibleInterface *createDayGrid(QWidget *widget)
{
    const bool isGrid = !qobject_cast<QTableWidget *>(widget) && qobject_cast<QCalendarWidget *>(widget->parentWidget())
        && around<VelaCalanderView>(widget);
    return isGrid ? createView<DayGrid>(widget) : nullptr;
}

struct Creator
{
    const char *className;
    QAccessibleInterface *(*create)(QWidget *widget); // null is returned for widgets that Qt tells well of
};

constexpr Creator Creators[] = {
    {"QCalendarWidget", createCalendarMonth},
    {"QDialog", [](QWidget *widget) { return createWindow(widget, QAccessible::Dialog); }},
    {"QLineEdit", createField},
    {"QMainWindow", [](QWidget *widget) { return createWindow(widget, QAccessible::Window); }},
    {"QPushButton", createPushButton},
    {"QTableView", createDayGrid},
    {"QToolButton", createToolButton},
    {"QWidget", [](QWidget *widget) { return createWindow(widget, QAccessible::Client); }},
    {"ResizeSignalTableWidget", createView<Table>},
    {"VelaButton", createButton<PageButton>},
    {"VelaButtonPath", create<Path>},
    {"VelaCalanderView", create<Calendar>},
    {"VelaCountdownMessageBox", create<CountdownBox>},
    {"VelaDateSelector", create<DateField>},
    {"VelaFilterBar",
     [](QWidget *widget) -> QAccessibleInterface * { return new FilterField(static_cast<QLineEdit *>(widget)); }},
    {"VelaIconButton", createButton<IconButton>},
    {"VelaPagingBar", create<PagingBar>},
    {"VelaSheet", create<Sheet>},
    {"VelaTableWidget", create<TableFrame>},
    {"VelaTreeWidget", createView<Tree>},
};

// Qt asks for an object's class, and then for its base classes in turn.
QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    const auto *creator = std::find_if(std::begin(Creators), std::end(Creators), [&className](const Creator &each) {
        return className == QLatin1String(each.className);
    });
    return creator != std::end(Creators) && object->isWidgetType() ? creator->create(static_cast<QWidget *>(object))
                                                                   : nullptr;
}

} // namespace

void install()
{
    QAccessible::installFactory(createInterface);
}

} // namespace Vela::Accessible
