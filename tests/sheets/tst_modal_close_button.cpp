// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-sheet.h"
#include "support/controls.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"
#include "support/window-hints.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <functional>

namespace {

constexpr char Hints[] = "_MOTIF_WM_HINTS";

// What the property holds while the close button is away, and once it is back in a window that had no such property.
const XProperty ButtonAway {Hints, 32, {1, 0, 6, 0, 0}};
const XProperty ButtonBack {Hints, 32, {0, 0, 1, 0, 1}};

// What becomes of two sheets that wait in a window, the second one in a panel.
using Change = std::function<void(ModalSheet &first, ModalSheet &second, QWidget *panel)>;

} // namespace

Q_DECLARE_METATYPE(Change)

// How sheets of both kinds keep their window open.
class ModalCloseButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data();
    void initTestCase();
    void cleanup();

    void closingTheWindowIsRefused_data();
    void closingTheWindowIsRefused();
    void theWindowCannotBeClosedAtFirst();
    void aRefusedCloseIsIgnoredAndConsumed();
    void theWindowManagersRequestToCloseIsRefused_data() { closingTheWindowIsRefused_data(); }
    void theWindowManagersRequestToCloseIsRefused();

    void theCloseButtonGoesAndComesBack_data() { closingTheWindowIsRefused_data(); }
    void theCloseButtonGoesAndComesBack();
    void theCloseButtonComesBackWhenBlockingEndsMeanwhile();
    void theCloseButtonIsAwayUntilTheLastSheetIsAnswered_data();
    void theCloseButtonIsAwayUntilTheLastSheetIsAnswered();
    void theCloseButtonIsAwayWhateverBecomesOfTheSheets_data();
    void theCloseButtonIsAwayWhateverBecomesOfTheSheets();
    void theCloseButtonIsAwayWhenAPanelBelowAnotherSheetDies();
    void theCloseButtonIsAwayWhenAShownSheetWaits();
    void theCloseButtonIsAwayWithSheetsOfBothKinds();

private:
    ResourceFolder m_folder;
};

void ModalCloseButtonTest::initTestCase_data()
{
    ModalSheet::addKinds();
}

void ModalCloseButtonTest::initTestCase()
{
    installSheetTheme(m_folder);
}

void ModalCloseButtonTest::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void ModalCloseButtonTest::closingTheWindowIsRefused_data()
{
    QTest::addColumn<bool>("isBlocked");
    QTest::newRow("blocked") << true;
    QTest::newRow("not blocked") << false;
}

void ModalCloseButtonTest::closingTheWindowIsRefused()
{
    QFETCH(bool, isBlocked);
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(isBlocked);
    shown.execute([&] {
        shown.window.close();
        shown.sheet.quit();
    });
    QCOMPARE(shown.window.closings, isBlocked ? 0 : 1);

    shown.sheet->showSheet();
    shown.window.close();
    QCOMPARE(shown.window.closings, isBlocked ? 0 : 2);
    QVERIFY(shown.window.isVisible());
}

void ModalCloseButtonTest::theWindowCannotBeClosedAtFirst()
{
    Shown<SheetWindow> window;
    ModalSheet sheet(&window);
    sheet->showSheet();
    window.close();
    QCOMPARE(window.closings, 0);
    sheet.done(0);
    window.close();
    QCOMPARE(window.closings, 1);
}

void ModalCloseButtonTest::aRefusedCloseIsIgnoredAndConsumed()
{
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(true);
    for (QObject *watched : QList<QObject *> {&shown.window, shown.sheet.firstFocus()}) { // visible or not
        QCloseEvent close;
        QVERIFY(shown.sheet->eventFilter(watched, &close));
        QVERIFY(!close.isAccepted());
    }
    shown.sheet.setBlockWindowButton(false);
    QCloseEvent close;
    QVERIFY(!shown.sheet->eventFilter(&shown.window, &close));
    QVERIFY(close.isAccepted());
}

void ModalCloseButtonTest::theWindowManagersRequestToCloseIsRefused()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(bool, isBlocked);
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(isBlocked);
    const XConnection x;
    shown.execute([&] {
        EventCounter requests(&shown.window, QEvent::Close); // counts them before the sheet swallows them
        x.askToClose(static_cast<XWindow>(shown.window.winId()));
        int arrived = 0;
        QTRY_COMPARE_WITH_TIMEOUT(arrived += requests.take(), 1, Patience);
        QVERIFY(shown.sheet->isVisible());
        shown.sheet.quit();
    });
    QCOMPARE(shown.window.closings, isBlocked ? 0 : 1);
}

void ModalCloseButtonTest::theCloseButtonGoesAndComesBack()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(bool, isBlocked);
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(isBlocked);
    XConnection x;
    const auto window = static_cast<XWindow>(shown.window.winId());
    const auto hints = [&] { return x.property(window, Hints); };
    const XProperty before = hints();
    QVERIFY(!(before == ButtonAway));
    x.watch(window, Hints);
    shown.execute([&] {
        QTRY_COMPARE(hints(), isBlocked ? ButtonAway : before); // they are written over another connection
        shown.sheet.quit();
    });
    const XProperty after = isBlocked && before.elements.isEmpty() ? ButtonBack : before;
    QTRY_COMPARE(hints(), after);
    QTRY_COMPARE(x.changes(), isBlocked ? 2 : 0);

    shown.sheet->showSheet(); // shows the sheet without taking the button
    QCOMPARE(hints(), after);
    shown.sheet.quit();
    QCOMPARE(hints(), after);
    QCOMPARE(x.changes(), isBlocked ? 2 : 0);
}

