// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>
#include <QString>
#include <QStringList>
#include <QVector>

/// Keeps what is logged while it lives. Messages of other categories than the library's are passed on as well, so that
/// a warning of the toolkit is seen in the test's output.
class LogCapture
{
public:
    struct Message
    {
        QtMsgType type;
        QString category;
        QString text;
        QString file;
        int line;
        QString function;
    };

    LogCapture();
    ~LogCapture();
    Q_DISABLE_COPY_MOVE(LogCapture)

    /// All messages since construction or the last take.
    QVector<Message> takeMessages();

    /// The texts of the library's warnings since construction or the last take. Anything of another category or level
    /// stands there too, in front of its text the category, so that comparing the list finds it.
    QStringList takeTexts();

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    static LogCapture *s_current;
    LogCapture *m_outer;
    QtMessageHandler m_previous;
    QVector<Message> m_messages;
};
