// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "single-application/instance-process.h"

namespace {

constexpr int Patience = 60000; // milliseconds, enough for a machine that runs other tests beside

} // namespace

InstanceProcess::InstanceProcess(const QString &id, const QString &task, const QString &argument)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program(), {id, task, argument});
}

QString InstanceProcess::program()
{
    return QStringLiteral(VELA_INSTANCE_PROGRAM);
}

bool InstanceProcess::awaitLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(Patience)) {
            return m_process.canReadLine();
        }
    }
    return true;
}

bool InstanceProcess::hasLine()
{
    m_process.waitForReadyRead(0);
    return m_process.canReadLine();
}

QString InstanceProcess::line()
{
    return awaitLine() ? QString::fromUtf8(m_process.readLine()).trimmed() : QString();
}

QStringList InstanceProcess::linesToEnd()
{
    m_process.waitForFinished(Patience);
    return QString::fromUtf8(m_process.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

QStringList InstanceProcess::lines(int count)
{
    QStringList lines;
    while (lines.size() < count && awaitLine()) {
        lines.append(line());
    }
    return lines;
}

void InstanceProcess::closeInput()
{
    m_process.closeWriteChannel();
    m_process.waitForBytesWritten(0); // without an event loop nothing else closes it
}

bool InstanceProcess::end()
{
    closeInput();
    return m_process.waitForFinished(Patience) && m_process.exitStatus() == QProcess::NormalExit
        && m_process.exitCode() == 0;
}

void InstanceProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished(Patience);
}
