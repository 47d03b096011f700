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

void Job::start(const Work &work, const std::function<void(const Outcome &)> &done)
{
    if (isRunning()) {
        return;
    }
    m_progress = std::make_shared<Progress>();
    m_timer.start();
    QtConcurrent::run(&m_thread, [this, work, done, progress = m_progress] {
        const Outcome outcome = work(progress.get());
        QMetaObject::invokeMethod(this, [this, done, outcome] {
            m_timer.stop();
            m_progress.reset();
            Q_EMIT finished();
            done(outcome);
        });
    });
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
