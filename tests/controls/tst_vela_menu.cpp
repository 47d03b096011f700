// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-menu.h"
#include "support/controls.h"

#include <QScreen>
#include <QtTest>

namespace {

constexpr int Width = 200;
constexpr int Height = 120;
constexpr int Outside = 30;

QRect area()
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

// Where a menu goes that begins at start, along one direction of the area.
int expectedStart(int start, int size, int first, int last)
{
    if (first > start) {
        return 0;
    }
    if (last < start + size) {
        return last - size; // one pixel short of the last one
    }
    return start;
}

} // namespace

// A menu that is shown without being opened, so that nothing but showing it decides where it goes.
class ShownMenu : public VelaMenu
{
public:
    ShownMenu()
    {
        setAttribute(Qt::WA_DontShowOnScreen); // keeps the window manager out of it
        setFixedSize(Width, Height);
    }

    QPoint placeWhenShownAt(const QPoint &position)
    {
        hide();
        move(position);
        show();
        return pos();
    }
};

class VelaMenuTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aMenuOverAnEdgeIsMovedBack_data();
    void aMenuOverAnEdgeIsMovedBack();
    void atTheRightItStaysAPixelShort();
    void atTheLeftItJumpsToZero();
    void aMenuThatFitsIsNotMoved();
    void itIsPlacedAnewAtEachShow();
    void itsSizeWhenShownCounts();
    void aMenuLargerThanTheScreenAlternates();
    void anOpenedMenuIsWithinItsScreen_data();
    void anOpenedMenuIsWithinItsScreen();
    void aMenuInAMenuIsPlacedToo();
    void itReturnsTheChosenAction();
};

void VelaMenuTest::aMenuOverAnEdgeIsMovedBack_data()
{
    QTest::addColumn<QPoint>("position");
    const int left = area().left();
    const int top = area().top();
    const int right = area().right();
    const int bottom = area().bottom();
    const int xs[] = {
        left - Outside,          left - 1,       left, left + 100, right - Width - 1, right - Width, right - Width + 1,
        right - Width + Outside, right + Outside};
    const int ys[] = {top - Outside,
                      top - 1,
                      top,
                      top + 100,
                      bottom - Height - 1,
                      bottom - Height,
                      bottom - Height + 1,
                      bottom - Height + Outside,
                      bottom + Outside};
    for (int x : xs) {
        for (int y : ys) {
            QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(x).arg(y))) << QPoint(x, y);
        }
    }
}

void VelaMenuTest::aMenuOverAnEdgeIsMovedBack()
{
    QFETCH(QPoint, position);
    ShownMenu menu;
    const QPoint expected(expectedStart(position.x(), Width, area().left(), area().right()),
                          expectedStart(position.y(), Height, area().top(), area().bottom()));
    QCOMPARE(menu.placeWhenShownAt(position), expected);
}

void VelaMenuTest::atTheRightItStaysAPixelShort()
{
    ShownMenu menu;
    const QPoint place = menu.placeWhenShownAt(QPoint(area().x() + area().width() + Outside, area().top() + 10));
    QCOMPARE(place.x(), area().right() - Width);
    QCOMPARE(menu.geometry().right(), area().right() - 1);
    if (area().x() == 0 && area().width() == 1920) {
        QCOMPARE(place.x(), 1719);
    }
}

void VelaMenuTest::atTheLeftItJumpsToZero()
{
    ShownMenu menu;
    QCOMPARE(menu.placeWhenShownAt(QPoint(area().left() - 500, area().top() - 500)), QPoint(0, 0));
}

void VelaMenuTest::aMenuThatFitsIsNotMoved()
{
    ShownMenu menu;
    const QPoint last(area().right() - Width, area().bottom() - Height);
    for (const QPoint &position : {area().topLeft() + QPoint(40, 50), area().topLeft(), last}) {
        QCOMPARE(menu.placeWhenShownAt(position), position);
        menu.hide();
        EventCounter moves(&menu, QEvent::Move);
        menu.show();
        QCOMPARE(moves.take(), 0);
    }
}

void VelaMenuTest::itIsPlacedAnewAtEachShow()
{
    ShownMenu menu;
    const QPoint inside = area().topLeft() + QPoint(40, 50);
    QCOMPARE(menu.placeWhenShownAt(area().bottomRight()), area().bottomRight() - QPoint(Width, Height));
    QCOMPARE(menu.placeWhenShownAt(inside), inside);
    QCOMPARE(menu.placeWhenShownAt(area().bottomRight()), area().bottomRight() - QPoint(Width, Height));
}

void VelaMenuTest::itsSizeWhenShownCounts()
{
    ShownMenu menu;
    const QPoint position(area().right() - Width, area().bottom() - Height);
    QCOMPARE(menu.placeWhenShownAt(position), position);
    menu.setFixedSize(Width + 7, Height + 5);
    QCOMPARE(menu.placeWhenShownAt(position), position - QPoint(7, 5));
    menu.setFixedSize(Width - 7, Height - 5);
    QCOMPARE(menu.placeWhenShownAt(position), position);
}

// A menu moved back from the far edge stands out at the near one, where it jumps to 0 the next time.
void VelaMenuTest::aMenuLargerThanTheScreenAlternates()
{
    ShownMenu menu;
    menu.setFixedSize(area().size() + QSize(100, 50));
    const QPoint back(area().right() - menu.width(), area().bottom() - menu.height());
    QVERIFY(back.x() < area().left() && back.y() < area().top());
    QCOMPARE(menu.placeWhenShownAt(area().topLeft()), back);
    QCOMPARE(menu.placeWhenShownAt(back), QPoint(0, 0));
    QCOMPARE(menu.placeWhenShownAt(QPoint(0, 0)), back);
}

void VelaMenuTest::anOpenedMenuIsWithinItsScreen_data()
{
    QTest::addColumn<QPoint>("corner");
    QTest::newRow("top left") << area().topLeft();
    QTest::newRow("top right") << area().topRight();
    QTest::newRow("bottom left") << area().bottomLeft();
    QTest::newRow("bottom right") << area().bottomRight();
}

void VelaMenuTest::anOpenedMenuIsWithinItsScreen()
{
    QFETCH(QPoint, corner);
    VelaMenu menu;
    menu.addAction(QStringLiteral("Item"));
    menu.popup(corner);
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QVERIFY(area().contains(menu.geometry()));
    QVERIFY(menu.geometry().right() < area().right());
    QVERIFY(menu.geometry().bottom() < area().bottom());
}

void VelaMenuTest::aMenuInAMenuIsPlacedToo()
{
    VelaMenu menu;
    auto *inner = new VelaMenu(&menu);
    inner->setTitle(QStringLiteral("More"));
    inner->addAction(QStringLiteral("Item"));
    menu.addMenu(inner);
    menu.popup(area().bottomRight());
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Right);
    QTRY_VERIFY(inner->isVisible());
    QVERIFY(area().contains(inner->geometry()));
    QVERIFY(inner->geometry().right() < area().right());
    QVERIFY(inner->geometry().bottom() < area().bottom());
}

void VelaMenuTest::itReturnsTheChosenAction()
{
    VelaMenu menu;
    menu.addAction(QStringLiteral("First"));
    const QAction *second = menu.addAction(QStringLiteral("Second"));
    const QSignalSpy triggered(second, &QAction::triggered);
    const MenuUser user(&menu, [&menu] {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    QCOMPARE(menu.exec(area().center()), second);
    QCOMPARE(triggered.count(), 1);
}

QTEST_MAIN(VelaMenuTest)
#include "tst_vela_menu.moc"
