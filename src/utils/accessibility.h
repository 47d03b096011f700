// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QList>
#include <QSharedDataPointer>
#include <Qt>

class AccessibleFilterPrivate;
class QWidget;

/// Which widgets accessibleList() collects.
class VELA_EXPORT AccessibleFilter
{
public:
    /// Lets every visible widget pass, those that take no focus too.
    AccessibleFilter();
    /// Leaves out @p filterWidgets, but not their children, and every widget whose focus policy is, as a number, less
    /// than @p focusLevel.
    AccessibleFilter(const QList<QWidget *> &filterWidgets, Qt::FocusPolicy focusLevel);
    /// A copy, which is independent.
    AccessibleFilter(const AccessibleFilter &other);
    ~AccessibleFilter();
    /// Becomes such a copy.
    AccessibleFilter &operator=(const AccessibleFilter &other);

    /// Sets the widgets that are left out.
    void setFilterWidgets(const QList<QWidget *> &filterWidgets);
    /// The widgets that are left out; none at first.
    QList<QWidget *> filterWidgets() const;

    /// Sets the least focus policy, as a number, of a widget that passes.
    void setFocusLevel(Qt::FocusPolicy focusLevel);
    /// The least focus policy of a widget that passes; Qt::NoFocus at first.
    Qt::FocusPolicy focusLevel() const;

private:
    QSharedDataPointer<AccessibleFilterPrivate> d;
};

/// @p root and the widgets below it that are visible and take focus, but for those in @p excluded, whose children are
/// visited nevertheless. Parents come before their children, children in the order of their creation; below a hidden
/// widget nothing is collected. Empty for a null @p root.
VELA_EXPORT QList<QWidget *> accessibleList(QWidget *root, QList<QWidget *> excluded);
/// The same with the widgets that @p filter lets pass.
VELA_EXPORT QList<QWidget *> accessibleList(QWidget *root, AccessibleFilter filter);

/// Sets @p policy on each of @p widgets.
VELA_EXPORT void adjustFocusPolicy(Qt::FocusPolicy policy, QList<QWidget *> widgets);
