// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-input-sheet.h"
#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/modal-sheet.h"
#include "support/resource-folder.h"
#include "utils/component-strings.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QtTest>

#include <memory>

namespace {

constexpr int ShadowWidth = 22;
constexpr int Margin = 10;

const QString Prompt = QStringLiteral("Name of the folder");
const QString LongPrompt = QStringLiteral("A long prompt of many words, ").repeated(6);

struct Section
{
    const char *key;
    const char *text;
};

constexpr Section Sections[] = {
    {"component.apply_button", "QPushButton { color: lime }"},
    {"component.cancel_button", "QPushButton { color: blue }"},
    {"component.message_sheet_other", "QLabel { font-size: %1px }"},
    {"component.lineedit", "QLineEdit { color: maroon }"},
};

constexpr int FontSize = 20;

QString textOf(const Section &section, int fontSize)
{
    return QString::fromLatin1(section.text).replace(QLatin1String("%1"), QString::number(fontSize));
}

QString sheetOf(const char *key)
{
    for (const Section &section : Sections) {
        if (qstrcmp(section.key, key) == 0) {
            return QLatin1Char('\n') + textOf(section, expectedPixels(FontSize));
        }
    }
    return {};
}

// Width in pixels of a sheet whose parent is parentWidth pixels wide, in whole numbers: scales are quarters.
int expectedWidth(int parentWidth)
{
    const int quarters = qRound(expectedScale() * 4);
    const bool isNarrow = parentWidth * 4 < 520 * quarters;
    const int logical = isNarrow ? (parentWidth * 4 - 40 * quarters) / quarters : 480;
    return logical * quarters / 4;
}

// A window that the sheet is shown in, active, the focus being elsewhere in it.
class PromptWindow : public ControlWindow
{
public:
    PromptWindow() : ControlWindow(new QWidget) { resize(expectedPixels(600), expectedPixels(400)); }
};

const MessageLabel *promptOf(const VelaInputSheet &sheet)
{
    return sheet.findChild<MessageLabel *>(QString(), Qt::FindDirectChildrenOnly);
}

const QDialogButtonBox *buttonBoxOf(const QWidget &sheet)
{
    return sheet.findChild<QDialogButtonBox *>(QString(), Qt::FindDirectChildrenOnly);
}

// Height of the text of a label at a width, as a label without limits tells it.
int neededHeight(const QLabel &label, int width)
{
    QLabel unlimited(label.text());
    unlimited.setFont(label.font());
    unlimited.setAlignment(label.alignment());
    unlimited.setWordWrap(true);
    return qMax(0, unlimited.heightForWidth(width));
}

// Notes which of two widgets gets the focus and why.
class FocusLog : public QObject
{
public:
    FocusLog(QWidget *first, QWidget *second)
    {
        first->installEventFilter(this);
        second->installEventFilter(this);
    }

