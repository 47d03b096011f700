// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QKeyEvent;
class QShortcutEvent;
class QWidget;
class VelaSheet;

namespace Vela::Private {

/// Keeps the keys of a window from being anybody's shortcuts but those of the sheet that is uppermost there.
///
/// Actions, shortcuts of the window or of the application, menu bars and access keys below the sheet do not see them;
/// they reach the widget that has the focus as any other key does. Keys of other windows are left alone.
class SheetKeys : public QObject
{
public:
    explicit SheetKeys(VelaSheet *sheet);

    /// Begins and ends to look at the keys of the application.
    void keep();
    void release();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isUppermost() const;
    bool isLastToBeAsked(const QObject *watched) const;
    bool mayBeShortcut(const QKeyEvent *event) const;
    bool takesShortcut(const QObject *watched, const QShortcutEvent *event) const;

    VelaSheet *const m_sheet;
};

} // namespace Vela::Private
