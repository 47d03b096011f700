// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "component/vela-filter-bar.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/resource-folder.h"

#include <QMenu>
#include <QtTest>

namespace {

const QColor Idle(Qt::red);
const QColor Padded(Qt::green);

} // namespace

class VelaFilterBarTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void itTellsItsMenu();
    void theButtonLiesOverTheFieldsLeftEnd();
    void theButtonTakesItsOwnSheetAndNotThatOfIconButtons();
    void theButtonTakesNoFocusAndHasAnArrowCursor();
    void theFieldTakesBothSheetsInTheirOrder();
    void theHeightIsFixed();
    void returnReportsTheWholeText_data();
    void returnReportsTheWholeText();
    void returnTwiceReportsTwice();
    void typingNeverReports();
    void theSlotReportsTheText();
    void downWithoutAMenuDoesNothing();
    void downWithAMenuThatIsGoneDoesNothing();
    void downOpensTheMenu_data();
    void downOpensTheMenu();
    void otherKeysReachTheField();
    void theButtonStaysInPlaceWhenTheFieldIsResized();
    void aPressOnTheButtonOpensTheMenuAndLeavesTheFocus();
    void theMenuIsNotOwned();

private:
    ResourceFolder m_folder;
};

void VelaFilterBarTest::initTestCase()
{
    for (const char *state : {"", "_hover", "_click", "_disable"}) {
        m_folder.writeImage(QLatin1String("bt_search_dropdown") + QLatin1String(state), QSize(64, 64), Idle);
    }
    m_folder.writeCatalogue({QStringLiteral("bt_search_dropdown")});
    installSheets(m_folder,
                  "== component.icon_button ==\nQToolButton { background: cyan; border: none }\n"
                  "== component.filter_search_button ==\nQToolButton { border: none; background: yellow }\n"
                  "QToolButton::menu-indicator { image: none }\n"
                  "== component.lineedit ==\nQLineEdit { padding: 3px; background: red; border: none }\n"
                  "== component.filter_bar_padding ==\nQLineEdit { padding-left: 40px; background: lime }\n");
}

void VelaFilterBarTest::itTellsItsMenu()
{
    VelaFilterBar bar;
    QCOMPARE(bar.menu(), nullptr);
    QMenu menu;
    bar.setMenu(&menu);
    QCOMPARE(bar.menu(), &menu);
    bar.setMenu(nullptr);
    QCOMPARE(bar.menu(), nullptr);
}

void VelaFilterBarTest::theButtonLiesOverTheFieldsLeftEnd()
{
    const VelaFilterBar bar;
    const auto *button = bar.findChild<VelaIconButton *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(button);
    QCOMPARE(button->pos(), QPoint(expectedPixels(4), expectedPixels(2)));
    QCOMPARE(button->minimumSize(), QSize(expectedPixels(34), expectedPixels(24)));
    QCOMPARE(button->maximumSize(), QSize(expectedPixels(34), expectedPixels(24)));
    QVERIFY(!bar.layout());
    QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
}

void VelaFilterBarTest::theButtonTakesItsOwnSheetAndNotThatOfIconButtons()
{
    auto *bar = new VelaFilterBar;
    Shown<ControlWindow> window(bar);
    auto *button = bar->findChild<VelaIconButton *>();
    QVERIFY(button->styleSheet().contains(QLatin1String("yellow")));
    QVERIFY(!button->styleSheet().contains(QLatin1String("cyan")));
    QCOMPARE(paintedColor(button, QPoint(1, 1)), QColor(Qt::yellow));
    QCOMPARE(paintedColor(button), Idle);
}

