// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/window-hints.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QThread>
#include <QWidget>

namespace {

constexpr char Property[] = "_MOTIF_WM_HINTS";
const QVector<quint32> Away {1, 0, 6, 0, 0}; // hints of a window whose close button is away

// The server may serve our connection before the one that the hints were changed on. No event is handled meanwhile.
template<typename Predicate>
bool comesTrue(Predicate isTrue)
{
    constexpr int Patience = 5000; // milliseconds
    QElapsedTimer timer;
    timer.start();
    while (!isTrue()) {
        if (timer.elapsed() > Patience) {
            return false;
        }
        QThread::msleep(5);
    }
    return true;
}

} // namespace

bool isOnX()
{
    return QGuiApplication::platformName() == QLatin1String("xcb");
}

WindowHints::WindowHints(const QWidget &window) : m_window(static_cast<XWindow>(window.winId()))
{
    if (isOnX()) {
        m_x = std::make_unique<XConnection>();
        m_x->setProperty(m_window, Property, {Property, 32, {3, 62, 126, 0, 0}});
        m_before = now();
    }
}

QVector<quint32> WindowHints::now() const
{
    return m_x ? m_x->property(m_window, Property).elements : QVector<quint32>();
}

bool WindowHints::isAway() const
{
    return !m_x || comesTrue([this] { return now() == Away; });
}

bool WindowHints::isBack() const
{
    return !m_x || comesTrue([this] { return now() == m_before; });
}
