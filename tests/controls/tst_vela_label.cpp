// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-label.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QVBoxLayout>
#include <QtTest>

namespace {

constexpr char Sheets[] = "== component.label ==\n"
                          "QLabel { color: blue; background: yellow; padding: 5px; font-size: 13px }\n";

const QString LongText = QStringLiteral("A sentence of some length, which takes more lines the narrower the label is, "
                                        "so that the height that it needs can be told from the width that it has.");

// The height that a plain label of the same look needs at width.
int neededHeight(const QLabel &label, int width)
{
    QLabel plain(label.text());
    plain.setWordWrap(true);
    plain.setStyleSheet(label.styleSheet());
    plain.ensurePolished();
    return plain.heightForWidth(width);
}

// A label in a window without a layout at first, so that a test alone decides its size.
class LabelWindow : public TestWindow
{
public:
    LabelWindow() : label(LongText, this)
    {
        resize(700, 500);
        label.setWordWrap(true);
        label.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    }

    // Puts the label into a column, with room below.
    void layOut()
    {
        auto *column = new QVBoxLayout(this);
        column->addWidget(&label);
        column->addStretch();
    }

    VelaLabel label;
};

} // namespace

class VelaLabelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void itHasTheScaledSheetOfItsKey();
    void itPassesItsArgumentsOn();
    void argumentsMayBeLeftOut();
    void allElseIsAsInItsBase();
    void itLooksLikeItsBaseWithTheSameSheet();

    void itsMinimumHeightFollowsItsWidth_data();
    void itsMinimumHeightFollowsItsWidth();
    void itGrowsAsItNarrowsAndShrinksAsItWidens();
    void itTakesTheNeededHeightInALayout();
    void otherwiseTheMinimumHeightIsLeftAlone_data();
    void otherwiseTheMinimumHeightIsLeftAlone();
    void theHorizontalPolicyDoesNotMatter_data();
    void theHorizontalPolicyDoesNotMatter();
    void aMinimumHeightOfTheCallersIsReplaced();
    void aNewTextCountsAtTheNextResize();
    void withoutItsMinimumItShrinksForAShorterText();
    void aLabelWithoutATextNeedsNoHeight_data();
    void aLabelWithoutATextNeedsNoHeight();
    void whatIsSwitchedOffLaterLeavesTheLastMinimum();

private:
    ResourceFolder m_folder;
};

void VelaLabelTest::initTestCase()
{
    installSheets(m_folder, Sheets);
}

