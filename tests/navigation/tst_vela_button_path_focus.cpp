// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button-path.h"
#include "navigation/path-test.h"
#include "support/environment.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QtTest>

namespace {

// A bar between two others that take the focus.
class Neighbours : public PathWindow
{
public:
    explicit Neighbours(int width = WideBar) :
        PathWindow(width), before(new QLineEdit(this)), after(new QLineEdit(this))
    {
        before->move(0, bar->maximumHeight());
        after->move(width / 2, bar->maximumHeight());
        setTabOrder(before, menuButton());
        setTabOrder(menuButton(), after);
    }

    bool showAndWait()
    {
        show();
        return QTest::qWaitForWindowActive(this);
    }
    void tab() { QTest::keyClick(windowHandle(), Qt::Key_Tab); }
    void backtab() { QTest::keyClick(windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier); }

    QLineEdit *const before;
    QLineEdit *const after;
};

} // namespace

class VelaButtonPathFocusTest : public PathTest
{
    Q_OBJECT

private Q_SLOTS:
    void tabVisitsTheNamesAndLeavesAtTheEnds_data();
    void tabVisitsTheNamesAndLeavesAtTheEnds();
    void arrowsTakeNoFocus();
    void cursorKeysGoFromNameToName();
    void aNameThatTheKeyboardFindsIsInFullView_data() { addDirections(); }
    void aNameThatTheKeyboardFindsIsInFullView();
    void aNameThatIsTooLongShowsItsBeginning_data() { addDirections(); }
    void aNameThatIsTooLongShowsItsBeginning();
    void aPressMovesNoNameOutFromUnderTheMenu();
    void aClickThatRebuildsTheRowGivesNoNeighbourTheFocus();

private:
    void addDirections();
};

void VelaButtonPathFocusTest::tabVisitsTheNamesAndLeavesAtTheEnds_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("hasMenu");
    QTest::newRow("wide") << WideBar << false;
    QTest::newRow("narrow") << expectedPixels(60) << true;
}

void VelaButtonPathFocusTest::tabVisitsTheNamesAndLeavesAtTheEnds()
{
    QFETCH(int, width);
    QFETCH(bool, hasMenu);
    Shown<Neighbours> window(width);
    for (const QString &path : {LongPath, QStringLiteral("alone and long enough for a menu"), LongPath}) {
        window.refresh(path); // what is made last is visited in its place all the same
        QCOMPARE(window.menuButton()->isVisible(), hasMenu);
        QVector<QWidget *> order {window.before};
        if (hasMenu) {
            order.append(window.menuButton());
        }
        for (int i = 0; i < namesIn(path).size(); ++i) {
            order.append(window.nameButton(i));
        }
        order.append(window.after);

        window.before->setFocus();
        for (int i = 1; i < order.size(); ++i) {
            window.tab();
            QCOMPARE(QApplication::focusWidget(), order.at(i));
        }
        for (int i = order.size() - 2; i >= 0; --i) {
            window.backtab();
            QCOMPARE(QApplication::focusWidget(), order.at(i));
        }
    }
}

void VelaButtonPathFocusTest::arrowsTakeNoFocus()
{
    Shown<Neighbours> window;
    window.refresh(LongPath);
    window.before->setFocus();
    for (int column = 1; column < window.bar->columnCount(); column += 2) {
        QCOMPARE(window.button(column)->focusPolicy(), Qt::NoFocus);
        window.click(window.button(column));
        QVERIFY(window.before->hasFocus());
    }
}

void VelaButtonPathFocusTest::cursorKeysGoFromNameToName()
{
    Shown<Neighbours> window;
    window.refresh(LongPath);
    window.nameButton(0)->setFocus();
    for (int i : {1, 2, 3, 3}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Right);
        QVERIFY(window.nameButton(i)->hasFocus());
    }
    for (int i : {2, 1, 0, 0}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Left);
        QVERIFY(window.nameButton(i)->hasFocus());
    }
}

