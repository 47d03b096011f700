// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-msg-box.h"
#include "component/vela-msg-sheet.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/comparison.h"
#include "support/panels.h"
#include "support/resources.h"
#include "utils/component-strings.h"

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace {

constexpr double MessageTarget = 1.0;
constexpr double PaintTarget = 1.05;
constexpr int ShadowWidth = 22;
constexpr QSize SheetSize(540, 168); // size that the sheet with the text has

const char *const ShadowImages[] = {"bg_tutorial_lt", "bg_tutorial_rt", "bg_tutorial_lb", "bg_tutorial_rb",
                                    "bg_tutorial_l",  "bg_tutorial_r",  "bg_tutorial_t",  "bg_tutorial_b"};
const QString Text = QStringLiteral("Delete the three files that are selected? They cannot be brought back.");

// Makes, shows, paints and closes a message over a window that is there.
template<typename ShowMessage>
void showMessages(benchmark::State &state, ShowMessage showMessage)
{
    QWidget window;
    window.resize(800, 600);
    window.show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        showMessage(&window);

        state.PauseTiming();
        qDeleteAll(window.findChildren<VelaMask *>()); // each message leaves its mask behind
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void showSheet(QWidget *window)
{
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, Text, window);
    VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
    const PaintWatcher watcher(sheet.button(QMessageBox::Ok));
    sheet.showSheet();
    watcher.waitForPaint();
    sheet.done(QMessageBox::Ok);
}

// The same text, formatted alike, and the same style sheets.
void setUp(QMessageBox &box)
{
    box.setStyleSheet(getStyleSheet("component.message_sheet_other", false));
    box.setIconPixmap(getGlobalImage("icon_question", ImageManager::IMAGE_NORMAL));
    box.setText(QStringLiteral("<p style='line-height: 24px;'>%1</p>").arg(Text));
    box.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"))
        ->setStyleSheet(getStyleSheet("component.message_sheet_text", false));
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Discard);
    box.button(QMessageBox::Ok)->setStyleSheet(getStyleSheet("component.apply_button", false));
    box.button(QMessageBox::Discard)->setStyleSheet(getStyleSheet("component.cancel_button", false));
}

void showBox(QWidget *window)
{
    QMessageBox box(window);
    setUp(box);
    const PaintWatcher watcher(box.button(QMessageBox::Ok));
    box.show();
    watcher.waitForPaint();
    box.done(QMessageBox::Ok);
}

// The picture of an empty sheet by the shortest code.
class PaintedFloor : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPixmap images[8];
        for (int i = 0; i < 8; ++i) {
            images[i] = getGlobalImage(ShadowImages[i], ImageManager::IMAGE_NORMAL);
        }
        const int s = ShadowWidth;
        const int w = width();
        const int h = height();
        QPainter painter(this);
        painter.drawPixmap(0, 0, s, s, images[0]);
        painter.drawPixmap(w - s, 0, s, s, images[1]);
        painter.drawPixmap(0, h - s, s, s, images[2]);
        painter.drawPixmap(w - s, h - s, s, s, images[3]);
        const auto drawEdge = [&](const QRect &place, const QPixmap &image) {
            painter.drawPixmap(place, image.scaled(place.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
        };
        drawEdge(QRect(0, s, s, h - 2 * s), images[4]);
        drawEdge(QRect(w - s, s, s, h - 2 * s), images[5]);
        drawEdge(QRect(s, 0, w - 2 * s, s), images[6]);
        drawEdge(QRect(s, h - s, w - 2 * s, s), images[7]);
        painter.fillRect(s, s, w - 2 * s, h - 2 * s, Qt::white);
    }
};

// A box that dims its window and casts a shadow, as a sheet does.
void showBoxInWindow(QWidget *window)
{
    QWidget dimmed(window);
    dimmed.resize(window->size());
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0, 0, 0, 20));
    dimmed.setPalette(palette);
    dimmed.setAutoFillBackground(true);
    auto *body = new PaintedFloor(&dimmed);
    body->setFixedSize(SheetSize);
    auto *box = new QMessageBox(body);
    box->setWindowFlags(Qt::Widget);
    setUp(*box);
    auto *inner = new QVBoxLayout(body);
    inner->setContentsMargins(ShadowWidth, ShadowWidth, ShadowWidth, ShadowWidth);
    inner->addWidget(box, 0, Qt::AlignCenter);
    auto *outer = new QVBoxLayout(&dimmed);
    outer->addWidget(body, 0, Qt::AlignCenter);
    const PaintWatcher watcher(box->button(QMessageBox::Ok));
    dimmed.show();
    watcher.waitForPaint();
    dimmed.hide();
}

