// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/navigation_p.h"

#include "accessible/around_p.h"
#include "component/paging/vela-paging-bar.h"
#include "component/vela-button-path.h"
#include "look/look_p.h"

#include <QAbstractButton>
#include <QToolButton>

namespace Vela::Accessible {

// Page numbers are written as the bar writes them.
QString placeIn(const VelaPagingBar *bar)
{
    const VelaPagingModel *model = bar->model();
    return model
        ? Look::spoken(SpokenText::PageOf, QString::number(model->nowPage()), QString::number(model->pageCount()))
        : QString();
}

// ---- PagingBar

PagingBar::PagingBar(QWidget *bar) : QAccessibleWidget(bar, QAccessible::Grouping) { }

QString PagingBar::text(QAccessible::Text text) const
{
    const QString given = QAccessibleWidget::text(text);
    if (!given.isEmpty()) {
        return given;
    }
    const auto *bar = static_cast<const VelaPagingBar *>(widget());
    switch (text) {
    case QAccessible::Name:
        return Look::spoken(SpokenText::Pages);
    case QAccessible::Description:
    case QAccessible::Value:
        return placeIn(bar);
    default:
        return given;
    }
}

// ---- PageButton

PageButton::PageButton(QAbstractButton *button) : Button(button) { }

VelaPagingBar *PageButton::bar() const
{
    return around<VelaPagingBar>(button());
}

bool PageButton::isCurrent() const
{
    const VelaPagingModel *model = bar() ? bar()->model() : nullptr;
    return model && button()->text() == QString::number(model->nowPage());
}

QString PageButton::name() const
{
    const QString page = button()->text().trimmed();
    if (!bar() || page.isEmpty()) {
        return Button::name().trimmed();
    }
    return isCurrent() ? placeIn(bar()) : Look::spoken(SpokenText::Page, page);
}

QString PageButton::description() const
{
    if (isCurrent()) {
        return Look::spoken(SpokenText::Current);
    }
    return bar() && Button::description().isEmpty() ? placeIn(bar()) : Button::description();
}

QAccessible::State PageButton::state() const
{
    QAccessible::State state = Button::state();
    if (bar() && button()->text().trimmed().isEmpty()) {
        state.invisible = true;
        state.focusable = false;
    }
    return state;
}

// ---- Path

Path::Path(QWidget *path) : Group(path, QAccessible::List) { }

// The menu's button comes first: it lies over names.
QList<QWidget *> Path::parts() const
{
    const auto *path = static_cast<const VelaButtonPath *>(widget());
    QList<QWidget *> parts;
    auto *menuButton = path->findChild<QToolButton *>(QString(), Qt::FindDirectChildrenOnly);
    if (menuButton && !menuButton->isHidden()) {
        parts.append(menuButton);
    }
    for (int column = 0; column < path->columnCount(); column += 2) { // arrows stand between the names
        if (QWidget *name = path->cellWidget(0, column)) {
            parts.append(name);
        }
    }
    return parts;
}

// The table beneath tells of its current cell by the number that cells have in a table with two headers.
QAccessibleInterface *Path::child(int index) const
{
    const auto *path = static_cast<const VelaButtonPath *>(widget());
    const int column = index - path->columnCount() - 2;
    return column < 0 ? Group::child(index) : QAccessible::queryAccessibleInterface(path->cellWidget(0, column));
}

QString Path::text(QAccessible::Text text) const
{
    const QString given = QAccessibleWidget::text(text);
    return text == QAccessible::Name && given.isEmpty() ? Look::spoken(SpokenText::Path) : given;
}

// ---- Link

Link::Link(QAbstractButton *button) : Button(button, QAccessible::Link) { }

VelaButtonPath *Link::path() const
{
    return around<VelaButtonPath>(button());
}

QAccessibleInterface *Link::parent() const
{
    return path() ? QAccessible::queryAccessibleInterface(path()) : Button::parent();
}

QAccessible::State Link::state() const
{
    QAccessible::State state = Button::state();
    state.linked = true;
    state.offscreen = path() && !button()->geometry().intersects(path()->viewport()->rect());
    return state;
}

QString Link::description() const
{
    const bool isCurrent = path() && path()->cellWidget(0, path()->columnCount() - 1) == button();
    return isCurrent ? Look::spoken(SpokenText::Current) : Button::description();
}

} // namespace Vela::Accessible
