// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>

/// Hears the library's warnings, which help the author of a theme. They reach the message handler that was there before
/// as well. There can be one at a time.
class WarningLog : public QObject
{
    Q_OBJECT

public:
    WarningLog();
    ~WarningLog() override;

Q_SIGNALS:
    /// Emitted from the event loop, also for those of the start-up.
    void warned(const QString &text);

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static WarningLog *s_current;
    QtMessageHandler m_previous;
};
