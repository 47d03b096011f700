// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/test-window.h"

#include <QColor>
#include <QEvent>
#include <QStringList>

#include <functional>

class QLineEdit;
class QMenu;
class ResourceFolder;

/// Makes the start-up calls with @p folder and these style sheets, each between its header line and a line
/// break. Sheets that are already installed stay, unless there is a new one of the same key.
void installSheets(const ResourceFolder &folder, const QByteArray &sheets);

/// What a class declares itself, apart from its bases: signatures of methods, names of properties and enumerations.
QStringList ownDeclarations(const QMetaObject &metaObject);

/// Names of the properties of @p metaObject, which both objects have, whose values differ, other than @p ignored.
QStringList differingProperties(const QMetaObject &metaObject, const QObject &left, const QObject &right,
                                const QStringList &ignored = {});

/// The colour that @p widget paints at @p position, in logical pixels.
QColor paintedColor(QWidget *widget, const QPoint &position);
/// The colour that it paints in its middle.
QColor paintedColor(QWidget *widget);

/// A window with a control in its own size and a neighbour that has the focus at first; the pointer is outside of both.
class ControlWindow : public TestWindow
{
public:
    explicit ControlWindow(QWidget *shownControl);

    /// Returns whether the window became active.
    bool showAndWait();

    /// The control's middle, where the user acts.
    QPoint center() const;
    void enter();
    void leave();
    void press(Qt::MouseButton which = Qt::LeftButton);
    void release(Qt::MouseButton which = Qt::LeftButton);
    using TestWindow::click;
    void click();
    /// Presses a key in what has the focus.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void type(const QString &text);

    QWidget *const control;
    QLineEdit *const neighbour;
};

/// Counts the events of a type that an object gets.
class EventCounter : public QObject
{
public:
    EventCounter(QObject *watched, QEvent::Type type);

    /// How many there were since construction or the last take.
    int take();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const QEvent::Type m_type;
    int m_count = 0;
};

/// Does something with a menu once it is open and then closes it. (What opens a menu mostly waits until it is closed.)
class MenuUser : public QObject
{
public:
    explicit MenuUser(QMenu *menu, std::function<void()> use = {});

    bool hasUsed() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::function<void()> m_use;
    bool m_hasUsed = false;
};