void VelaLabelTest::itHasTheScaledSheetOfItsKey()
{
    LogCapture log;
    const QString sheet = QStringLiteral("\nQLabel { color: blue; background: yellow; padding: %1px; font-size: %2px }")
                              .arg(expectedPixels(5))
                              .arg(expectedPixels(13));
    QCOMPARE(VelaLabel().styleSheet(), sheet);
    QCOMPARE(VelaLabel(LongText).styleSheet(), sheet);
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaLabelTest::itPassesItsArgumentsOn()
{
    QWidget parent;
    const VelaLabel empty(&parent, Qt::Tool);
    QCOMPARE(empty.parentWidget(), &parent);
    QCOMPARE(empty.windowFlags() & Qt::WindowType_Mask, Qt::Tool);
    QCOMPARE(empty.text(), QString());

    const VelaLabel label(LongText, &parent, Qt::SplashScreen);
    QCOMPARE(label.parentWidget(), &parent);
    QCOMPARE(label.windowFlags() & Qt::WindowType_Mask, Qt::SplashScreen);
    QCOMPARE(label.text(), LongText);
}

void VelaLabelTest::argumentsMayBeLeftOut()
{
    QWidget parent;
    QVERIFY(!VelaLabel().parent());
    QVERIFY(!VelaLabel(LongText).parent());
    const VelaLabel empty(&parent);
    const VelaLabel label(LongText, &parent);
    QVERIFY(!empty.isWindow());
    QVERIFY(!label.isWindow());
}

void VelaLabelTest::allElseIsAsInItsBase()
{
    QWidget parent;
    const VelaLabel label(LongText, &parent);
    QLabel plain(LongText, &parent);
    plain.setStyleSheet(label.styleSheet());
    QCOMPARE(differingProperties(QLabel::staticMetaObject, label, plain), QStringList());
    plain.setOpenExternalLinks(true);
    QCOMPARE(differingProperties(QLabel::staticMetaObject, label, plain),
             QStringList {QStringLiteral("openExternalLinks")});
}

void VelaLabelTest::itLooksLikeItsBaseWithTheSameSheet()
{
    ControlWindow window(new VelaLabel(LongText));
    auto *plain = new QLabel(LongText);
    plain->setStyleSheet(window.control->styleSheet());
    ControlWindow plainWindow(plain);
    window.show();
    plainWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(QTest::qWaitForWindowExposed(&plainWindow));
    QCOMPARE(window.control->grab().toImage(), plain->grab().toImage());
    QCOMPARE(paintedColor(window.control, QPoint(1, 1)), QColor(Qt::yellow));
}

void VelaLabelTest::itsMinimumHeightFollowsItsWidth_data()
{
    QTest::addColumn<int>("width");
    for (int width : {2000, 600, 333, 200, 150, 90, 40}) {
        QTest::newRow(qPrintable(QString::number(width))) << width;
    }
}

void VelaLabelTest::itsMinimumHeightFollowsItsWidth()
{
    QFETCH(int, width);
    Shown<LabelWindow> window;
    window.label.resize(width, 10);
    QCOMPARE(window.label.width(), width);
    QCOMPARE(window.label.minimumHeight(), neededHeight(window.label, width));
    QVERIFY(window.label.height() >= window.label.minimumHeight());
}

void VelaLabelTest::itGrowsAsItNarrowsAndShrinksAsItWidens()
{
    Shown<LabelWindow> window;
    const QVector<int> widths {600, 400, 250, 150, 100, 150, 250, 400, 600};
    QVector<int> heights;
    for (int width : widths) {
        window.label.resize(width, 1);
        heights.append(window.label.minimumHeight());
        QCOMPARE(heights.last(), neededHeight(window.label, width));
    }
    for (int i = 1; i < heights.size(); ++i) {
        QCOMPARE(heights[i] > heights[i - 1], widths[i] < widths[i - 1]);
        QVERIFY(heights[i] != heights[i - 1]);
    }
}

void VelaLabelTest::itTakesTheNeededHeightInALayout()
{
    LabelWindow window;
    VelaLabel *label = &window.label;
    window.layOut();
    EventCounter resizes(label, QEvent::Resize);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (int width : {500, 200, 350}) {
        window.resize(width, 600);
        QTRY_COMPARE(window.width(), width);
        QTRY_COMPARE(label->minimumHeight(), neededHeight(*label, label->width()));
        QVERIFY(label->height() >= label->minimumHeight());
    }
    QTest::qWait(50);
    resizes.take();
    QTest::qWait(50);
    QCOMPARE(resizes.take(), 0); // label and layout agree
}

void VelaLabelTest::otherwiseTheMinimumHeightIsLeftAlone_data()
{
    QTest::addColumn<bool>("wrapsWords");
    QTest::addColumn<int>("policy");
    QTest::newRow("the defaults") << false << int(QSizePolicy::Preferred);
    QTest::newRow("minimum, no wrapping") << false << int(QSizePolicy::Minimum);
    QTest::newRow("preferred") << true << int(QSizePolicy::Preferred);
    QTest::newRow("fixed") << true << int(QSizePolicy::Fixed);
    QTest::newRow("maximum") << true << int(QSizePolicy::Maximum);
    QTest::newRow("expanding") << true << int(QSizePolicy::Expanding);
    QTest::newRow("minimum expanding") << true << int(QSizePolicy::MinimumExpanding);
    QTest::newRow("ignored") << true << int(QSizePolicy::Ignored);
}

void VelaLabelTest::otherwiseTheMinimumHeightIsLeftAlone()
{
    QFETCH(bool, wrapsWords);
    QFETCH(int, policy);
    for (int minimum : {0, 5}) {
        LabelWindow window;
        window.label.setWordWrap(wrapsWords);
        window.label.setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Policy(policy));
        window.label.setMinimumHeight(minimum);
        QVERIFY(window.showAndWait());
        for (int width : {400, 100, 300}) {
            window.label.resize(width, 20);
            QCOMPARE(window.label.minimumHeight(), minimum);
            QCOMPARE(window.label.height(), 20);
        }
    }
}

