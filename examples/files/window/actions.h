// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAction>
#include <QObject>

#include <array>

class QWidget;
class VelaButton;

/// What the user can do, with its text and keys.
enum class ActionId {
    Open,
    Up,
    Refresh,
    NewFolder,
    Rename,
    Copy,
    Cut,
    Paste,
    Trash,
    Delete,
    Properties,
    Find,
    GoTo,
    ShowHidden,
    Help,
    Quit,
    Count
};

/// The actions of a window, which also has their keys.
class Actions : public QObject
{
    Q_OBJECT

public:
    explicit Actions(QWidget *window);
    ~Actions() override;

    QAction *operator[](ActionId id) const;

    /// A button that triggers an action, has its text and is enabled with it.
    VelaButton *createButton(ActionId id, int kind) const;

private:
    void retranslate();

    std::array<QAction *, static_cast<std::size_t>(ActionId::Count)> m_actions {};
};
