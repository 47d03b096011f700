// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/vela-countdown-msg-box.h"
#include "component/vela-input-sheet.h"
#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"

#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QtTest>

namespace {

// A sheet that an application has made itself.
class OwnSheet : public VelaSheet
{
public:
    using VelaSheet::VelaSheet;
    void showSheet() override { show(); }
};

} // namespace

class AccessibleSheetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void rolesFollowTheTypeOfMessage_data();
    void rolesFollowTheTypeOfMessage();
    void aSheetIsNamedByItsTexts();
    void aTitleIsTheNameOfASheetThatHasOne();
    void aSheetOfInputIsNamedByItsPrompt();
    void aSheetThatWorksIsBusy();

    void belowASheetNothingIsToldOf();
    void theUppermostOfSeveralSheetsIsToldOf();
    void aSheetThatWaitsIsModal();
    void aSheetOfAnApplicationsOwnIsUppermostInItsMask();
    void masksThatAreLeftBehindAreNotToldOf();
    void nothingBelowAMaskIsFoundUnderThePointer();
    void everyKindOfWindowHoldsItsSheet_data();
    void everyKindOfWindowHoldsItsSheet();
    void aSheetIsReadFromTopToBottom();

    void aCountdownIsNamedByItsText();
    void theNameOfACountingButtonDoesNotCount();
};

void AccessibleSheetsTest::rolesFollowTheTypeOfMessage_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("role");
    QTest::newRow("application") << int(VelaMessageSheet::AppMessage) << number(QAccessible::Dialog);
    QTest::newRow("information") << int(VelaMessageSheet::InfoMessage) << number(QAccessible::Dialog);
    QTest::newRow("warning") << int(VelaMessageSheet::WarningMessage) << number(QAccessible::AlertMessage);
    QTest::newRow("question") << int(VelaMessageSheet::QuestionMessage) << number(QAccessible::Dialog);
    QTest::newRow("upgrade") << int(VelaMessageSheet::UpgradeMessage) << number(QAccessible::Dialog);
    QTest::newRow("warning question") << int(VelaMessageSheet::WarningQuestionMessage)
                                      << number(QAccessible::AlertMessage);
}

void AccessibleSheetsTest::rolesFollowTheTypeOfMessage()
{
    QFETCH(int, type);
    QFETCH(int, role);
    QWidget window;
    VelaMessageSheet sheet(static_cast<VelaMessageSheet::MessageType>(type), &window);
    QCOMPARE(number(spoken(&sheet)->role()), role);
}

void AccessibleSheetsTest::aSheetIsNamedByItsTexts()
{
    QWidget window;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("It is <b>done</b> &amp; over."),
                           QStringLiteral("Nothing<br>is left."), &window);
    QCOMPARE(nameOf(&sheet), QStringLiteral("It is done & over."));
    QCOMPARE(descriptionOf(&sheet), QStringLiteral("Nothing is left."));
    sheet.setInformativeText(QString());
    QCOMPARE(descriptionOf(&sheet), QString());
    sheet.setAccessibleName(QStringLiteral("Done"));
    QCOMPARE(nameOf(&sheet), QStringLiteral("Done"));
}

void AccessibleSheetsTest::aTitleIsTheNameOfASheetThatHasOne()
{
    QWidget window;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("Text"), QStringLiteral("more"), &window);
    sheet.setWindowTitle(QStringLiteral("Title"));
    QCOMPARE(nameOf(&sheet), QStringLiteral("Title"));
    QCOMPARE(descriptionOf(&sheet), QStringLiteral("Text, more"));
}

void AccessibleSheetsTest::aSheetOfInputIsNamedByItsPrompt()
{
    QWidget window;
    VelaInputSheet sheet(QStringLiteral("Name of the folder"), &window);
    QCOMPARE(number(spoken(&sheet)->role()), number(QAccessible::Dialog));
    QCOMPARE(nameOf(&sheet), QStringLiteral("Name of the folder"));
}

