// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QObject>

class QtLocalPeerPrivate;

/// One of the processes of an application that a user runs: the first of them gets the messages of the others.
///
/// They find each other by the application's id through a lock file and a local socket in QDir::tempPath(), which
/// other users can neither open nor take over. The first process makes either anew when it is removed. Where both are
/// gone before its event loop runs, the next start becomes the first, and the older one a client. Processes built with
/// another edition of this class take part.
///
/// A process has one such object for an id. Locks belong to processes: a second object would count as a client, and
/// release the lock of the first one.
class VELA_EXPORT QtLocalPeer : public QObject
{
    Q_OBJECT

public:
    /// An empty @p appId stands for the program's file path. What keeps the process from taking part, a lock file that
    /// belongs to another user for instance, is logged; it is a first one then that nobody finds.
    explicit QtLocalPeer(QObject *parent = nullptr, const QString &appId = QString());
    /// Gives up the first place if this process has it.
    ~QtLocalPeer() override;

    /// Whether another process is the first. Otherwise this one is from now on.
    bool isClient();

    /// Hands @p message, of up to 64 MiB in UTF-8, to the first process and waits up to @p timeout milliseconds until
    /// it has got it, without limit if that is negative. False when it has not. Where there is no first process, or it
    /// ends before it has been reached, this one becomes the first, and gets false.
    bool sendMessage(const QString &message, int timeout);

    /// The id as given, or the program's file path.
    QString applicationId() const;

Q_SIGNALS:
    /// In the first process: another one has sent @p message.
    void messageReceived(const QString &message);

private:
    QtLocalPeerPrivate *const d;
};
