// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QTest>
#include <QWidget>

#include <utility>

/// A window that is used as its user does.
class TestWindow : public QWidget
{
public:
    /// Returns whether the window became active.
    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }

    void click(const QPoint &position) { QTest::mouseClick(windowHandle(), Qt::LeftButton, {}, position); }
    /// Clicks on the middle of a widget in the window.
    void click(const QWidget *widget) { click(widget->mapTo(this, widget->rect().center())); }
};

/// A window that is shown and active once it is made. A test in which it is not has failed.
template<typename Window>
class Shown : public Window
{
public:
    template<typename... Arguments>
    explicit Shown(Arguments &&...arguments) : Window(std::forward<Arguments>(arguments)...)
    {
        QVERIFY(this->showAndWait());
    }
};
