// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>
#include <QWidget>

/// Knows whether a widget has been painted.
class PaintWatcher : public QObject
{
public:
    explicit PaintWatcher(QWidget *widget) { widget->installEventFilter(this); }

    /// Runs the event loop until the widget has been painted.
    void waitForPaint() const
    {
        while (!m_hasPainted) {
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_hasPainted = m_hasPainted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_hasPainted = false;
};

/// Measures from nothing to the first paint: makes @p count widgets by @p makeWidget, which is given their parent, lays
/// them out in a panel, and shows it in a window that is there.
template<typename MakeWidget>
void showPanels(benchmark::State &state, int count, MakeWidget makeWidget)
{
    QWidget window;
    window.resize(400, 2000);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        auto *panel = new QWidget(&window);
        auto *layout = new QVBoxLayout(panel);
        for (int i = 0; i < count; ++i) {
            layout->addWidget(makeWidget(panel));
        }
        const PaintWatcher last(layout->itemAt(count - 1)->widget());
        panel->show();
        last.waitForPaint();

        state.PauseTiming();
        delete panel;
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
