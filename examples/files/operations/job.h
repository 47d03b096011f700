// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outcome.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <memory>

/// Work on files in the background, one piece at a time.
class Job : public QObject
{
    Q_OBJECT

public:
    explicit Job(QObject *parent = nullptr);
    /// Stops what is under way and waits for that.
    ~Job() override;

    using Work = std::function<Outcome(Progress *)>;

    /// finished() follows, and @p done with what it brings. Does nothing while another one is under way.
    void start(const Work &work, const std::function<void(const Outcome &)> &done);
    /// What is begun and cannot be stopped is waited for.
    void stop();
    bool isRunning() const;
    /// Hundredths; -1 while that is not known.
    int percentage() const;

Q_SIGNALS:
    void started();
    void progressed();
    void finished();

private:
    std::shared_ptr<Progress> m_progress; // null while nothing is under way
    QTimer m_timer;
    QThreadPool m_thread;
};
