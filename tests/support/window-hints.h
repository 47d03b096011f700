// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/x-connection.h"

#include <QVector>

#include <memory>

class QWidget;

bool isOnX();

/// What tells the window manager of the buttons of a window, which is given some that every program gives; nothing
/// where there is no X server.
class WindowHints
{
public:
    explicit WindowHints(const QWidget &window);

    QVector<quint32> now() const;
    /// Whether the close button is away, or where there is none to be seen.
    bool isAway() const;
    bool isBack() const;

private:
    const XWindow m_window;
    std::unique_ptr<XConnection> m_x;
    QVector<quint32> m_before;
};
