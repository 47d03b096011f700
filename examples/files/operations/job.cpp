// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "job.h"

#include <QtConcurrentRun>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto Interval = 100ms;
constexpr qint64 Whole = 100;

} // namespace

Job::Job(QObject *parent) : QObject(parent)
{
    m_thread.setMaxThreadCount(1);
    m_timer.setInterval(Interval);
    connect(&m_timer, &QTimer::timeout, this, &Job::progressed);
}

Job::~Job()
{
    stop();
    m_thread.waitForDone();
}

void Job::start(const Work &work, const std::function<void(const Outcome &)> &done, const std::function<void()> &begun)
{
    m_waiting.enqueue({work, done, begun});
    if (!isRunning()) {
        startNext();
    }
}

void Job::startNext()
{
    const Piece piece = m_waiting.dequeue();
    m_progress = std::make_shared<Progress>();
    m_timer.start();
    QtConcurrent::run(&m_thread, [this, piece, progress = m_progress] {
        const Outcome outcome = piece.work(progress.get());
        QMetaObject::invokeMethod(this, [this, piece, outcome] {
            m_timer.stop();
            m_progress.reset();
            Q_EMIT finished();
            piece.done(outcome);
            if (!isRunning() && !m_waiting.isEmpty()) {
                startNext();
            }
        });
    });
    if (piece.begun) {
        piece.begun();
    }
    Q_EMIT started();
}

void Job::stop()
{
    if (m_progress) {
        m_progress->isStopped = true;
    }
}

bool Job::isRunning() const
{
    return m_progress != nullptr;
}

int Job::percentage() const
{
    const qint64 total = m_progress ? m_progress->total.load() : 0;
    return total == 0 ? -1 : static_cast<int>(std::min(Whole, m_progress->done * Whole / total));
}
