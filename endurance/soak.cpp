// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Does one thing again and again, as an application that runs for months does, and fails where memory or open files
// have grown or the later times are longer. Needs no display.
//
// Usage: soak ACTIVITY TIMES [LEAK]
// LEAK bytes are lost each time, which has to be found.

#include "component/vela-button-path.h"
#include "component/vela-input-sheet.h"
#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "component/vela-msg-sheet.h"
#include "support/all-widgets.h"
#include "support/resource-folder.h"
#include "support/theme-copy.h"

#include "VelaTheme"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <vector>

#include <malloc.h>

namespace {

constexpr int TooMuch = 3; // exit status of growth
constexpr int Slices = 10;
// Milliseconds until the toolkit's cache of pictures forgets the names of those that are gone.
constexpr int CacheTime = 31000;
constexpr int RowsOfMasks = 100; // messages that a window lives for, as each leaves it an empty mask
constexpr double LostAtMost = 8.0; // bytes each time, on the average of the second half: caches fill in the first
constexpr double LongerAtMost = 1.25; // the last tenth, against the second
constexpr double MaskAtMost = 1.25; // what a message leaves in its window, against an empty mask

struct Slice
{
    double microseconds; // processor time that once has taken, which one in ten was quicker than
    size_t heap; // bytes
    int files;
};

struct Activity
{
    const char *name;
    // What it returns does the thing once, and goes before it is measured.
    std::function<std::function<void(int)>()> begin;
};

int openFiles()
{
    return static_cast<int>(
        QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size());
}

size_t heap()
{
    ::malloc_trim(0);
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
}

double processorTime()
{
    timespec time = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

// Memory that nothing leads to any more; the optimiser must not see that.
void lose(size_t bytes)
{
    static volatile char *lost;
    lost = static_cast<char *>(std::malloc(bytes));
    *lost = 0;
}

void settle()
{
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

// ---- what is done

std::unique_ptr<QWidget> shownWindow()
{
    auto window = std::make_unique<QWidget>();
    window->resize(800, 600);
    window->show();
    QApplication::processEvents();
    return window;
}

// A window for a hundred messages and another for the next.
class Windows
{
public:
    QWidget *windowFor(int time)
    {
        if (!m_window || time % RowsOfMasks == 0) {
            m_window = shownWindow();
        }
        return m_window.get();
    }

private:
    std::unique_ptr<QWidget> m_window;
};

template<typename Sheet>
void answer(QWidget *window)
{
    QTimer::singleShot(0, window, [window] {
        auto *sheet = window->findChild<Sheet *>();
        sheet->grab();
        sheet->done(QMessageBox::Ok);
    });
}

std::function<void(int)> messages()
{
    return [windows = std::make_shared<Windows>()](int time) {
        QWidget *window = windows->windowFor(time);
        answer<VelaMessageSheet>(window);
        const QString text = QStringLiteral("Delete the %1 files that are selected?").arg(time % 10);
        if (showConfirmMsg(QString(), text, window) != QMessageBox::Ok) {
            qFatal("a message was not answered");
        }
    };
}

std::function<void(int)> inputs()
{
    return [windows = std::make_shared<Windows>()](int time) {
        QWidget *window = windows->windowFor(time);
        answer<VelaInputSheet>(window);
        VelaInputSheet sheet(QStringLiteral("Name"), window);
        VelaMask::createMask(&sheet, window, Qt::black);
        sheet.getLineEdit()->setText(QString::number(time));
        if (sheet.exec() != QMessageBox::Ok) {
            qFatal("a question was not answered");
        }
    };
}

std::function<void(int)> paths()
{
    const std::shared_ptr<QWidget> window = shownWindow();
    auto *path = new VelaButtonPath(window.get());
    path->resize(600, 40);
    path->show();
    return [window, path](int time) {
        path->refresh(QStringLiteral("home/someone/folder %1/%2").arg(time % 10).arg(time % 7));
        path->grab();
    };
}

std::function<void(int)> themes()
{
    const auto widgets = std::make_shared<AllWidgets>();
    widgets->show();
    return [widgets](int time) {
        const QString palette = time % 2 == 0 ? QStringLiteral("dark") : QStringLiteral("light");
        const QString language = time % 4 < 2 ? QStringLiteral("deu") : QStringLiteral("enu");
        if (VelaTheme::hasErrors(VelaTheme::getInstance()->load(referenceTheme(palette), language))) {
            qFatal("a theme was not taken");
        }
    };
}

const Activity Activities[] = {
    {"messages", messages},
    {"inputs", inputs},
    {"paths", paths},
    {"themes", themes},
};

// ---- what came of it

// What others do on the machine makes some slower, but none quicker.
double quickest(std::vector<double> *values)
{
    const auto tenth = values->begin() + static_cast<std::ptrdiff_t>(values->size() / 10);
    std::nth_element(values->begin(), tenth, values->end());
    return *tenth;
}

// Windows begin anew with each slice.
Slice measure(const Activity &activity, int begin, int times, size_t leak)
{
    std::vector<double> each;
    each.reserve(static_cast<size_t>(times));
    {
        const auto doOnce = activity.begin();
        for (int i = begin; i < begin + times; ++i) {
            const double start = processorTime();
            doOnce(i);
            settle();
            each.push_back(processorTime() - start);
            if (leak > 0) {
                lose(leak);
            }
        }
    }
    settle();
    const double microseconds = quickest(&each);
    each = {};
    QElapsedTimer elapsed;
    for (elapsed.start(); elapsed.elapsed() < CacheTime;) {
        QCoreApplication::processEvents();
        QThread::msleep(20);
    }
    return {microseconds, heap(), openFiles()};
}

bool verdict(const char *what, double value, double atMost)
{
    std::printf("  %-44s %10.2f, at most %.2f%s\n", what, value, atMost, value <= atMost ? "" : "  TOO MUCH");
    return value <= atMost;
}

// What the windows keep is no more than the masks that they are to keep.
bool leavesEmptyMasksOnly()
{
    constexpr int Count = 1000;
    const auto once = messages();
    once(0);
    const auto grown = [](const std::function<void(QWidget *)> &use) {
        const std::unique_ptr<QWidget> window = shownWindow();
        use(window.get());
        settle();
        const auto begin = static_cast<double>(heap());
        for (int i = 0; i < Count; ++i) {
            use(window.get());
            settle();
        }
        return (static_cast<double>(heap()) - begin) / Count;
    };
    const double mask = grown([](QWidget *window) {
        QWidget content;
        VelaMask::createMask(&content, window, Qt::black);
        content.show();
        QApplication::processEvents();
    });
    const double message = grown([](QWidget *window) {
        answer<VelaMessageSheet>(window);
        showInfoMsg(QString(), QStringLiteral("text"), window);
    });
    std::printf("masks: one leaves %.0f bytes, a message in its window %.0f\n", mask, message);
    return verdict("a message, against its mask", message / mask, MaskAtMost);
}

bool soak(const Activity &activity, int times, size_t leak)
{
    measure(activity, 0, std::min(times / Slices, RowsOfMasks), 0); // what is made once is there from now on
    std::vector<Slice> slices;
    std::printf("%s, %d times\n  tenth   us each        heap, bytes  open files\n", activity.name, times);
    for (int i = 0; i < Slices; ++i) {
        slices.push_back(measure(activity, i * (times / Slices), times / Slices, leak));
        const Slice &last = slices.back();
        std::printf("  %5d %9.0f %18zu %11d\n", i + 1, last.microseconds, last.heap, last.files);
        std::fflush(stdout);
    }
    const Slice &second = slices.at(1);
    const Slice &middle = slices.at(Slices / 2 - 1);
    const Slice &last = slices.back();
    const double lost = (static_cast<double>(last.heap) - static_cast<double>(middle.heap)) / (times / 2.0);
    const bool isLean = verdict("bytes lost each time", lost, LostAtMost);
    const bool isFlat =
        verdict("time of the last tenth, against the second", last.microseconds / second.microseconds, LongerAtMost);
    const bool isClosed = verdict("files opened meanwhile", last.files - second.files, 0);
    return isLean && isFlat && isClosed;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QByteArray name = argc > 1 ? argv[1] : "";
    const int times = argc > 2 ? std::atoi(argv[2]) : 0;
    const size_t leak = argc > 3 ? std::strtoul(argv[3], nullptr, 10) : 0;
    const OwnDataFolder data;
    installReferenceTheme();
    if (name == "masks") {
        return leavesEmptyMasksOnly() ? EXIT_SUCCESS : TooMuch;
    }
    for (const Activity &activity : Activities) {
        if (name == activity.name && times >= Slices) {
            return soak(activity, times, leak) ? EXIT_SUCCESS : TooMuch;
        }
    }
    std::fprintf(stderr, "Usage: soak messages|inputs|paths|themes TIMES [LEAK], soak masks\n");
    return EXIT_FAILURE;
}
