// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QList>
#include <QLoggingCategory>
#include <QString>

class QWidget;

/// Logging category of the whole library, named "debug.message".
///
/// Every warning of the library goes through it. Switch it with `QLoggingCategory::setFilterRules()`, for instance
/// `debug.message.warning=false`; while it is off nothing is formatted.
VELA_EXPORT Q_DECLARE_LOGGING_CATEGORY(debug_message)

/// Which widgets accessibleList() collects.
class VELA_EXPORT AccessibleFilter
{
public:
    /// Lets every visible widget pass, those that take no focus too.
    AccessibleFilter();
    /// Leaves out @p filterWidgets, but not their children, and every widget whose focus policy is, as a number, less
    /// than @p focusLevel.
    AccessibleFilter(const QList<QWidget *> &filterWidgets, Qt::FocusPolicy focusLevel);

    void setFilterWidgets(const QList<QWidget *> &filterWidgets);
    QList<QWidget *> filterWidgets() const;

    void setFocusLevel(Qt::FocusPolicy focusLevel);
    Qt::FocusPolicy focusLevel() const;

private:
    QList<QWidget *> m_filterWidgets;
    Qt::FocusPolicy m_focusLevel;
};

/// @p root and the widgets below it that are visible and take focus, but for those in @p excluded, whose children are
/// visited nevertheless. Parents come before their children, children in the order of their creation; below a hidden
/// widget nothing is collected. Empty for a null @p root.
VELA_EXPORT QList<QWidget *> accessibleList(QWidget *root, QList<QWidget *> excluded);
/// The same with the widgets that @p filter lets pass.
VELA_EXPORT QList<QWidget *> accessibleList(QWidget *root, AccessibleFilter filter);

/// Sets @p policy on each of @p widgets.
VELA_EXPORT void adjustFocusPolicy(Qt::FocusPolicy policy, QList<QWidget *> widgets);

/// @p text, which is plain, as a tool tip that keeps its line breaks and runs of blanks and is not wrapped.
VELA_EXPORT QString getHtmlEscapedStringForToolTip(const QString &text);

/// Takes the close button and the other functions of the window of @p widget away, or gives them back, through the
/// property that window managers on X11 read ("_MOTIF_WM_HINTS"). Does nothing on another platform and for a widget
/// without a native window yet, as before it is first shown.
///
/// @p savedState points to a pointer that is null at first. Disabling keeps the window's hints there and enabling puts
/// them back, frees them and sets the pointer to null; enabling without them does nothing. Disabling twice loses what
/// the first call kept. Each call opens a connection of its own to the X server, which stays open until the process
/// ends: a server accepts a few hundred from all its clients (256 by default), so this is nothing to be called in a
/// loop.
VELA_EXPORT void SHAPISetCloseButtonOfWindowEnable(QWidget *widget, bool enable, void **savedState);