// Answers what waits for it once a button of it has been painted.
class Answerer : public QObject
{
public:
    explicit Answerer(std::function<void()> answer) : m_answer(std::move(answer)) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && qobject_cast<QPushButton *>(watched)) {
            qApp->removeEventFilter(this);
            QTimer::singleShot(0, this, m_answer);
        }
        return false;
    }

private:
    const std::function<void()> m_answer;
};

void askInSheet(QWidget *window)
{
    const Answerer answerer([window] { window->findChild<VelaMessageSheet *>()->done(QMessageBox::Ok); });
    showConfirmMsg(QString(), Text, window);
}

void askInBox(QWidget *window)
{
    QMessageBox box(window);
    setUp(box);
    const Answerer answerer([&box] { box.done(QMessageBox::Ok); });
    box.exec();
}

class EmptySheet : public VelaSheet
{
public:
    void showSheet() override { show(); }
};

// The picture of an empty sheet, with the stretched images kept from paint to paint.
class KeptFloor : public QWidget
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        const int s = ShadowWidth;
        const int w = width();
        const int h = height();
        const QRect places[] = {{0, 0, s, s},         {w - s, 0, s, s},        {0, h - s, s, s},
                                {w - s, h - s, s, s}, {0, s, s, h - 2 * s},    {w - s, s, s, h - 2 * s},
                                {s, 0, w - 2 * s, s}, {s, h - s, w - 2 * s, s}};
        QPainter painter(this);
        for (int i = 0; i < 8; ++i) {
            if (m_images[i].size() != places[i].size()) {
                m_images[i] = getGlobalImage(ShadowImages[i], ImageManager::IMAGE_NORMAL).scaled(places[i].size());
            }
            painter.drawPixmap(places[i].topLeft(), m_images[i]);
        }
        painter.fillRect(s, s, w - 2 * s, h - 2 * s, Qt::white);
    }

private:
    QPixmap m_images[8];
};

void repaint(benchmark::State &state, QWidget *widget, const QSize &size)
{
    widget->resize(size);
    widget->show();
    QApplication::processEvents();
    for (auto iteration : state) {
        Q_UNUSED(iteration)
        widget->repaint();
    }
}

template<typename Floor>
void compareRepaint(const char *what, const QSize &size)
{
    compare(
        what, PaintTarget,
        [size](benchmark::State &state) {
            EmptySheet sheet;
            repaint(state, &sheet, size);
        },
        [size](benchmark::State &state) {
            Floor floor;
            repaint(state, &floor, size);
        });
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const Resources resources;
    QStringList images {QStringLiteral("icon_question")};
    for (const char *image : ShadowImages) {
        images.append(QLatin1String(image));
    }
    for (const QString &image : qAsConst(images)) {
        resources.writeImage(image, 4 * ShadowWidth);
    }
    resources.writeCatalogue(images);
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
    StyleManager::getInstance()->initialize(
        {resources.writeSheet(QStringLiteral("sheets.qss"),
                              headed("component.apply_button", buttonSheet("QPushButton"))
                                  + headed("component.cancel_button", buttonSheet("QPushButton"))
                                  + headed("component.message_sheet_other", "QLabel { color: #17202b }")
                                  + headed("component.message_sheet_text", "QLabel { font-size: 14px }"))});
    ComponentStrings::getInstance()->installStrings(
        {{QStringLiteral("ok"), QStringLiteral("OK")}, {QStringLiteral("cancel"), QStringLiteral("Cancel")}});

    compare(
        "Message sheet in its mask", MessageTarget, [](benchmark::State &state) { showMessages(state, showSheet); },
        [](benchmark::State &state) { showMessages(state, showBox); });
    compare(
        "Message sheet in its mask, floor dims and casts a shadow", MessageTarget,
        [](benchmark::State &state) { showMessages(state, showSheet); },
        [](benchmark::State &state) { showMessages(state, showBoxInWindow); });
    compare(
        "Message by its shortcut", MessageTarget, [](benchmark::State &state) { showMessages(state, askInSheet); },
        [](benchmark::State &state) { showMessages(state, askInBox); });
    compareRepaint<PaintedFloor>("Sheet, repaint at 1280 by 800", QSize(1280, 800));
    compareRepaint<KeptFloor>("Sheet, repaint at 1280 by 800, floor keeps its images", QSize(1280, 800));
    compareRepaint<PaintedFloor>("Sheet, repaint at 3840 by 2160", QSize(3840, 2160));
    return runComparisons(argc, argv);
}