void VelaFilterBarTest::theButtonTakesNoFocusAndHasAnArrowCursor()
{
    const VelaFilterBar bar;
    const auto *button = bar.findChild<VelaIconButton *>();
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QCOMPARE(button->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(bar.cursor().shape(), Qt::IBeamCursor);
}

void VelaFilterBarTest::theFieldTakesBothSheetsInTheirOrder()
{
    auto *bar = new VelaFilterBar;
    QCOMPARE(bar->styleSheet(),
             QStringLiteral("\nQLineEdit { padding: %1px; background: red; border: none }"
                            "\nQLineEdit { padding-left: %2px; background: lime }")
                 .arg(expectedPixels(3))
                 .arg(expectedPixels(40)));
    Shown<ControlWindow> window(bar);
    QCOMPARE(paintedColor(bar, QPoint(bar->width() - 2, 2)), Padded); // the second sheet wins
}

void VelaFilterBarTest::theHeightIsFixed()
{
    const VelaFilterBar bar;
    QCOMPARE(bar.minimumHeight(), expectedPixels(28));
    QCOMPARE(bar.maximumHeight(), expectedPixels(28));
    QVERIFY(!bar.testAttribute(Qt::WA_MacShowFocusRect));
}

void VelaFilterBarTest::returnReportsTheWholeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("word") << QStringLiteral("holiday");
    QTest::newRow("empty") << QString();
    QTest::newRow("padded") << QStringLiteral("  a b  ");
}

void VelaFilterBarTest::returnReportsTheWholeText()
{
    QFETCH(QString, text);
    auto *bar = new VelaFilterBar;
    Shown<ControlWindow> window(bar);
    const QSignalSpy reported(bar, &VelaFilterBar::sigKeywordChanged);
    bar->setFocus();
    window.type(text);
    window.key(Qt::Key_Return);
    QCOMPARE(reported.count(), 1);
    QCOMPARE(reported.at(0).at(0).toString(), text);
}

void VelaFilterBarTest::returnTwiceReportsTwice()
{
    auto *bar = new VelaFilterBar;
    Shown<ControlWindow> window(bar);
    const QSignalSpy reported(bar, &VelaFilterBar::sigKeywordChanged);
    bar->setFocus();
    window.type(QStringLiteral("a"));
    window.key(Qt::Key_Return);
    window.key(Qt::Key_Enter);
    QCOMPARE(reported.count(), 2);
    QCOMPARE(reported.at(1).at(0).toString(), QStringLiteral("a"));
}

void VelaFilterBarTest::typingNeverReports()
{
    auto *bar = new VelaFilterBar;
    Shown<ControlWindow> window(bar);
    const QSignalSpy reported(bar, &VelaFilterBar::sigKeywordChanged);
    bar->setFocus();
    window.type(QStringLiteral("abc"));
    window.key(Qt::Key_Backspace);
    bar->setText(QStringLiteral("set"));
    window.neighbour->setFocus();
    QCOMPARE(reported.count(), 0);
}

void VelaFilterBarTest::theSlotReportsTheText()
{
    VelaFilterBar bar;
    bar.setText(QStringLiteral("set"));
    const QSignalSpy reported(&bar, &VelaFilterBar::sigKeywordChanged);
    bar.slotKeywordChange();
    QCOMPARE(reported.count(), 1);
    QCOMPARE(reported.at(0).at(0).toString(), QStringLiteral("set"));
}

void VelaFilterBarTest::downWithoutAMenuDoesNothing()
{
    auto *bar = new VelaFilterBar;
    Shown<ControlWindow> window(bar);
    bar->setText(QStringLiteral("abc"));
    bar->setFocus();
    bar->setCursorPosition(1);
    EventCounter passedOn(&window, QEvent::KeyPress);
    window.key(Qt::Key_Down);
    QCOMPARE(bar->cursorPosition(), 1);
    QVERIFY(bar->hasFocus());
    QCOMPARE(passedOn.take(), 0); // the bar has taken it
    window.key(Qt::Key_Up);
    QCOMPARE(passedOn.take(), 1); // a field passes it on
}

void VelaFilterBarTest::downWithAMenuThatIsGoneDoesNothing()
{
    auto *bar = new VelaFilterBar;
    ControlWindow window(bar);
    auto menu = std::make_unique<QMenu>();
    menu->addAction(QStringLiteral("Item"));
    bar->setMenu(menu.get());
    QVERIFY(window.showAndWait());
    bar->setFocus();
    menu.reset();
    window.key(Qt::Key_Down);
    QVERIFY(bar->hasFocus());

    QMenu removed;
    removed.addAction(QStringLiteral("Item"));
    bar->setMenu(&removed);
    bar->setMenu(nullptr);
    const MenuUser user(&removed);
    window.key(Qt::Key_Down);
    QVERIFY(!user.hasUsed());
}

