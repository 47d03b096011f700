// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/accessibility.h"

#include <QWidget>

namespace {

template<typename IsCollected>
void collect(QWidget *root, const IsCollected &isCollected, QList<QWidget *> &widgets)
{
    if (!root || !root->isVisible()) {
        return;
    }
    if (isCollected(root)) {
        widgets.append(root);
    }
    const QObjectList &children = root->children();
    for (QObject *child : children) {
        collect(qobject_cast<QWidget *>(child), isCollected, widgets);
    }
}

} // namespace

class AccessibleFilterPrivate : public QSharedData
{
public:
    QList<QWidget *> filterWidgets;
    Qt::FocusPolicy focusLevel = Qt::NoFocus;
};

AccessibleFilter::AccessibleFilter() : d(new AccessibleFilterPrivate) { }

AccessibleFilter::AccessibleFilter(const QList<QWidget *> &filterWidgets, Qt::FocusPolicy focusLevel) :
    AccessibleFilter()
{
    d->filterWidgets = filterWidgets;
    d->focusLevel = focusLevel;
}

AccessibleFilter::AccessibleFilter(const AccessibleFilter &other) = default;

AccessibleFilter::~AccessibleFilter() = default;

AccessibleFilter &AccessibleFilter::operator=(const AccessibleFilter &other) = default;

void AccessibleFilter::setFilterWidgets(const QList<QWidget *> &filterWidgets)
{
    d->filterWidgets = filterWidgets;
}

QList<QWidget *> AccessibleFilter::filterWidgets() const
{
    return d->filterWidgets;
}

void AccessibleFilter::setFocusLevel(Qt::FocusPolicy focusLevel)
{
    d->focusLevel = focusLevel;
}

Qt::FocusPolicy AccessibleFilter::focusLevel() const
{
    return d->focusLevel;
}

QList<QWidget *> accessibleList(QWidget *root, QList<QWidget *> excluded)
{
    QList<QWidget *> widgets;
    collect(
        root,
        [&excluded](QWidget *widget) { return widget->focusPolicy() != Qt::NoFocus && !excluded.contains(widget); },
        widgets);
    return widgets;
}

QList<QWidget *> accessibleList(QWidget *root, AccessibleFilter filter)
{
    QList<QWidget *> widgets;
    collect(
        root,
        [excluded = filter.filterWidgets(), level = filter.focusLevel()](QWidget *widget) {
            return widget->focusPolicy() >= level && !excluded.contains(widget);
        },
        widgets);
    return widgets;
}

void adjustFocusPolicy(Qt::FocusPolicy policy, QList<QWidget *> widgets)
{
    for (QWidget *widget : qAsConst(widgets)) {
        widget->setFocusPolicy(policy);
    }
}
