// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "warning-log.h"

#include "utils/util.h"

#include <QMetaObject>

#include <cstring>

WarningLog *WarningLog::s_current = nullptr;

WarningLog::WarningLog()
{
    Q_ASSERT(!s_current);
    s_current = this;
    m_previous = qInstallMessageHandler(handle);
}

WarningLog::~WarningLog()
{
    qInstallMessageHandler(m_previous);
    s_current = nullptr;
}

void WarningLog::handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (context.category && std::strcmp(context.category, debug_message().categoryName()) == 0) {
        QMetaObject::invokeMethod(
            s_current, [log = s_current, text] { Q_EMIT log->warned(text); }, Qt::QueuedConnection);
    }
    s_current->m_previous(type, context, text);
}
