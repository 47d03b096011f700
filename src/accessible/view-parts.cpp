// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/item-view_p.h"

#include "accessible/plain-text_p.h"
#include "look/look_p.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QMouseEvent>

namespace Vela::Accessible {

namespace {

QRect onScreen(const QWidget *widget, const QRect &rect)
{
    return rect.isEmpty() ? QRect() : QRect(widget->mapToGlobal(rect.topLeft()), rect.size());
}

void clickOn(QWidget *widget, const QPoint &position)
{
    const QPointer<QWidget> alive(widget);
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        if (!alive) {
            return;
        }
        const bool isPress = type == QEvent::MouseButtonPress;
        QMouseEvent event(type, position, widget->mapToGlobal(position), Qt::LeftButton,
                          isPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

} // namespace

// ---- ViewPart

bool ViewPart::isValid() const
{
    return m_view;
}

QObject *ViewPart::object() const
{
    return nullptr;
}

QWindow *ViewPart::window() const
{
    QAccessibleInterface *table = parent();
    return table ? table->window() : nullptr;
}

QAccessibleInterface *ViewPart::childAt(int, int) const
{
    return nullptr;
}

QAccessibleInterface *ViewPart::parent() const
{
    return QAccessible::queryAccessibleInterface(m_view);
}

QAccessibleInterface *ViewPart::child(int) const
{
    return nullptr;
}

int ViewPart::childCount() const
{
    return 0;
}

int ViewPart::indexOfChild(const QAccessibleInterface *) const
{
    return -1;
}

void ViewPart::setText(QAccessible::Text, const QString &) { }

QAccessible::State ViewPart::state() const
{
    QAccessible::State state;
    state.invisible = !m_view || !m_view->isVisible();
    state.disabled = !m_view || !m_view->isEnabled();
    return state;
}

void *ViewPart::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::TableCellInterface:
        return static_cast<QAccessibleTableCellInterface *>(this);
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface *>(this);
    default:
        return nullptr;
    }
}

QAbstractItemView *ViewPart::view() const
{
    return m_view;
}

ItemView *ViewPart::viewInterface() const
{
    return static_cast<ItemView *>(parent());
}

bool ViewPart::isSelected() const
{
    return false;
}

QList<QAccessibleInterface *> ViewPart::columnHeaderCells() const
{
    return {};
}

QList<QAccessibleInterface *> ViewPart::rowHeaderCells() const
{
    return {};
}

int ViewPart::columnExtent() const
{
    return 1;
}

int ViewPart::rowExtent() const
{
    return 1;
}

QAccessibleInterface *ViewPart::table() const
{
    return parent();
}

QStringList ViewPart::actionNames() const
{
    return state().disabled ? QStringList() : QStringList {pressAction()};
}

void ViewPart::doAction(const QString &name)
{
    if (actionNames().contains(name)) {
        click();
    }
}

QStringList ViewPart::keyBindingsForAction(const QString &) const
{
    return {};
}

// ---- Cell

Cell::Cell(QAbstractItemView *view, const QModelIndex &index, QAccessible::Role role) :
    ViewPart(view), m_index(index), m_role(role)
{
}

bool Cell::isValid() const
{
    return ViewPart::isValid() && m_index.isValid() && m_index.model() == view()->model();
}

QModelIndex Cell::index() const
{
    return m_index;
}

QWidget *Cell::widgetInCell() const
{
    return isValid() ? view()->indexWidget(m_index) : nullptr;
}

QAccessibleInterface *Cell::child(int index) const
{
    return index == 0 ? QAccessible::queryAccessibleInterface(widgetInCell()) : nullptr;
}

int Cell::childCount() const
{
    return widgetInCell() ? 1 : 0;
}

int Cell::indexOfChild(const QAccessibleInterface *child) const
{
    return child && child->object() && child->object() == widgetInCell() ? 0 : -1;
}

QString Cell::text(QAccessible::Text text) const
{
    if (!isValid()) {
        return QString();
    }
    if (text == QAccessible::Name) {
        const QString spoken = m_index.data(Qt::AccessibleTextRole).toString();
        return spoken.isEmpty() ? m_index.data(Qt::DisplayRole).toString() : spoken;
    }
    return text == QAccessible::Description ? m_index.data(Qt::AccessibleDescriptionRole).toString() : QString();
}

bool Cell::isShown() const
{
    return isValid() && view()->isVisible() && viewInterface()->rowOf(m_index) >= 0;
}

QRect Cell::rect() const
{
    return isShown() ? onScreen(view()->viewport(), view()->visualRect(m_index)) : QRect();
}

QAccessible::Role Cell::role() const
{
    return m_role;
}

QAccessible::State Cell::state() const
{
    QAccessible::State state = ViewPart::state();
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QRect seen = view()->visualRect(m_index);
    state.invisible = !isShown();
    state.offscreen = !seen.intersects(view()->viewport()->rect());
    const Qt::ItemFlags flags = m_index.flags();
    state.disabled = state.disabled || !flags.testFlag(Qt::ItemIsEnabled);
    state.selectable =
        flags.testFlag(Qt::ItemIsSelectable) && view()->selectionMode() != QAbstractItemView::NoSelection;
    state.selected = isSelected();
    state.focusable = !state.disabled;
    state.focused = view()->hasFocus() && view()->currentIndex() == m_index;
    const QVariant check = m_index.data(Qt::CheckStateRole);
    state.checkable = check.isValid() && flags.testFlag(Qt::ItemIsUserCheckable);
    state.checked = check.isValid() && check.toInt() == Qt::Checked;
    state.checkStateMixed = check.isValid() && check.toInt() == Qt::PartiallyChecked;
    return state;
}

bool Cell::isSelected() const
{
    return isValid() && view()->selectionModel()->isSelected(m_index);
}

QList<QAccessibleInterface *> Cell::columnHeaderCells() const
{
    QAccessibleInterface *header = isValid() ? viewInterface()->shownColumnHeaderCell(m_index.column()) : nullptr;
    return header ? QList<QAccessibleInterface *> {header} : QList<QAccessibleInterface *>();
}

QList<QAccessibleInterface *> Cell::rowHeaderCells() const
{
    QAccessibleInterface *header = isValid() ? viewInterface()->shownRowHeaderCell(rowIndex()) : nullptr;
    return header ? QList<QAccessibleInterface *> {header} : QList<QAccessibleInterface *>();
}

int Cell::columnIndex() const
{
    return m_index.column();
}

int Cell::rowIndex() const
{
    return isValid() ? viewInterface()->rowOf(m_index) : -1;
}

void Cell::click()
{
    view()->scrollTo(m_index);
    clickOn(view()->viewport(), view()->visualRect(m_index).center());
}

// ---- HeaderCell

HeaderCell::HeaderCell(QAbstractItemView *view, QHeaderView *header, int section) :
    ViewPart(view), m_header(header), m_section(section)
{
}

bool HeaderCell::isValid() const
{
    return ViewPart::isValid() && (!m_header || m_section < m_header->count());
}

bool HeaderCell::isColumnHeader() const
{
    return m_header && m_header->orientation() == Qt::Horizontal;
}

QString HeaderCell::text(QAccessible::Text text) const
{
    if (!m_header || !m_header->model()) {
        return QString();
    }
    const auto data = [this](int role) {
        return m_header->model()->headerData(m_section, m_header->orientation(), role).toString();
    };
    if (text == QAccessible::Name) {
        const QString spoken = data(Qt::AccessibleTextRole);
        return spoken.isEmpty() ? data(Qt::DisplayRole) : spoken;
    }
    return text == QAccessible::Description ? joined({data(Qt::AccessibleDescriptionRole), sortOrder()}) : QString();
}

QString HeaderCell::sortOrder() const
{
    if (!isColumnHeader() || !m_header->isSortIndicatorShown() || m_header->sortIndicatorSection() != m_section) {
        return QString();
    }
    const bool isAscending = m_header->sortIndicatorOrder() == Qt::AscendingOrder;
    return Look::spoken(isAscending ? SpokenText::SortedAscending : SpokenText::SortedDescending);
}

QRect HeaderCell::rect() const
{
    if (!m_header || !m_header->isVisible()) {
        return QRect();
    }
    const QWidget *viewport = m_header->viewport();
    const int position = m_header->sectionViewportPosition(m_section);
    const int size = m_header->sectionSize(m_section);
    const QRect section =
        isColumnHeader() ? QRect(position, 0, size, viewport->height()) : QRect(0, position, viewport->width(), size);
    return onScreen(viewport, section);
}

QAccessible::Role HeaderCell::role() const
{
    if (!m_header) {
        return QAccessible::Pane;
    }
    return isColumnHeader() ? QAccessible::ColumnHeader : QAccessible::RowHeader;
}

QAccessible::State HeaderCell::state() const
{
    QAccessible::State state = ViewPart::state();
    state.invisible = !m_header || !m_header->isVisible() || m_header->isSectionHidden(m_section);
    return state;
}

QStringList HeaderCell::actionNames() const
{
    return m_header && m_header->isVisible() && m_header->sectionsClickable() ? ViewPart::actionNames() : QStringList();
}

int HeaderCell::columnIndex() const
{
    return isColumnHeader() ? m_section : -1;
}

int HeaderCell::rowIndex() const
{
    return m_header && !isColumnHeader() ? m_section : -1;
}

void HeaderCell::click()
{
    const int middle = m_header->sectionViewportPosition(m_section) + m_header->sectionSize(m_section) / 2;
    clickOn(m_header->viewport(), QPoint(middle, m_header->viewport()->height() / 2));
}

} // namespace Vela::Accessible
