#include "support/x-server.h"

#include <sys/prctl.h>

#include <csignal>

DependentProcess::~DependentProcess()
{
    terminate();
    waitForFinished();
}

void DependentProcess::setupChildProcess()
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

XServer::XServer()
{
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(QStringLiteral("Xvfb"),
                    {QStringLiteral("-displayfd"), QStringLiteral("1"), // the number goes to standard output
                     QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1280x1024x24"),
                     QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset")});
    while (m_process.waitForReadyRead() && !m_process.canReadLine()) { }
    const QByteArray number = m_process.readLine().trimmed();
    if (number.isEmpty()) {
        m_error = QStringLiteral("Xvfb has not started (scripts/setup --checks installs it): ")
            + m_process.errorString();
        return;
    }
    m_display = QLatin1Char(':') + QString::fromLatin1(number);
}

QString XServer::display() const
{
    return m_display;
}

QString XServer::errorString() const
{
    return m_error;
}