void AccessibleSheetsTest::aSheetThatWorksIsBusy()
{
    QWidget window;
    VelaMessageSheet working(QStringLiteral("Please wait"), QString(), &window);
    VelaMessageSheet asking(VelaMessageSheet::QuestionMessage, &window);
    QVERIFY(spoken(&working)->state().busy);
    QVERIFY(!spoken(&asking)->state().busy);
}

void AccessibleSheetsTest::belowASheetNothingIsToldOf()
{
    SheetWindow window;
    window.above->setAccessibleName(QStringLiteral("above"));
    window.below->setAccessibleName(QStringLiteral("below"));
    QVERIFY(window.showAndWait());
    const QStringList fields {QStringLiteral("above"), QStringLiteral("below")};
    QCOMPARE(namesIn(spoken(&window)), fields);

    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("Text"), &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    sheet.showSheet();
    QCOMPARE(spoken(&window)->childCount(), 1);
    QCOMPARE(spoken(&window)->child(0), spoken(&sheet));
    QCOMPARE(spoken(&window)->indexOfChild(spoken(&sheet)), 0);
    QCOMPARE(spoken(&window)->indexOfChild(spoken(window.above)), -1);
    QCOMPARE(spoken(&sheet)->parent(), spoken(&window));

    sheet.done(0);
    QCOMPARE(namesIn(spoken(&window)), fields);
    for (int i = 0; i < spoken(&window)->childCount(); ++i) {
        QCOMPARE(spoken(&window)->indexOfChild(spoken(&window)->child(i)), i);
    }
}

void AccessibleSheetsTest::theUppermostOfSeveralSheetsIsToldOf()
{
    Shown<SheetWindow> window;
    VelaMessageSheet first(VelaMessageSheet::InfoMessage, QStringLiteral("first"), &window);
    VelaInputSheet second(QStringLiteral("second"), &window);
    VelaMask::createMask(&first, &window, QColor(0, 0, 0, 20));
    VelaMask::createMask(&second, &window, QColor(0, 0, 0, 20));
    first.showSheet();
    second.showSheet();
    QCOMPARE(namesIn(spoken(&window)), QStringList {QStringLiteral("second")});
    QVERIFY(!spoken(&first)->state().modal);
    second.done(0);
    QCOMPARE(namesIn(spoken(&window)), QStringList {QStringLiteral("first")});
    first.done(0);
}

void AccessibleSheetsTest::aSheetThatWaitsIsModal()
{
    Shown<SheetWindow> window;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("Text"), &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    QVERIFY(!spoken(&sheet)->state().modal);
    bool wasModal = false;
    execute(&sheet, [&sheet, &wasModal] {
        wasModal = spoken(&sheet)->state().modal;
        sheet.done(0);
    });
    QVERIFY(wasModal);
    QVERIFY(!spoken(&sheet)->state().modal);
}

void AccessibleSheetsTest::aSheetOfAnApplicationsOwnIsUppermostInItsMask()
{
    Shown<SheetWindow> window;
    OwnSheet sheet(&window);
    sheet.setWindowTitle(QStringLiteral("own"));
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    sheet.showSheet();
    QCOMPARE(namesIn(spoken(&window)), QStringList {QStringLiteral("own")});
    sheet.hide();
    QCOMPARE(spoken(&window)->childCount(), 2);
}

void AccessibleSheetsTest::masksThatAreLeftBehindAreNotToldOf()
{
    Shown<SheetWindow> window;
    for (int i = 0; i < 3; ++i) {
        VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("Text"), &window);
        VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
        sheet.showSheet();
        sheet.done(0);
    }
    QCOMPARE(window.findChildren<VelaMask *>().size(), 3);
    QCOMPARE(spoken(&window)->childCount(), 2);
    QCOMPARE(spoken(&window)->child(1), spoken(window.below));
    QVERIFY(!spoken(&window)->child(2));
}

void AccessibleSheetsTest::nothingBelowAMaskIsFoundUnderThePointer()
{
    Shown<SheetWindow> window;
    const QPoint field = window.above->mapToGlobal(QPoint(2, 2));
    QCOMPARE(spoken(&window)->childAt(field.x(), field.y()), spoken(window.above));
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("Text"), &window);
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    sheet.showSheet();
    QTRY_VERIFY(sheet.isVisible());
    QVERIFY(!spoken(&window)->childAt(field.x(), field.y()));
    const QPoint middle = sheet.mapToGlobal(sheet.rect().center());
    QCOMPARE(spoken(&window)->childAt(middle.x(), middle.y()), spoken(&sheet));
    sheet.done(0);
}