void VelaLabelTest::theHorizontalPolicyDoesNotMatter_data()
{
    QTest::addColumn<int>("policy");
    QTest::newRow("fixed") << int(QSizePolicy::Fixed);
    QTest::newRow("minimum") << int(QSizePolicy::Minimum);
    QTest::newRow("expanding") << int(QSizePolicy::Expanding);
    QTest::newRow("ignored") << int(QSizePolicy::Ignored);
}

void VelaLabelTest::theHorizontalPolicyDoesNotMatter()
{
    QFETCH(int, policy);
    LabelWindow window;
    window.label.setSizePolicy(QSizePolicy::Policy(policy), QSizePolicy::Minimum);
    QVERIFY(window.showAndWait());
    window.label.resize(150, 10);
    QCOMPARE(window.label.minimumHeight(), neededHeight(window.label, 150));
}

void VelaLabelTest::aMinimumHeightOfTheCallersIsReplaced()
{
    Shown<LabelWindow> window;
    window.label.setMinimumHeight(400);
    window.label.resize(300, 450);
    QCOMPARE(window.label.minimumHeight(), neededHeight(window.label, 300));
    QCOMPARE(window.label.height(), 450);
}

void VelaLabelTest::aNewTextCountsAtTheNextResize()
{
    Shown<LabelWindow> window;
    window.label.resize(150, 10);
    const int before = window.label.minimumHeight();
    window.label.setText(QStringLiteral("short"));
    QCOMPARE(window.label.minimumHeight(), before);
    window.label.resize(151, 10);
    QVERIFY(window.label.minimumHeight() < before);
    QCOMPARE(window.label.minimumHeight(), neededHeight(window.label, 151));
}

void VelaLabelTest::withoutItsMinimumItShrinksForAShorterText()
{
    LabelWindow window;
    VelaLabel *label = &window.label;
    window.layOut();
    window.resize(200, 600);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTRY_COMPARE(label->height(), neededHeight(*label, label->width()));
    const int before = label->height();

    label->setText(QStringLiteral("short"));
    QCoreApplication::processEvents();
    QCOMPARE(label->height(), before);
    label->setMinimumHeight(0);
    QTRY_COMPARE(label->height(), neededHeight(*label, label->width()));
    QVERIFY(label->height() < before);
    QCOMPARE(label->minimumHeight(), label->height());
}

void VelaLabelTest::aLabelWithoutATextNeedsNoHeight_data()
{
    QTest::addColumn<QSize>("pictureSize");
    QTest::newRow("empty") << QSize();
    QTest::newRow("with a picture") << QSize(20, 300);
}

void VelaLabelTest::aLabelWithoutATextNeedsNoHeight()
{
    QFETCH(QSize, pictureSize);
    QWidget window;
    VelaLabel label(&window);
    label.setWordWrap(true);
    label.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    if (pictureSize.isValid()) {
        QPixmap picture(pictureSize);
        picture.fill(Qt::red);
        label.setPixmap(picture);
    }
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    label.setMinimumHeight(7);
    LogCapture log;
    label.resize(150, 30);
    QCOMPARE(label.minimumHeight(), 0);
    QCOMPARE(log.takeTexts(), QStringList()); // the toolkit complains of negative sizes
}

void VelaLabelTest::whatIsSwitchedOffLaterLeavesTheLastMinimum()
{
    Shown<LabelWindow> window;
    window.label.resize(150, 10);
    const int before = window.label.minimumHeight();
    window.label.setWordWrap(false);
    window.label.resize(300, 10);
    QCOMPARE(window.label.minimumHeight(), before);
}

QTEST_MAIN(VelaLabelTest)
#include "tst_vela_label.moc"
