// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QApplication>
#include <QPointer>

class QtLocalPeer;

/// The application object of a program that runs once a user: a further start finds the one that runs, sends it a
/// message and ends.
///
///     QtSingleApplication application(argc, argv);
///     if (application.sendMessage(QStringLiteral("wake up"))) {
///         return EXIT_SUCCESS;
///     }
///     if (application.isRunning()) {
///         return EXIT_FAILURE; // it does not answer
///     }
///     MainWindow window;
///     window.show();
///     application.setActivationWindow(&window);
///     return application.exec();
///
/// A process has no further QtLocalPeer of the same id beside it.
class VELA_EXPORT QtSingleApplication : public QApplication
{
    Q_OBJECT

public:
    /// The program's file path is the id. @p GUIenabled is of no effect with Qt 5, where a program without windows has
    /// a QCoreApplication.
    QtSingleApplication(int &argc, char **argv, bool GUIenabled = true);
    /// Programs and versions of a program that are one application have one @p id.
    QtSingleApplication(const QString &id, int &argc, char **argv);

    /// Whether another process of this user and this id is the first. Otherwise this one is from now on.
    bool isRunning();

    /// The id as given, or the program's file path.
    QString id() const;

    /// The window that activateWindow() brings to the front; null for none. It stays the caller's, and may be deleted.
    /// With @p activateOnMessage each message does so.
    void setActivationWindow(QWidget *window, bool activateOnMessage = true);
    /// Null also when the window is gone.
    QWidget *activationWindow() const;

public Q_SLOTS:
    /// Hands @p message, of up to 64 MiB in UTF-8, to the first process and waits up to @p timeout milliseconds until
    /// it has got it, without limit if that is negative. False when it has not. Where there is no first process, or it
    /// ends before it has been reached, this one becomes the first, and gets false; isRunning() tells which.
    bool sendMessage(const QString &message, int timeout = 5000);
    /// Un-minimises the activation window, raises it and gives it the focus.
    void activateWindow();

Q_SIGNALS:
    /// In the first process: another one has sent @p message.
    void messageReceived(const QString &message);

private:
    QtLocalPeer *m_peer;
    QPointer<QWidget> m_activationWindow;
};