// The button stays away then, and the next answer gives back what was there before the first one took it.
void ModalCloseButtonTest::theCloseButtonComesBackWhenBlockingEndsMeanwhile()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    ShownSheet shown;
    const WindowHints hints(shown.window);
    const auto answerUnblocked = [&] {
        shown.sheet.setBlockWindowButton(true);
        shown.execute([&] {
            shown.sheet.setBlockWindowButton(false);
            shown.sheet.quit();
        });
    };
    answerUnblocked();
    QVERIFY(hints.isAway());
    shown.sheet.setBlockWindowButton(true);
    shown.execute([&] { shown.sheet.quit(); });
    QVERIFY(hints.isBack());

    answerUnblocked();
    QVERIFY(hints.isAway());
    shown.sheet.reset();
    QVERIFY(hints.isBack());
}

void ModalCloseButtonTest::theCloseButtonIsAwayUntilTheLastSheetIsAnswered_data()
{
    QTest::addColumn<QVector<int>>("order"); // order in which the sheets, which come up as 0, 1, 2, are answered
    QTest::newRow("last first") << QVector<int> {2, 1, 0};
    QTest::newRow("first first") << QVector<int> {0, 1, 2};
    QTest::newRow("middle first") << QVector<int> {1, 0, 2};
}

void ModalCloseButtonTest::theCloseButtonIsAwayUntilTheLastSheetIsAnswered()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(QVector<int>, order);
    Shown<SheetWindow> window;
    const WindowHints hints(window);

    QVector<ModalSheet *> sheets;
    const std::function<void()> step = [&] {
        if (sheets.size() == order.size()) {
            for (int index : order) {
                QVERIFY(hints.isAway());
                sheets.at(index)->done(index);
            }
            return;
        }
        ModalSheet sheet(&window);
        const int index = sheets.size();
        sheets.append(&sheet);
        QCOMPARE(sheet.execute(step), index);
    };
    step();
    QTRY_VERIFY(hints.isBack());
}

void ModalCloseButtonTest::theCloseButtonIsAwayWhateverBecomesOfTheSheets_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("first is shown again")
        << Change([](ModalSheet &first, ModalSheet &, QWidget *) { first->showSheet(); });
    QTest::newRow("the second one's panel dies")
        << Change([](ModalSheet &, ModalSheet &, QWidget *panel) { delete panel; });
    QTest::newRow("first leaves and comes back") << Change([](ModalSheet &first, ModalSheet &, QWidget *) {
        QWidget *mask = first->parentWidget();
        SheetWindow other;
        first->setParent(&other);
        first->setParent(mask);
    });
    QTest::newRow("the panel leaves and comes back") << Change([](ModalSheet &first, ModalSheet &, QWidget *panel) {
        SheetWindow other;
        panel->setParent(&other);
        panel->setParent(first->window());
    });
    QTest::newRow("second is answered and waits again") << Change([](ModalSheet &, ModalSheet &second, QWidget *) {
        second.done(2);
        second.execute([&second] { second.done(3); });
    });
}

void ModalCloseButtonTest::theCloseButtonIsAwayWhateverBecomesOfTheSheets()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    QFETCH(Change, change);
    Shown<SheetWindow> window;
    const WindowHints hints(window);
    auto *panel = new QWidget(&window);
    ModalSheet first(&window);
    ModalSheet second(panel);
    first.execute([&] {
        second.execute([&] {
            change(first, second, panel);
            QVERIFY(hints.isAway());
            first.done(1);
            QTimer::singleShot(0, second.get(), [&] { second.quit(); });
        });
    });
    QTRY_VERIFY(hints.isBack());
}

void ModalCloseButtonTest::theCloseButtonIsAwayWhenAPanelBelowAnotherSheetDies()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    Shown<SheetWindow> window;
    const WindowHints hints(window);
    auto *panel = new QWidget(&window);
    ModalSheet first(panel);
    ModalSheet second(&window);
    first.execute([&] {
        second.execute([&] {
            delete panel;
            QVERIFY(hints.isAway());
            second.quit();
        });
    });
    QTRY_VERIFY(hints.isBack());
}

void ModalCloseButtonTest::theCloseButtonIsAwayWhenAShownSheetWaits()
{
    if (!isOnX()) {
        QSKIP("needs an X server: run the x11-* presets");
    }
    Shown<SheetWindow> window;
    const WindowHints hints(window);
    ModalSheet first(&window);
    ModalSheet second(&window);
    first->showSheet();
    second.execute([&] {
        first.execute([&] {
            second.quit();
            QVERIFY(hints.isAway());
            first.quit();
        });
    });
    QTRY_VERIFY(hints.isBack());
}

void ModalCloseButtonTest::theCloseButtonIsAwayWithSheetsOfBothKinds()
{
    ShownSheet shown;
    shown.sheet.setBlockWindowButton(true);
    const WindowHints hints(shown.window);
    const bool isMessage = ModalSheet::currentKind() == ModalSheet::Message;
    const int first = shown.execute([&] {
        shown.cancel()->setFocus();
        ModalSheet above(isMessage ? ModalSheet::Input : ModalSheet::Message, &shown.window);
        auto *field = qobject_cast<QLineEdit *>(above.firstFocus());
        const int second = above.execute([&] {
            shown.window.press(Qt::Key_A);
            shown.window.close();
            shown.window.press(Qt::Key_Return);
        });
        QCOMPARE(second, OkCode);
        QCOMPARE(field ? field->text() : QStringLiteral("a"), QStringLiteral("a"));
        QCOMPARE(shown.window.closings, 0);
        QCOMPARE(QApplication::focusWidget(), shown.cancel());
        QVERIFY(hints.isAway());
        shown.window.press(Qt::Key_Return);
    });
    QCOMPARE(first, OkCode);
    QTRY_VERIFY(hints.isBack());
}

QTEST_MAIN(ModalCloseButtonTest)
#include "tst_modal_close_button.moc"
