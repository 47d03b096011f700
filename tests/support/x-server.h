#pragma once

#include <QProcess>
#include <QString>

/// A process that ends with this one, also when this one crashes.
class DependentProcess : public QProcess
{
public:
    ~DependentProcess() override;

protected:
    void setupChildProcess() override;
};

/// An X server without a screen, with a free display number, for as long as this lives.
class XServer
{
public:
    XServer();

    /// Of a server that is running and accepts connections; empty if it has not started.
    QString display() const;
    /// Why the server has not started.
    QString errorString() const;

private:
    DependentProcess m_process;
    QString m_display;
    QString m_error;
};