void VelaFilterBarTest::downOpensTheMenu_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("alone") << Qt::KeyboardModifiers();
    QTest::newRow("on the keypad") << Qt::KeyboardModifiers(Qt::KeypadModifier);
    QTest::newRow("with Shift") << Qt::KeyboardModifiers(Qt::ShiftModifier);
}

void VelaFilterBarTest::downOpensTheMenu()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    auto *bar = new VelaFilterBar;
    ControlWindow window(bar);
    QMenu menu;
    menu.addAction(QStringLiteral("Item"));
    bar->setMenu(&menu);
    QVERIFY(window.showAndWait());
    bar->setText(QStringLiteral("abc"));
    bar->setFocus();
    bar->setCursorPosition(1);
    EventCounter passedOn(&window, QEvent::KeyPress);
    const MenuUser user(&menu);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Down, modifiers); // the modifier's own key is not pressed before
    QCoreApplication::sendEvent(bar, &press); // returns when the menu is closed
    QVERIFY(user.hasUsed());
    QVERIFY(bar->hasFocus());
    QCOMPARE(bar->cursorPosition(), 1);
    QVERIFY(!bar->hasSelectedText());
    QCOMPARE(passedOn.take(), 0); // the bar has taken it
}

void VelaFilterBarTest::otherKeysReachTheField()
{
    auto *bar = new VelaFilterBar;
    Shown<ControlWindow> window(bar);
    bar->setFocus();
    window.type(QStringLiteral("abc"));
    window.key(Qt::Key_Home);
    QCOMPARE(bar->text(), QStringLiteral("abc"));
    QCOMPARE(bar->cursorPosition(), 0);
    window.key(Qt::Key_Right);
    QCOMPARE(bar->cursorPosition(), 1);
    window.key(Qt::Key_End, Qt::ShiftModifier);
    QCOMPARE(bar->selectedText(), QStringLiteral("bc"));
    window.key(Qt::Key_Delete);
    QCOMPARE(bar->text(), QStringLiteral("a"));
    window.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(bar->text(), QStringLiteral("abc"));
}

void VelaFilterBarTest::theButtonStaysInPlaceWhenTheFieldIsResized()
{
    VelaFilterBar bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    const QRect place = bar.findChild<VelaIconButton *>()->geometry();
    QCOMPARE(place, QRect(expectedPixels(4), expectedPixels(2), expectedPixels(34), expectedPixels(24)));
    bar.resize(500, 400);
    QCOMPARE(bar.height(), expectedPixels(28));
    QCOMPARE(bar.findChild<VelaIconButton *>()->geometry(), place);
}

void VelaFilterBarTest::aPressOnTheButtonOpensTheMenuAndLeavesTheFocus()
{
    auto *bar = new VelaFilterBar;
    ControlWindow window(bar);
    QMenu menu;
    menu.addAction(QStringLiteral("Item"));
    QVERIFY(window.showAndWait());
    bar->setFocus();
    auto *button = bar->findChild<VelaIconButton *>();
    const QPoint center = button->mapTo(&window, button->rect().center());

    window.click(center); // there is no menu yet
    QVERIFY(bar->hasFocus());

    bar->setMenu(&menu);
    const MenuUser user(&menu);
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, center); // returns when the menu is closed
    QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, center);
    QVERIFY(user.hasUsed());
    QCOMPARE(window.focusWidget(), static_cast<QWidget *>(bar));
}

void VelaFilterBarTest::theMenuIsNotOwned()
{
    QPointer<QMenu> menu(new QMenu);
    {
        VelaFilterBar bar;
        bar.setMenu(menu);
        QCOMPARE(bar.findChild<VelaIconButton *>()->menu(), menu.data());
    }
    QVERIFY(menu);
    delete menu;
}

QTEST_MAIN(VelaFilterBarTest)
#include "tst_vela_filter_bar.moc"
