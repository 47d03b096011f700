// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/x-server.h"

#include <QString>
#include <QStringList>

/// A process that runs the program of instance.cpp.
class InstanceProcess
{
public:
    InstanceProcess(const QString &id, const QString &task, const QString &argument = QString());
    /// The program's file.
    static QString program();

    /// Whether there is a line already.
    bool hasLine();
    /// The next line that it says; empty when none comes in time.
    QString line();
    /// All lines to its end.
    QStringList linesToEnd();
    /// All further lines that come until there are @p count.
    QStringList lines(int count);
    /// What it waits for to end.
    void closeInput();
    /// Lets it end by itself. Whether it does, with success.
    bool end();
    void kill();

private:
    bool awaitLine();

    DependentProcess m_process;
};
