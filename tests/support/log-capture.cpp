// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/log-capture.h"

LogCapture *LogCapture::s_current = nullptr;

LogCapture::LogCapture() : m_outer(s_current), m_previous(qInstallMessageHandler(handle))
{
    s_current = this;
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(m_previous);
    s_current = m_outer;
}

void LogCapture::handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (text.startsWith(
            QLatin1String("This plugin does not support"))) { // the offscreen platform says so of any window
        return;
    }
    const QString category = QString::fromUtf8(context.category);
    s_current->m_messages.append(
        {type, category, text, QString::fromUtf8(context.file), context.line, QString::fromUtf8(context.function)});
    if (category != QLatin1String("debug.message")) {
        s_current->m_previous(type, context, text);
    }
}

QVector<LogCapture::Message> LogCapture::takeMessages()
{
    return std::exchange(m_messages, {});
}

QStringList LogCapture::takeTexts()
{
    QStringList texts;
    const QVector<Message> messages = takeMessages();
    for (const Message &message : messages) {
        const bool isLibraryWarning =
            message.category == QLatin1String("debug.message") && message.type == QtWarningMsg;
        texts.append(isLibraryWarning ? message.text : message.category + QLatin1String(": ") + message.text);
    }
    return texts;
}
