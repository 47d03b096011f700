// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/panels.h"
#include "support/resources.h"
#include "utils/component-strings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMessageBox>
#include <QTimer>

#include <malloc.h>

#include <cstdio>

namespace {

constexpr int DefaultCalls = 1000;
constexpr int Blocks = 4; // the costs of the last against those of the first show whether they grow
const QString Text = QStringLiteral("The three files that were selected have been deleted.");

struct Cost
{
    double milliseconds; // milliseconds of a call
    double bytes; // bytes that a call leaves allocated
};

template<typename Call>
Cost measure(int calls, Call call)
{
    const std::size_t before = mallinfo2().uordblks;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < calls; ++i) {
        call();
    }
    const double milliseconds = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto kept = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before);
    return {milliseconds / calls, kept / calls};
}

// Answers whatever waits in window, or the box that is the active window, as soon as it waits.
void answerSoon(QWidget *window)
{
    QTimer::singleShot(0, qApp, [window] {
        QWidget *asked = QApplication::activeModalWidget() ? QApplication::activeModalWidget() : window;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(asked, &press);
    });
}

void showBareBox(QWidget *window)
{
    QMessageBox box(QMessageBox::Information, QString(), Text, QMessageBox::Ok, window);
    box.exec();
}

} // namespace

// Shows a thousand messages, or as many as the argument says, in one window that is never closed.
int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const int calls = argc > 1 ? qMax(Blocks, QByteArray(argv[1]).toInt()) : DefaultCalls;
    const Resources resources;
    resources.writeImage(QStringLiteral("icon_information"), 64);
    resources.writeCatalogue({QStringLiteral("icon_information")});
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize(
        {resources.writeSheet(QStringLiteral("sheets.qss"),
                              headed("component.apply_button", buttonSheet("QPushButton"))
                                  + headed("component.message_sheet_other", "QLabel { color: #17202b }")
                                  + headed("component.message_sheet_text", "QLabel { font-size: 14px }"))});
    ComponentStrings::getInstance()->installStrings({{QStringLiteral("ok"), QStringLiteral("OK")}});

    QWidget window;
    window.resize(800, 600);
    window.show();
    QApplication::processEvents();
    const auto sheet = [&window] {
        answerSoon(&window);
        showInfoMsg(QString(), Text, &window);
    };
    const auto box = [&window] {
        answerSoon(&window);
        showBareBox(&window);
    };
    measure(2, box); // makes what is made once
    measure(2, sheet);

    std::printf("| calls | showInfoMsg() | kept | bare QMessageBox | kept |\n|---|--:|--:|--:|--:|\n");
    for (int block = 0; block < Blocks; ++block) {
        const int first = block * calls / Blocks;
        const int count = (block + 1) * calls / Blocks - first;
        const Cost ours = measure(count, sheet);
        const Cost floor = measure(count, box);
        std::printf("| %d to %d | %.2f ms | %.0f B | %.2f ms | %.0f B |\n", first + 1, first + count, ours.milliseconds,
                    ours.bytes, floor.milliseconds, floor.bytes);
    }
    std::printf("\n%d masks in the window\n", static_cast<int>(window.findChildren<VelaMask *>().size()));
    return 0;
}