void VelaButtonPathFocusTest::addDirections()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void VelaButtonPathFocusTest::aNameThatTheKeyboardFindsIsInFullView()
{
    QFETCH(Qt::LayoutDirection, direction);
    Neighbours window(expectedPixels(150));
    window.setLayoutDirection(direction);
    QVERIFY(window.showAndWait());
    window.refresh(LongPath);
    QVERIFY(window.menuButton()->isVisible());
    const auto isInFullView = [&window](const QWidget *name) {
        const QRect place(name->mapTo(window.bar, QPoint()), name->size());
        const bool isWithinTheBar = place.left() >= 0 && place.right() < window.bar->width();
        return isWithinTheBar && !place.intersects(window.menuButton()->geometry());
    };
    // The end of the row that lies under the menu's button cannot be moved any further.
    const bool isMirrored = direction == Qt::RightToLeft;
    const auto isAtTheEnd = [&](int i) {
        return isMirrored ? i == 3 && window.scrollBar()->value() == window.scrollBar()->maximum()
                          : i == 0 && window.scrollBar()->value() == 0;
    };

    for (int start : {0, window.scrollBar()->maximum() / 2, window.scrollBar()->maximum()}) {
        window.menuButton()->setFocus();
        window.scrollBar()->setValue(start);
        for (int i = 0; i < 4; ++i) {
            window.tab();
            QVERIFY(window.nameButton(i)->hasFocus());
            QVERIFY2(isInFullView(window.nameButton(i)) || isAtTheEnd(i), qPrintable(QString::number(i)));
        }
        window.scrollBar()->setValue(start);
        for (int i = 2; i >= 0; --i) {
            window.backtab();
            QVERIFY2(isInFullView(window.nameButton(i)) || isAtTheEnd(i), qPrintable(QString::number(i)));
        }
        window.after->setFocus();
        window.scrollBar()->setValue(start);
        window.nameButton(1)->setFocus(Qt::ShortcutFocusReason); // the button of the current folder
        QVERIFY(isInFullView(window.nameButton(1)));
    }
}

void VelaButtonPathFocusTest::aNameThatIsTooLongShowsItsBeginning()
{
    QFETCH(Qt::LayoutDirection, direction);
    Neighbours window(expectedPixels(150));
    window.setLayoutDirection(direction);
    QVERIFY(window.showAndWait());
    window.refresh(QStringLiteral("first/") + QString(200, QLatin1Char('n')) + QStringLiteral("/third"));
    for (int from : {0, 2}) {
        window.nameButton(from)->setFocus();
        from == 0 ? window.tab() : window.backtab();
        QVERIFY(window.nameButton(1)->hasFocus());
        const QRect place(window.nameButton(1)->mapTo(window.bar, QPoint()), window.nameButton(1)->size());
        if (direction == Qt::LeftToRight) {
            QCOMPARE(place.left(), window.menuButton()->geometry().right() + 1);
        } else {
            QCOMPARE(place.right(), window.bar->viewport()->geometry().right());
        }
    }
}

void VelaButtonPathFocusTest::aPressMovesNoNameOutFromUnderTheMenu()
{
    Shown<Neighbours> window(expectedPixels(150));
    window.refresh(LongPath);
    const int start = window.bar->horizontalHeader()->sectionPosition(2);
    window.scrollBar()->setValue(start);
    const QPushButton *name = window.nameButton(1);
    QCOMPARE(name->x(), 0);
    const QPoint visible(window.menuButton()->geometry().right() + 3, window.bar->height() / 2);
    QCOMPARE(window.childAt(window.bar->mapTo(&window, visible)), name);
    window.click(window.bar->mapTo(&window, visible));
    QVERIFY(name->hasFocus());
    QCOMPARE(window.scrollBar()->value(), start);
    QCOMPARE(window.chosen.count(), 1);
}

void VelaButtonPathFocusTest::aClickThatRebuildsTheRowGivesNoNeighbourTheFocus()
{
    Shown<Neighbours> window;
    connect(window.bar, &VelaButtonPath::sigUpdatePath, window.bar, &VelaButtonPath::slotUpdatePath);
    for (int i = 0; i < 4; ++i) {
        window.refresh(LongPath);
        window.nameButton(i)->setFocus();
        QTest::keyClick(window.windowHandle(), Qt::Key_Space);
        QCOMPARE(window.chosen.count(), i + 1);
        QVERIFY(!QApplication::focusWidget());
    }
}

QTEST_MAIN(VelaButtonPathFocusTest)
#include "tst_vela_button_path_focus.moc"
