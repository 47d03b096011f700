// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "findings.h"

#include <QObject>
#include <QProcess>

/// Has a theme checked by vela-theme, in a process of its own: a check takes the theme into use, and longer than a
/// window may stand still.
class CheckRun : public QObject
{
    Q_OBJECT

public:
    CheckRun();
    ~CheckRun() override;

    /// Begins to check the theme in @p folder; a check that is under way is given up.
    void start(const QString &folder);

Q_SIGNALS:
    /// The check is done.
    void found(const Findings &findings);
    /// It could not be done; @p reason is for people.
    void failed(const QString &reason);

private:
    void run();
    void take();

    QProcess m_process;
    QString m_folder;
    bool m_isGivenUp = false;
};
