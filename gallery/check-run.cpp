// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "check-run.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

namespace {

const QString Program = QStringLiteral("vela-theme");
constexpr int MaximalExitCode = 1; // of a check that was done

// It is installed beside the gallery.
QString program()
{
    const QString beside = QStandardPaths::findExecutable(Program, {QCoreApplication::applicationDirPath()});
    return beside.isEmpty() ? Program : beside;
}

Findings findingsIn(const QByteArray &json, const QString &folder)
{
    Findings findings;
    const QJsonArray array = QJsonDocument::fromJson(json).array();
    for (const QJsonValue &value : array) {
        const QJsonObject object = value.toObject();
        const auto text = [&object](const char *key) { return object.value(QLatin1String(key)).toString(); };
        if (const Rule *rule = findRule(text("rule"))) {
            findings.add(rule->name, text("file").mid(folder.size() + 1), object.value(QLatin1String("line")).toInt(),
                         text("text"));
        }
    }
    return findings;
}

} // namespace

CheckRun::CheckRun()
{
    connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this, &CheckRun::take);
    connect(&m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            Q_EMIT failed(m_process.errorString());
        }
    });
}

CheckRun::~CheckRun()
{
    m_process.disconnect(this);
    m_process.kill();
    m_process.waitForFinished();
}

void CheckRun::start(const QString &folder)
{
    m_folder = QDir::cleanPath(folder);
    if (m_process.state() == QProcess::NotRunning) {
        run();
    } else {
        m_isGivenUp = true;
        m_process.kill();
    }
}

void CheckRun::run()
{
    m_process.start(program(), {QStringLiteral("check"), QStringLiteral("--format"), QStringLiteral("json"), m_folder});
}

void CheckRun::take()
{
    if (m_isGivenUp) {
        m_isGivenUp = false;
        run();
    } else if (m_process.exitStatus() != QProcess::NormalExit || m_process.exitCode() > MaximalExitCode) {
        Q_EMIT failed(QString::fromLocal8Bit(m_process.readAllStandardError()).trimmed());
    } else {
        Q_EMIT found(findingsIn(m_process.readAllStandardOutput(), m_folder));
    }
}