    QVector<QPair<QObject *, Qt::FocusReason>> entries;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn) {
            entries.append({watched, static_cast<QFocusEvent *>(event)->reason()});
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

class VelaInputSheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void gettersGiveBackWhatWasSet();
    void missingTextsShowTheirKeys();
    void theCaptionsComeFromTheStringTable();
    void theStyleSheetsStandUnderTheirKeys();
    void thereIsNoOtherButton();
    void theButtonsHaveNoSizeOfTheirOwn();
    void theButtonBoxHasNoStyleOfItsOwn();
    void theButtonsAreNotFiltered();

    void thePromptIsAScaledParagraph();
    void theWidgetsStandBelowEachOther();
    void theWidthFollowsTheParent_data();
    void theWidthFollowsTheParent();
    void theWidthIsExactForEveryParent();
    void theWidthIsThatOfTheParentAndNotOfTheWindow();
    void theWidthIsTakenWhenThePromptIsSet();
    void withoutAParentItIsAsWideAsItGets();
    void thePromptIsAsHighAsItsText_data();
    void thePromptIsAsHighAsItsText();

    void showSheetReturnsAtOnceAndFocusesTheLineEdit();
    void execFocusesTheSheetAndThenTheLineEdit();
    void theLineEditKeepsWhatIsTyped();
    void theLineEditIsTheCallersToSetUp();
    void tabKeysThatReachTheWindowMoveNothing();
    void keysAreSwallowedWhileItIsHiddenToo();

    void itCanBeAskedAgain();

private:
    ResourceFolder m_folder;
    QStringList m_captionsWithoutTheme;
};

void VelaInputSheetTest::initTestCase()
{
    const LogCapture silence;
    const VelaInputSheet sheet(Prompt);
    m_captionsWithoutTheme << sheet.button(QMessageBox::Ok)->text() << sheet.button(QMessageBox::Discard)->text();

    QByteArray sections;
    for (const Section &section : Sections) {
        sections += QByteArray("== ") + section.key + " ==\n" + textOf(section, FontSize).toUtf8() + '\n';
    }
    QStringList images {QStringLiteral("icon_question")};
    for (const char *piece : {"l", "r", "t", "b", "lt", "rt", "lb", "rb"}) {
        images.append(QLatin1String("bg_tutorial_") + QLatin1String(piece));
    }
    for (const QString &name : qAsConst(images)) {
        m_folder.writeImage(name, QSize(88, 88), Qt::gray);
    }
    m_folder.writeCatalogue(images);
    installSheets(m_folder, sections + "== component.message_sheet_text ==\nQLabel { color: black }\n");
    ComponentStrings::getInstance()->installStrings({
        {QStringLiteral("ok"), QStringLiteral("Take it")},
        {QStringLiteral("cancel"), QStringLiteral("Leave it")},
        {QStringLiteral("wizard_client_upgrade"), QStringLiteral("Upgrade")},
    });
}

void VelaInputSheetTest::missingTextsShowTheirKeys()
{
    QCOMPARE(m_captionsWithoutTheme, (QStringList {QStringLiteral("ok"), QStringLiteral("cancel")}));
}

void VelaInputSheetTest::theCaptionsComeFromTheStringTable()
{
    const VelaInputSheet sheet;
    QCOMPARE(sheet.button(QMessageBox::Ok)->text(), QStringLiteral("Take it"));
    QCOMPARE(sheet.button(QMessageBox::Discard)->text(), QStringLiteral("Leave it"));
}

void VelaInputSheetTest::theStyleSheetsStandUnderTheirKeys()
{
    VelaInputSheet sheet;
    QCOMPARE(sheet.styleSheet(), sheetOf("component.message_sheet_other"));
    QCOMPARE(sheet.button(QMessageBox::Ok)->styleSheet(), sheetOf("component.apply_button"));
    QCOMPARE(sheet.button(QMessageBox::Discard)->styleSheet(), sheetOf("component.cancel_button"));
    QCOMPARE(sheet.getLineEdit()->styleSheet(), sheetOf("component.lineedit"));
}

void VelaInputSheetTest::thereIsNoOtherButton()
{
    const VelaInputSheet sheet;
    QCOMPARE(sheet.findChildren<QAbstractButton *>().size(), 2);
    QVERIFY(!sheet.button(QMessageBox::Cancel));
    QVERIFY(!sheet.button(QMessageBox::NoButton));
}

void VelaInputSheetTest::theButtonsHaveNoSizeOfTheirOwn()
{
    const VelaInputSheet sheet;
    for (QMessageBox::StandardButton which : {QMessageBox::Ok, QMessageBox::Discard}) {
        QCOMPARE(sheet.button(which)->minimumSize(), QSize(0, 0));
        QCOMPARE(sheet.button(which)->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
    }
}

void VelaInputSheetTest::theButtonBoxHasNoStyleOfItsOwn()
{
    const VelaInputSheet sheet;
    QVERIFY(!buttonBoxOf(sheet)->testAttribute(Qt::WA_SetStyle));
    QWidget window;
    const VelaMessageSheet message(VelaMessageSheet::QuestionMessage, &window);
    QVERIFY(buttonBoxOf(message)->testAttribute(Qt::WA_SetStyle)); // the box of a message has it
}

void VelaInputSheetTest::theButtonsAreNotFiltered()
{
    const VelaInputSheet sheet;
    for (QMessageBox::StandardButton which : {QMessageBox::Ok, QMessageBox::Discard}) {
        QCloseEvent close;
        QCoreApplication::sendEvent(sheet.button(which), &close);
        QVERIFY(close.isAccepted());
    }
}

void VelaInputSheetTest::thePromptIsAScaledParagraph()
{
    const QString paragraph = QStringLiteral("<p style='line-height: %1px;'>%2</p>").arg(expectedPixels(20));
    VelaInputSheet sheet(Prompt);
    const QLabel *prompt = promptOf(sheet);
    QCOMPARE(prompt->text(), paragraph.arg(Prompt));
    QVERIFY(prompt->wordWrap());
    QCOMPARE(prompt->alignment(), Qt::AlignTop);
    QCOMPARE(prompt->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(prompt->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
    QVERIFY(!prompt->sizePolicy().hasHeightForWidth());

    sheet.setText(QStringLiteral("<b>Another</b>"));
    QCOMPARE(prompt->text(), paragraph.arg(QStringLiteral("<b>Another</b>")));
    QVERIFY(promptOf(VelaInputSheet())->text().isEmpty());
}

void VelaInputSheetTest::theWidgetsStandBelowEachOther()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QVERIFY(window.showAndWait());
    sheet.showSheet();

    const int inset = expectedPixels(ShadowWidth) + expectedPixels(Margin);
    const int innerWidth = expectedPixels(480) - 2 * inset;
    const QRect prompt = promptOf(sheet)->geometry();
    const QRect lineEdit = sheet.getLineEdit()->geometry();
    const QRect buttonBox = buttonBoxOf(sheet)->geometry();
    QCOMPARE(prompt.topLeft(), QPoint(inset, inset));
    QCOMPARE(prompt.size(), QSize(innerWidth, neededHeight(*promptOf(sheet), innerWidth)));
    QCOMPARE(lineEdit, QRect(inset, inset + prompt.height() + expectedPixels(8), innerWidth, expectedPixels(28)));
    QCOMPARE(buttonBox.topLeft(), QPoint(inset, lineEdit.y() + lineEdit.height() + expectedPixels(24)));
    QCOMPARE(buttonBox.size(), QSize(innerWidth, buttonBoxOf(sheet)->sizeHint().height()));
    QCOMPARE(sheet.size(), QSize(expectedPixels(480), buttonBox.y() + buttonBox.height() + inset));

    QCOMPARE(sheet.getLineEdit()->minimumHeight(), expectedPixels(28));
    QCOMPARE(sheet.getLineEdit()->maximumHeight(), expectedPixels(28));
    QCOMPARE(sheet.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(sheet.sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
}

void VelaInputSheetTest::theWidthFollowsTheParent_data()
{
    QTest::addColumn<int>("parent");
    QTest::addColumn<int>("sheet");
    QTest::newRow("narrow") << 300 << 260;
    QTest::newRow("500") << 500 << 460;
    QTest::newRow("just below") << 516 << 476;
    QTest::newRow("the first that is wide enough") << 520 << 480;
    QTest::newRow("just above") << 524 << 480;
    QTest::newRow("wide") << 700 << 480;
    QTest::newRow("very wide") << 2000 << 480;
}

void VelaInputSheetTest::theWidthFollowsTheParent()
{
    QFETCH(int, parent);
    QFETCH(int, sheet);
    QWidget window;
    window.resize(expectedPixels(parent), expectedPixels(300)); // multiples of four: no fractions at any scale
    const VelaInputSheet inputSheet(&window);
    QCOMPARE(inputSheet.minimumWidth(), expectedPixels(sheet));
    QCOMPARE(inputSheet.maximumWidth(), expectedPixels(sheet));
    QCOMPARE(inputSheet.width(), expectedPixels(sheet));
}

void VelaInputSheetTest::theWidthIsExactForEveryParent()
{
    QWidget window;
    VelaInputSheet sheet(&window);
    for (int width = expectedPixels(300); width <= expectedPixels(700); ++width) {
        window.resize(width, 300);
        sheet.setText(QString());
        if (sheet.width() != expectedWidth(width)) {
            QCOMPARE(QPair(width, sheet.width()), QPair(width, expectedWidth(width)));
        }
    }
}

void VelaInputSheetTest::theWidthIsThatOfTheParentAndNotOfTheWindow()
{
    QWidget window;
    window.resize(expectedPixels(700), expectedPixels(300));
    QWidget panel(&window);
    panel.resize(expectedPixels(400), expectedPixels(300));
    QCOMPARE(VelaInputSheet(&panel).width(), expectedPixels(360));
    QCOMPARE(VelaInputSheet(Prompt, &panel).width(), expectedPixels(360));
}

void VelaInputSheetTest::theWidthIsTakenWhenThePromptIsSet()
{
    QWidget window;
    window.resize(expectedPixels(400), expectedPixels(300));
    VelaInputSheet sheet(Prompt, &window);
    window.resize(expectedPixels(500), expectedPixels(300));
    QCOMPARE(sheet.width(), expectedPixels(360));
    sheet.setText(Prompt);
    QCOMPARE(sheet.width(), expectedPixels(460));
}

void VelaInputSheetTest::withoutAParentItIsAsWideAsItGets()
{
    QCOMPARE(VelaInputSheet().width(), expectedPixels(480));
}

void VelaInputSheetTest::thePromptIsAsHighAsItsText_data()
{
    QTest::addColumn<int>("windowWidth");
    QTest::addColumn<bool>("isMasked");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("changed while hidden") << 600 << true << false;
    QTest::newRow("changed while shown") << 600 << true << true;
    QTest::newRow("changed while hidden, no mask") << 600 << false << false;
    QTest::newRow("changed while shown, no mask") << 600 << false << true;
    QTest::newRow("narrow") << 300 << true << true;
    QTest::newRow("narrow, no mask") << 300 << false << false;
}

void VelaInputSheetTest::thePromptIsAsHighAsItsText()
{
    QFETCH(int, windowWidth);
    QFETCH(bool, isMasked);
    QFETCH(bool, isShown);
    PromptWindow window;
    window.resize(expectedPixels(windowWidth), expectedPixels(530));
    VelaInputSheet sheet(Prompt, &window);
    if (isMasked) {
        VelaMask::createMask(&sheet, &window, QColor(0, 0, 0, 20));
    }
    QVERIFY(window.showAndWait());
    const int inset = expectedPixels(ShadowWidth) + expectedPixels(Margin);
    const int rest = 2 * inset + expectedPixels(8) + expectedPixels(28) + expectedPixels(24)
        + buttonBoxOf(sheet)->sizeHint().height();
    QVector<int> heights;
    for (const QString &text : {LongPrompt, Prompt, LongPrompt, QString()}) {
        sheet.setVisible(isShown);
        sheet.setText(text);
        sheet.setVisible(true);
        const int needed = neededHeight(*promptOf(sheet), sheet.width() - 2 * inset);
        QCOMPARE(promptOf(sheet)->height(), needed);
        QCOMPARE(sheet.height(), rest + needed);
        QCoreApplication::sendPostedEvents(); // the layout has nothing left to change
        QCOMPARE(promptOf(sheet)->height(), needed);
        QCOMPARE(sheet.height(), rest + needed);
        QCOMPARE(sheet.getLineEdit()->y(), inset + needed + expectedPixels(8));
        heights.append(needed);
    }
    QVERIFY(heights.at(0) > 3 * heights.at(1));
    QCOMPARE(heights.at(2), heights.at(0));
}

void VelaInputSheetTest::showSheetReturnsAtOnceAndFocusesTheLineEdit()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QVERIFY(window.showAndWait());
    QVERIFY(window.neighbour->hasFocus());
    VelaSheet &base = sheet;
    base.showSheet();
    QVERIFY(sheet.isVisible());
    QVERIFY(sheet.getLineEdit()->hasFocus());
}

void VelaInputSheetTest::execFocusesTheSheetAndThenTheLineEdit()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QVERIFY(window.showAndWait());
    const FocusLog log(&sheet, sheet.getLineEdit());
    execute(&sheet, [&] {
        QVERIFY(sheet.isVisible());
        QVERIFY(sheet.getLineEdit()->hasFocus());
        sheet.quit();
    });
    QCOMPARE(log.entries.size(), 2);
    QCOMPARE(log.entries.at(0), qMakePair(static_cast<QObject *>(&sheet), Qt::TabFocusReason));
    QCOMPARE(log.entries.at(1).first, static_cast<QObject *>(sheet.getLineEdit()));
}

void VelaInputSheetTest::theLineEditKeepsWhatIsTyped()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QVERIFY(window.showAndWait());
    QVERIFY(sheet.getContent().isEmpty());
    const int result = execute(&sheet, [&] {
        window.type(QStringLiteral("two words"));
        window.key(Qt::Key_Home);
        window.key(Qt::Key_Delete);
        window.key(Qt::Key_Return);
    });
    QCOMPARE(result, OkCode);
    QCOMPARE(sheet.getContent(), QStringLiteral("wo words"));
}

void VelaInputSheetTest::theLineEditIsTheCallersToSetUp()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QLineEdit *lineEdit = sheet.getLineEdit();
    QCOMPARE(lineEdit->parentWidget(), static_cast<QWidget *>(&sheet));
    const QRegularExpressionValidator digits(QRegularExpression(QStringLiteral("\\d*")));
    lineEdit->setValidator(&digits);
    lineEdit->setText(QStringLiteral("4"));
    QVERIFY(window.showAndWait());
    execute(&sheet, [&] {
        window.type(QStringLiteral("a2"));
        window.key(Qt::Key_Return);
    });
    QCOMPARE(sheet.getContent(), QStringLiteral("42"));
}

void VelaInputSheetTest::tabKeysThatReachTheWindowMoveNothing()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QVERIFY(window.showAndWait());
    EventCounter presses(&window, QEvent::KeyPress);
    sheet.showSheet();
    for (Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QVERIFY(QCoreApplication::sendEvent(&window, &press));
        QVERIFY(sheet.getLineEdit()->hasFocus());
    }
    QCOMPARE(presses.take(), 0);
}

