// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/qtsingleapplication.h"

#include "single-application/qtlocalpeer.h"

#include <QWidget>

QtSingleApplication::QtSingleApplication(int &argc, char **argv, bool /*GUIenabled*/) :
    QtSingleApplication(QString(), argc, argv)
{
}

QtSingleApplication::QtSingleApplication(const QString &id, int &argc, char **argv) :
    QApplication(argc, argv), m_peer(new QtLocalPeer(this, id))
{
    connect(m_peer, &QtLocalPeer::messageReceived, this, &QtSingleApplication::messageReceived);
}

bool QtSingleApplication::isRunning()
{
    return m_peer->isClient();
}

QString QtSingleApplication::id() const
{
    return m_peer->applicationId();
}

void QtSingleApplication::setActivationWindow(QWidget *window, bool activateOnMessage)
{
    m_activationWindow = window;
    if (activateOnMessage) {
        connect(m_peer, &QtLocalPeer::messageReceived, this, &QtSingleApplication::activateWindow,
                Qt::UniqueConnection);
    } else {
        disconnect(m_peer, &QtLocalPeer::messageReceived, this, &QtSingleApplication::activateWindow);
    }
}

QWidget *QtSingleApplication::activationWindow() const
{
    return m_activationWindow;
}

bool QtSingleApplication::sendMessage(const QString &message, int timeout)
{
    return m_peer->sendMessage(message, timeout);
}

void QtSingleApplication::activateWindow()
{
    if (!m_activationWindow) {
        return;
    }
    m_activationWindow->setWindowState(m_activationWindow->windowState() & ~Qt::WindowMinimized);
    m_activationWindow->raise();
    m_activationWindow->activateWindow();
}
