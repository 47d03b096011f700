// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

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

XServer::XServer() :
    XServer(QStringLiteral("Xvfb"), {QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("1280x1024x24")})
{
}

XServer::XServer(const QString &program, const QStringList &arguments, const QString &hostDisplay)
{
    if (!hostDisplay.isEmpty()) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), hostDisplay);
        m_process.setProcessEnvironment(environment);
    }
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.start(program,
                    QStringList {QStringLiteral("-displayfd"),
                                 QStringLiteral("1"), // the number goes to standard output
                                 QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-noreset")}
                        + arguments);
    while (m_process.waitForReadyRead() && !m_process.canReadLine()) { }
    const QByteArray number = m_process.readLine().trimmed();
    if (number.isEmpty()) {
        m_error = program + QLatin1String(" has not started (scripts/setup --checks installs it): ")
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
