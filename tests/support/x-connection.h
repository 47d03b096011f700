// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QStringList>
#include <QVector>

#include <memory>

struct xcb_connection_t;

using XWindow = quint32;

/// A property as it stands on the X server.
struct XProperty
{
    QByteArray type; // name of its atom, empty where there is no property
    int format = 0; // bits of an element
    QVector<quint32> elements;
};

bool operator==(const XProperty &left, const XProperty &right);

/// Makes QCOMPARE tell what properties hold.
char *toString(const XProperty &property);

/// A connection to an X server for looking at windows and at what others do to them, apart from the toolkit's.
class XConnection
{
public:
    /// Connects to @p display, or to the one that DISPLAY names.
    explicit XConnection(const QString &display = QString());
    ~XConnection();
    Q_DISABLE_COPY_MOVE(XConnection)

    bool isOpen() const;
    XWindow rootWindow() const;
    /// The child of the root window that @p window is in: the frame that a window manager has put around it.
    XWindow frameOf(XWindow window) const;

    XProperty property(XWindow window, const char *name) const;
    /// Names of the atoms in a property that lists some.
    QStringList atoms(XWindow window, const char *name) const;
    void setProperty(XWindow window, const char *name, const XProperty &property) const;
    void removeProperty(XWindow window, const char *name) const;

    /// Begins to count the changes of a property of @p window, and of no other.
    void watch(XWindow window, const char *name);
    /// How often the watched property was written or removed since then.
    int changes();

    /// What is seen of @p window.
    QImage grab(XWindow window) const;
    /// Presses and releases the left mouse button over @p window, for programs that do not mind that an event was sent.
    void click(XWindow window, const QPoint &position) const;
    /// Asks @p window to close, as a window manager does for its user.
    void askToClose(XWindow window) const;

private:
    quint32 atom(const QByteArray &name) const;
    QByteArray atomName(quint32 atom) const;
    void synchronize() const;

    xcb_connection_t *m_connection;
    XWindow m_watchedWindow = 0;
    quint32 m_watchedProperty = 0;
    int m_changes = 0;
};
