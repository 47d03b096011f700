// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/environment.h"
#include "support/resource-folder.h"
#include "support/test-window.h"

#include <VelaButtonPath>
#include <VelaCalanderView>
#include <VelaIconButton>
#include <VelaPagingBar>

#include <QPushButton>
#include <QToolButton>
#include <QtTest>

#include <algorithm>
#include <functional>

namespace {

// What is painted on the ground of the picture's first pixel, without the ground around it.
QImage ink(QWidget *widget)
{
    QWidget *window = widget->window();
    const QRect place(widget->mapTo(window, QPoint()), widget->size());
    const QImage picture = window->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    QRegion painted;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0)) {
                painted += QRect(x, y, 1, 1);
            }
        }
    }
    return picture.copy(painted.boundingRect());
}

// Widgets with images that point somewhere.
struct Directed
{
    const char *name;
    std::function<QWidget *(QWidget *window)> create;
    std::function<QList<QWidget *>(const QWidget *widget)> arrows;
};

// One that is long enough for all its buttons.
VelaPagingBar *createBar(QWidget *window)
{
    auto *bar = new VelaPagingBar(new VelaPagingModel(10, window), window);
    bar->resize(window->width(), bar->sizeHint().height());
    return bar;
}

QList<QWidget *> pagingArrows(const QWidget *bar)
{
    QList<QWidget *> arrows;
    const auto buttons = bar->findChildren<VelaIconButton *>();
    for (VelaIconButton *button : buttons) {
        if (!button->toolTip().isEmpty()) {
            arrows.append(button);
        }
    }
    return arrows;
}

const Directed DirectedWidgets[] = {
    {"paging bar",
     [](QWidget *window) {
         VelaPagingBar *bar = createBar(window);
         bar->setItemCount(100);
         bar->setPage(5);
         return bar;
     },
     pagingArrows},
    {"paging bar whose buttons are disabled", createBar,
     [](const QWidget *bar) {
         const QList<QWidget *> arrows = pagingArrows(bar);
         for (QWidget *arrow : arrows) {
             arrow->setEnabled(false);
         }
         return arrows;
     }},
    {"path",
     [](QWidget *window) {
         auto *path = new VelaButtonPath(window);
         path->resize(expectedPixels(400), path->height());
         path->refresh(QStringLiteral("one/two"));
         return path;
     },
     [](const QWidget *path) { return QList<QWidget *> {path->findChildren<QPushButton *>().at(1)}; }},
    {"calendar", [](QWidget *window) { return new VelaCalanderView(window); },
     [](const QWidget *calendar) {
         return QList<QWidget *> {calendar->findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth")),
                                  calendar->findChild<QToolButton *>(QStringLiteral("qt_calendar_nextmonth"))};
     }},
};

QList<QImage> pictures(const Directed &directed, const QWidget *widget)
{
    QList<QImage> pictures;
    const QList<QWidget *> arrows = directed.arrows(widget);
    for (QWidget *arrow : arrows) {
        pictures.append(ink(arrow));
    }
    return pictures;
}

// But for what rounding does to smooth edges.
bool isAlike(const QImage &left, const QImage &right)
{
    constexpr int Rounding = 4;
    if (left.size() != right.size()) {
        return false;
    }
    const auto bytes = static_cast<std::size_t>(left.sizeInBytes());
    return std::equal(left.constBits(), left.constBits() + bytes, right.constBits(),
                      [](uchar one, uchar other) { return qAbs(one - other) <= Rounding; });
}

bool areAlike(const QList<QImage> &left, const QList<QImage> &right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), isAlike);
}

QList<QImage> turned(QList<QImage> pictures)
{
    for (QImage &picture : pictures) {
        picture = picture.mirrored(true, false);
    }
    return pictures;
}

} // namespace

class MirroredTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void arrowsPointAlongTheDirectionOfReading_data();
    void arrowsPointAlongTheDirectionOfReading();
    void anArrowOfTheApplicationsOwnStaysAsItIs();
};

void MirroredTest::arrowsPointAlongTheDirectionOfReading_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(DirectedWidgets)); ++i) {
        QTest::newRow(DirectedWidgets[i].name) << i;
    }
}

void MirroredTest::arrowsPointAlongTheDirectionOfReading()
{
    QFETCH(int, index);
    const Directed &directed = DirectedWidgets[index];
    TestWindow window;
    window.resize(expectedPixels(600), expectedPixels(300));
    QWidget *changed = directed.create(&window);
    window.setAttribute(Qt::WA_DontShowOnScreen); // where no pointer is
    window.show();
    const QList<QImage> asDrawn = pictures(directed, changed);
    for (const QImage &picture : asDrawn) {
        QVERIFY(picture.width() > 1);
        QVERIFY(!isAlike(picture, picture.mirrored(true, false))); // or nothing is seen of its direction
    }
    window.setLayoutDirection(Qt::RightToLeft);
    QVERIFY(areAlike(pictures(directed, changed), turned(asDrawn)));
    window.setLayoutDirection(Qt::LeftToRight);
    QVERIFY(areAlike(pictures(directed, changed), asDrawn));

    window.setLayoutDirection(Qt::RightToLeft);
    delete changed;
    QWidget *made = directed.create(&window);
    made->show();
    QVERIFY(areAlike(pictures(directed, made), turned(asDrawn)));
}

void MirroredTest::anArrowOfTheApplicationsOwnStaysAsItIs()
{
    VelaCalanderView view;
    auto *arrow = view.findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth"));
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    const QIcon icon(pixmap);
    arrow->setIcon(icon);
    view.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(arrow->icon().cacheKey(), icon.cacheKey());
}

QTEST_MAIN(MirroredTest)
#include "tst_mirrored.moc"