void AccessibleSheetsTest::everyKindOfWindowHoldsItsSheet_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("role");
    QTest::newRow("QWidget") << QStringLiteral("QWidget") << number(QAccessible::Client);
    QTest::newRow("QDialog") << QStringLiteral("QDialog") << number(QAccessible::Dialog);
    QTest::newRow("QMainWindow") << QStringLiteral("QMainWindow") << number(QAccessible::Window);
}

void AccessibleSheetsTest::everyKindOfWindowHoldsItsSheet()
{
    QFETCH(QString, kind);
    QFETCH(int, role);
    const std::unique_ptr<QWidget> window(kind == QLatin1String("QDialog")       ? new QDialog
                                              : kind == QLatin1String("QWidget") ? new QWidget
                                                                                 : new QMainWindow);
    window->resize(600, 400);
    window->setWindowTitle(QStringLiteral("Title"));
    QCOMPARE(nameOf(window.get()), QStringLiteral("Title"));
    QCOMPARE(number(spoken(window.get())->role()), role);
    window->show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("Text"), window.get());
    VelaMask::createMask(&sheet, window.get(), QColor(0, 0, 0, 20));
    sheet.showSheet();
    QCOMPARE(namesIn(spoken(window.get())), QStringList {QStringLiteral("Text")});
    sheet.done(0);
}

void AccessibleSheetsTest::aSheetIsReadFromTopToBottom()
{
    Shown<SheetWindow> window;
    VelaMessageSheet sheet(VelaMessageSheet::WarningQuestionMessage, QStringLiteral("Delete it?"), &window);
    sheet.setInformativeText(QStringLiteral("It cannot come back."));
    VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    sheet.showSheet();
    QStringList lines = transcript(spoken(&sheet));
    const QStringList buttons = lines.filter(QStringLiteral("Button"));
    QCOMPARE(lines.first(), QStringLiteral("AlertMessage Delete it?, It cannot come back."));
    QVERIFY(lines.contains(QStringLiteral("StaticText Delete it?")));
    QVERIFY(lines.contains(QStringLiteral("StaticText It cannot come back.")));
    const QStringList expected {QStringLiteral("Button OK"), QStringLiteral("Button Cancel")};
    QCOMPARE(buttons, expected);
    sheet.done(0);
}

void AccessibleSheetsTest::aCountdownIsNamedByItsText()
{
    VelaCountdownMessageBox box(30);
    box.setText(QStringLiteral("The system will <i>restart</i>."));
    box.setInformativeText(QStringLiteral("Save your work."));
    QCOMPARE(number(spoken(&box)->role()), number(QAccessible::AlertMessage));
    QCOMPARE(nameOf(&box), QStringLiteral("The system will restart."));
    QCOMPARE(descriptionOf(&box), QStringLiteral("Save your work., Seconds left: 30"));
    box.setWindowTitle(QStringLiteral("Restart"));
    QCOMPARE(nameOf(&box), QStringLiteral("Restart"));
    QCOMPARE(descriptionOf(&box), QStringLiteral("The system will restart., Save your work., Seconds left: 30"));
}

void AccessibleSheetsTest::theNameOfACountingButtonDoesNotCount()
{
    VelaCountdownMessageBox box(30);
    for (int left = 30; left >= 28; --left) {
        QCOMPARE(nameOf(box.button(QMessageBox::Ok)), QStringLiteral("OK"));
        QCOMPARE(descriptionOf(box.button(QMessageBox::Ok)), QStringLiteral("Seconds left: %1").arg(left));
        box.slotTick();
    }
    QCOMPARE(nameOf(box.button(QMessageBox::Discard)), QStringLiteral("Cancel"));
    QCOMPARE(descriptionOf(box.button(QMessageBox::Discard)), QString());
}

QTEST_MAIN(AccessibleSheetsTest)
#include "tst_accessible_sheets.moc"
