// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QStringList>

/// A process that ends with this one, also when this one crashes.
class DependentProcess : public QProcess
{
public:
    ~DependentProcess() override;

protected:
    void setupChildProcess() override;
};

/// An X server that draws on no real screen, with a free display number, for as long as this lives.
class XServer
{
public:
    /// One with a single screen.
    XServer();
    /// A server that is @p program with @p arguments and those that each needs; one that draws into a window does so on
    /// @p hostDisplay.
    XServer(const QString &program, const QStringList &arguments, const QString &hostDisplay = QString());

    /// Name of the display of a server that accepts connections; empty if the server has not started.
    QString display() const;
    /// Why the server has not started.
    QString errorString() const;

private:
    DependentProcess m_process;
    QString m_display;
    QString m_error;
};
