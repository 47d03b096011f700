// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outcome.h"

#include <QObject>
#include <QQueue>
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

    /// Begins now, or when all that was given before has ended, and calls @p begun then. finished() follows, and @p
    /// done with what the work brings.
    void start(const Work &work, const std::function<void(const Outcome &)> &done,
               const std::function<void()> &begun = {});
    /// Ends what is under way, not what waits. A step that cannot be stopped is waited for.
    void stop();
    bool isRunning() const;
    /// Hundredths; -1 while that is not known.
    int percentage() const;

Q_SIGNALS:
    void started();
    void progressed();
    void finished();

private:
    struct Piece
    {
        Work work;
        std::function<void(const Outcome &)> done;
        std::function<void()> begun;
    };

    void startNext();

    QQueue<Piece> m_waiting;
    std::shared_ptr<Progress> m_progress; // null while nothing is under way
    QTimer m_timer;
    QThreadPool m_thread;
};