void VelaInputSheetTest::keysAreSwallowedWhileItIsHiddenToo()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QVERIFY(window.showAndWait());
    EventCounter presses(&window, QEvent::KeyPress); // asked after the sheet's filter, which is installed later
    sheet.showSheet();
    sheet.hide(); // ends without an answer
    const QSignalSpy finished(&sheet, &VelaSheet::finished);
    window.control->setFocus();
    window.key(Qt::Key_F5);
    QCOMPARE(presses.take(), 0);
    window.key(Qt::Key_Escape);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.at(0).at(0).toInt(), CancelCode);
}

void VelaInputSheetTest::itCanBeAskedAgain()
{
    PromptWindow window;
    VelaInputSheet sheet(Prompt, &window);
    QVERIFY(window.showAndWait());
    QCOMPARE(execute(&sheet,
                     [&] {
                         window.type(QStringLiteral("one"));
                         window.key(Qt::Key_Escape);
                     }),
             CancelCode);
    QCOMPARE(execute(&sheet,
                     [&] {
                         window.key(Qt::Key_End);
                         window.type(QStringLiteral(" two"));
                         window.key(Qt::Key_Return);
                     }),
             OkCode);
    QCOMPARE(sheet.getContent(), QStringLiteral("one two"));
}

void VelaInputSheetTest::gettersGiveBackWhatWasSet()
{
    QWidget window;
    VelaInputSheet sheet(QStringLiteral("prompt"), &window);
    QCOMPARE(sheet.text(), QStringLiteral("prompt"));
    QVERIFY(sheet.blocksWindowButton());
    sheet.setText(QStringLiteral("another"));
    sheet.setBlockWindowButton(false);
    QCOMPARE(sheet.text(), QStringLiteral("another"));
    QVERIFY(!sheet.blocksWindowButton());
}

QTEST_MAIN(VelaInputSheetTest)
#include "tst_vela_input_sheet.moc"
