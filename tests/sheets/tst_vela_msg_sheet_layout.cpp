// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/message-sheet-test.h"

using Change = void (*)(VelaMessageSheet &);
Q_DECLARE_METATYPE(Change)

class VelaMessageSheetLayoutTest : public MessageSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { setUp(); }
    void cleanup() { restoreStyle(); }

    void aMessageLabelIsAsHighAsItsTextNeeds_data();
    void aMessageLabelIsAsHighAsItsTextNeeds();
    void aMessageLabelKeepsItsHeight();
    void aMessageLabelGrowsAsItNarrows();
    void anEmptyMessageLabelHasNoHeight();

    void theBoxStyleAnswersTheLayoutItself();
    void theBoxStylePassesEveryOtherHintOn();
    void theBoxStyleIsBasedOnTheApplications();
    void buttonsComeInTheSameOrderInEveryStyle_data();
    void buttonsComeInTheSameOrderInEveryStyle();
    void aPlainBoxFollowsTheApplicationsStyle();
    void aSheetThatComesToItsMaskTellsItsButtonsNoMoreThanItsTexts();
    void theOrderOfTheButtonsIsThatOfTheWindowThatTheSheetComesTo();

    void theWidthFollowsThatOfTheParent();
    void theWidthAtItsLimits_data();
    void theWidthAtItsLimits();
    void theWidthIsTakenAnewWithEachLayout();

    void theLayoutHasWhatTheSheetHas_data();
    void theLayoutHasWhatTheSheetHas();
    void marginsAndSpacingsAreScaled();
    void theSheetIsFixedInWidthAndAtMostAsHighAsNeeded();
    void everyLayoutAdjustsTheHeight();
    void theIconStaysSmall();
    void everyChangeMakesOneNewLayout_data();
    void everyChangeMakesOneNewLayout();
    void theShownSheetIsLaidOutToThePixel_data();
    void theShownSheetIsLaidOutToThePixel();
    void aShownSheetFollowsItsTexts();
    void linesHaveTheScaledHeight();

    void theTextIsWrappedAndScaled_data();
    void theTextIsWrappedAndScaled();
    void theTextLabelIsSetUpForReading();
    void theTextIsReplacedInItsLabel();
    void theInformativeTextIsWrappedAndScaled_data() { theTextIsWrappedAndScaled_data(); }
    void theInformativeTextIsWrappedAndScaled();
    void theInformativeLabelIsSetUpForReading();
    void theInformativeLabelTakesItsInteractionFromTheStyle_data();
    void theInformativeLabelTakesItsInteractionFromTheStyle();
    void aSecondInformativeTextKeepsTheLabel();
    void anEmptyInformativeTextRemovesLabelAndSpacing();
    void anEmptyInformativeTextWithoutALabelDoesNothing();
    void anInformativeTextAfterAnEmptyOneMakesANewLabel();
    void anInformativeTextSetWhileShownAppears();
};

void VelaMessageSheetLayoutTest::aMessageLabelIsAsHighAsItsTextNeeds_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a word") << QStringLiteral("<p>word</p>");
    QTest::newRow("many words") << QStringLiteral("<p>%1</p>").arg(manyWords(60));
    QTest::newRow("paragraphs") << QStringLiteral("<p>%1</p><p><b>%1</b></p>").arg(manyWords(20));
    QTest::newRow("line height") << QStringLiteral("<p style='line-height: 24px;'>%1</p>").arg(manyWords(40));
    QTest::newRow("plain") << manyWords(50);
}

void VelaMessageSheetLayoutTest::aMessageLabelIsAsHighAsItsTextNeeds()
{
    QFETCH(QString, text);
    QWidget parent; // a parent gives its child the first size when that is shown
    parent.show();
    QLabel reference;
    reference.setWordWrap(true);
    reference.setText(text);
    for (int width = 500; width >= 60; width -= 20) {
        MessageLabel label(&parent);
        label.setWordWrap(true);
        label.setText(text);
        label.resize(width, 7);
        label.show();
        QCOMPARE(label.size(), QSize(width, reference.heightForWidth(width)));
        QCOMPARE(label.minimumHeight(), label.height());
        QCOMPARE(label.maximumHeight(), label.height());
        QCOMPARE(label.minimumWidth(), 0);
        QCOMPARE(label.maximumWidth(), QWIDGETSIZE_MAX);
    }
}

void VelaMessageSheetLayoutTest::aMessageLabelKeepsItsHeight()
{
    QWidget parent;
    parent.show();
    MessageLabel label(&parent);
    label.setWordWrap(true);
    label.setText(manyWords(40));
    label.resize(200, 10);
    label.show();
    const int height = label.height();
    QVERIFY(height > 10);
    label.resize(200, 3 * height);
    QCOMPARE(label.height(), height);
}

void VelaMessageSheetLayoutTest::aMessageLabelGrowsAsItNarrows()
{
    QWidget parent;
    parent.show();
    MessageLabel label(&parent);
    label.setWordWrap(true);
    label.setText(QStringLiteral("<p>%1</p>").arg(manyWords(40)));
    label.resize(500, 10);
    label.show();
    QLabel reference;
    reference.setWordWrap(true);
    reference.setText(label.text());
    for (int width = 500; width >= 60; width -= 20) {
        label.resize(width, 10);
        QCOMPARE(label.height(), reference.heightForWidth(width));
    }
}

void VelaMessageSheetLayoutTest::anEmptyMessageLabelHasNoHeight()
{
    QWidget parent;
    parent.show();
    MessageLabel label(&parent);
    label.show();
    const LogCapture log;
    label.resize(200, 50);
    QCOMPARE(label.height(), 0);
    QCOMPARE(label.maximumHeight(), 0);
}

void VelaMessageSheetLayoutTest::theBoxStyleAnswersTheLayoutItself()
{
    DialogButtonBoxStyle style;
    style.setBaseStyle(new AskedStyle);
    QCOMPARE(style.styleHint(QStyle::SH_DialogButtonLayout), 0);
    const QDialogButtonBox box;
    const QStyleOption option;
    QCOMPARE(style.styleHint(QStyle::SH_DialogButtonLayout, &option, &box),
             static_cast<int>(QDialogButtonBox::WinLayout));
}

void VelaMessageSheetLayoutTest::theBoxStylePassesEveryOtherHintOn()
{
    DialogButtonBoxStyle style;
    auto *base = new AskedStyle;
    style.setBaseStyle(base);
    const QStyleOption option;
    const QWidget widget;
    QStyleHintReturn returnData;
    for (uint i = 0; i <= QStyle::SH_SpinBox_StepModifier; ++i) {
        const auto hint = static_cast<QStyle::StyleHint>(i);
        if (hint != QStyle::SH_DialogButtonLayout) {
            QCOMPARE(style.styleHint(hint, &option, &widget, &returnData), AskedStyle::answer(hint));
            QCOMPARE(base->lastOption, &option);
            QCOMPARE(base->lastWidget, &widget);
            QCOMPARE(base->lastReturnData, &returnData);
            QCOMPARE(style.styleHint(hint), AskedStyle::answer(hint));
            QVERIFY(!base->lastOption && !base->lastWidget && !base->lastReturnData);
        }
    }
}

void VelaMessageSheetLayoutTest::theBoxStyleIsBasedOnTheApplications()
{
    const DialogButtonBoxStyle style;
    QCOMPARE(style.baseStyle()->metaObject()->className(), QApplication::style()->metaObject()->className());
}

void VelaMessageSheetLayoutTest::buttonsComeInTheSameOrderInEveryStyle_data()
{
    QTest::addColumn<QString>("styleName"); // empty for the usual style
    QTest::addColumn<int>("layout"); // layout that the application's style asks for, -1 for its own

    const QStringList names = QStyleFactory::keys();
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << name << -1;
    }
    for (int layout = QDialogButtonBox::WinLayout; layout <= QDialogButtonBox::AndroidLayout; ++layout) {
        QTest::addRow("layout %d", layout) << QString() << layout;
    }
}

void VelaMessageSheetLayoutTest::buttonsComeInTheSameOrderInEveryStyle()
{
    QFETCH(QString, styleName);
    QFETCH(int, layout);
    if (layout == -1) {
        QApplication::setStyle(styleName);
    } else {
        QApplication::setStyle(new HintStyle(QStyle::SH_DialogButtonLayout, layout));
    }
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    sheet.setMessageType(VelaMessageSheet::QuestionMessage);
    sheet.showSheet();
    const QDialogButtonBox *box = Parts(sheet).box;
    QCOMPARE(box->style()->styleHint(QStyle::SH_DialogButtonLayout, nullptr, box), 0);
    const QPushButton *ok = sheet.button(QMessageBox::Ok);
    const QPushButton *cancel = sheet.button(QMessageBox::Discard);
    QVERIFY(ok->geometry().right() < cancel->geometry().left());
    QCOMPARE(ok->y(), cancel->y());
    QCOMPARE(cancel->geometry().right(), box->rect().right());
}

void VelaMessageSheetLayoutTest::aPlainBoxFollowsTheApplicationsStyle()
{
    QApplication::setStyle(new HintStyle(QStyle::SH_DialogButtonLayout, QDialogButtonBox::GnomeLayout));
    QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Discard);
    box.show();
    QVERIFY(box.button(QDialogButtonBox::Discard)->x() < box.button(QDialogButtonBox::Ok)->x());
}

void VelaMessageSheetLayoutTest::aSheetThatComesToItsMaskTellsItsButtonsNoMoreThanItsTexts()
{
    QWidget window;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &window);
    EventCounter ofText(Parts(sheet).text, QEvent::StyleChange);
    EventCounter ofOk(sheet.button(QMessageBox::Ok), QEvent::StyleChange);
    VelaMask::createMask(&sheet, &window, Qt::black);
    const int times = ofText.take();
    QVERIFY(times > 0);
    QCOMPARE(ofOk.take(), times);
}

void VelaMessageSheetLayoutTest::theOrderOfTheButtonsIsThatOfTheWindowThatTheSheetComesTo()
{
    QWidget window;
    QWidget otherWindow;
    otherWindow.setStyleSheet(
        QStringLiteral("QDialogButtonBox { button-layout: %1 }").arg(QDialogButtonBox::GnomeLayout));
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &window);
    const auto isOkFirst = [&sheet] {
        sheet.window()->show();
        sheet.show();
        return sheet.button(QMessageBox::Ok)->x() < sheet.button(QMessageBox::Discard)->x();
    };
    QVERIFY(isOkFirst());
    VelaMask::createMask(&sheet, &otherWindow, Qt::black);
    QVERIFY(!isOkFirst());
    VelaMask::createMask(&sheet, &window, Qt::black);
    QVERIFY(isOkFirst());
}

void VelaMessageSheetLayoutTest::theWidthFollowsThatOfTheParent()
{
    // Widths are in ninety-sixths of a pixel, so that nothing is rounded.
    const int dpi = qRound(96 * expectedScale());
    const auto preferred = [dpi](int parentWidth) {
        const int width = 96 * parentWidth;
        if (width == 540 * dpi) {
            return 480;
        }
        return width > 580 * dpi ? 540 : (width - 40 * dpi) / dpi;
    };
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    for (int width = expectedPixels(300); width <= expectedPixels(700); ++width) {
        host.resize(width, 100);
        sheet.setIcon(QPixmap());
        const int expected = preferred(width) * dpi / 96;
        QVERIFY2(sheet.minimumWidth() == expected && sheet.maximumWidth() == expected && sheet.width() == expected,
                 qPrintable(QStringLiteral("%1 in %2, not %3").arg(sheet.width()).arg(width).arg(expected)));
    }
}

void VelaMessageSheetLayoutTest::theWidthAtItsLimits_data()
{
    QTest::addColumn<int>("parentWidth");
    QTest::addColumn<int>("width");
    const int widths[][2] = {{300, 260}, {480, 440}, {520, 480}, {539, 499}, {540, 480}, {544, 504},
                             {560, 520}, {576, 536}, {580, 540}, {584, 540}, {600, 540}, {4000, 540}};
    for (const auto &row : widths) {
        QTest::addRow("%d", row[0]) << row[0] << row[1];
    }
}

void VelaMessageSheetLayoutTest::theWidthAtItsLimits()
{
    QFETCH(int, parentWidth);
    QFETCH(int, width);
    Host host(parentWidth);
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    // A parent that cannot have this width is a part of a logical pixel narrower.
    const bool isWhole = host.width() == parentWidth * expectedScale();
    QCOMPARE(sheet.width(), expectedPixels(isWhole ? width : width - 1));
}

void VelaMessageSheetLayoutTest::theWidthIsTakenAnewWithEachLayout()
{
    Host host(500);
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    host.resize(expectedPixels(440), 100);
    QCOMPARE(sheet.width(), expectedPixels(460));
    sheet.setText(QStringLiteral("text"));
    QCOMPARE(sheet.width(), expectedPixels(400));
}

void VelaMessageSheetLayoutTest::theLayoutHasWhatTheSheetHas_data()
{
    QTest::addColumn<bool>("icon");
    QTest::addColumn<bool>("informative");
    QTest::addColumn<bool>("buttons");
    for (int i = 0; i < 8; ++i) {
        QTest::addRow("%s, %s, %s", i & 1 ? "icon" : "no icon", i & 2 ? "informative" : "not informative",
                      i & 4 ? "buttons" : "no buttons")
            << bool(i & 1) << bool(i & 2) << bool(i & 4);
    }
}

void VelaMessageSheetLayoutTest::theLayoutHasWhatTheSheetHas()
{
    QFETCH(bool, icon);
    QFETCH(bool, informative);
    QFETCH(bool, buttons);
    Host host;
    VelaMessageSheet sheet(buttons ? VelaMessageSheet::QuestionMessage : VelaMessageSheet::AppMessage,
                           QStringLiteral("text"), informative ? QStringLiteral("more") : QString(), &host);
    if (!icon) {
        sheet.setIcon(QPixmap());
    }

    QString expected = QStringLiteral("text");
    if (informative) {
        expected += QStringLiteral(" %1 informative").arg(expectedPixels(InformativeSpacing));
    }
    expected = QStringLiteral("column(%1)").arg(expected);
    if (icon) {
        expected = QStringLiteral("icon^ %1 ").arg(expectedPixels(IconSpacing)) + expected;
    }
    expected = QStringLiteral("row(%1)").arg(expected);
    if (buttons) {
        expected += QStringLiteral(" %1 buttons").arg(expectedPixels(ButtonSpacing));
    }
    QCOMPARE(outline(sheet.layout(), Parts(sheet)), QStringLiteral("column(%1)").arg(expected));
}

void VelaMessageSheetLayoutTest::marginsAndSpacingsAreScaled()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), QStringLiteral("more"),
                                 &host);
    const int margin = expectedPixels(Margin);
    const auto *outer = qobject_cast<QVBoxLayout *>(sheet.layout());
    QVERIFY(outer);
    QCOMPARE(outer->contentsMargins(), QMargins(margin, margin, margin, margin));
    QCOMPARE(outer->spacing(), 0);
    const auto *row = qobject_cast<QHBoxLayout *>(outer->itemAt(0)->layout());
    QVERIFY(row);
    QCOMPARE(row->contentsMargins(), QMargins());
    QCOMPARE(row->spacing(), 0);
    const auto *texts = qobject_cast<QVBoxLayout *>(row->itemAt(row->count() - 1)->layout());
    QVERIFY(texts);
    QCOMPARE(texts->contentsMargins(), QMargins(0, 0, 0, expectedPixels(TextBottomMargin)));
    QCOMPARE(texts->spacing(), 0);
}

void VelaMessageSheetLayoutTest::theSheetIsFixedInWidthAndAtMostAsHighAsNeeded()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    QCOMPARE(sheet.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(sheet.sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
}

void VelaMessageSheetLayoutTest::everyLayoutAdjustsTheHeight()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    const int height = sheet.height();
    QCOMPARE(height, sheet.sizeHint().height());
    sheet.resize(sheet.width(), 7);
    sheet.setText(manyWords(180));
    QVERIFY(sheet.height() > height);
    QCOMPARE(sheet.height(), sheet.sizeHint().height());
}

void VelaMessageSheetLayoutTest::theIconStaysSmall()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    const QSizePolicy policy = Parts(sheet).icon->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Maximum);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Maximum);
}

void VelaMessageSheetLayoutTest::everyChangeMakesOneNewLayout_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("text") << Change([](VelaMessageSheet &sheet) { sheet.setText(QStringLiteral("new")); });
    QTest::newRow("informative text") << Change(
        [](VelaMessageSheet &sheet) { sheet.setInformativeText(QStringLiteral("new")); });
    QTest::newRow("no informative text") << Change(
        [](VelaMessageSheet &sheet) { sheet.setInformativeText(QString()); });
    QTest::newRow("icon") << Change([](VelaMessageSheet &sheet) { sheet.setIcon(picture(16)); });
    QTest::newRow("type") << Change(
        [](VelaMessageSheet &sheet) { sheet.setMessageType(VelaMessageSheet::QuestionMessage); });
}

void VelaMessageSheetLayoutTest::everyChangeMakesOneNewLayout()
{
    QFETCH(Change, change);
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    const QPointer<QLayout> before(sheet.layout());
    change(sheet);
    QVERIFY(!before);
    QVERIFY(sheet.layout());
    QCOMPARE(sheet.findChildren<QLayout *>(QString(), Qt::FindDirectChildrenOnly).count(), 1);
    QCOMPARE(Parts(sheet).text->parentWidget(), &sheet);
}

void VelaMessageSheetLayoutTest::theShownSheetIsLaidOutToThePixel_data()
{
    QTest::addColumn<int>("words");
    QTest::addColumn<int>("informativeWords");
    QTest::newRow("a word") << 1 << 0;
    QTest::newRow("a word and another") << 1 << 1;
    QTest::newRow("many words") << 90 << 0;
    QTest::newRow("many words and more") << 60 << 70;
    QTest::newRow("a word and many") << 1 << 90;
}

void VelaMessageSheetLayoutTest::theShownSheetIsLaidOutToThePixel()
{
    QFETCH(int, words);
    QFETCH(int, informativeWords);
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, manyWords(words), manyWords(informativeWords), &host);
    QWidget *mask = VelaMask::createMask(&sheet, &host, QColor(0, 0, 0, 20));
    QVERIFY(mask);
    sheet.showSheet();

    const Parts parts(sheet);
    const int edge = expectedPixels(Shadow) + expectedPixels(Margin);
    const int iconSize = expectedImageSize(QSize(IconFileSize, IconFileSize)).width() / expectedRatio();
    const QRect icon(edge, edge, iconSize, iconSize);
    QTRY_COMPARE(parts.icon->geometry(), icon);

    const int textLeft = edge + iconSize + expectedPixels(IconSpacing);
    const int textWidth = expectedPixels(540) - edge - textLeft;
    const auto place = [&](const QLabel *label, int top) {
        QLabel reference;
        reference.setWordWrap(true);
        reference.setText(label->text());
        reference.setFont(label->font());
        return QRect(textLeft, top, textWidth, reference.heightForWidth(textWidth));
    };
    const QRect text = place(parts.text, edge);
    int bottom = text.y() + text.height();
    if (informativeWords == 0) {
        QVERIFY(!parts.informative);
    } else {
        const QRect informative = place(parts.informative, bottom + expectedPixels(InformativeSpacing));
        QTRY_COMPARE(parts.informative->geometry(), informative);
        bottom = informative.y() + informative.height();
    }
    bottom = qMax(bottom + expectedPixels(TextBottomMargin), edge + iconSize);
    const int boxHeight = parts.box->sizeHint().height();
    const QRect box(edge, bottom + expectedPixels(ButtonSpacing), expectedPixels(540) - 2 * edge, boxHeight);
    QTRY_COMPARE(parts.box->geometry(), box);
    QCOMPARE(sheet.size(), QSize(expectedPixels(540), box.y() + box.height() + edge));
    QCOMPARE(parts.text->width(), text.width());
    QCOMPARE(parts.text->height(), text.height());
}

void VelaMessageSheetLayoutTest::aShownSheetFollowsItsTexts()
{
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, manyWords(60), &host);
    VelaMask::createMask(&sheet, &host, QColor(0, 0, 0, 20));
    sheet.showSheet();
    QCoreApplication::processEvents();
    const int height = sheet.height();

    sheet.setText(manyWords(180));
    QTRY_VERIFY(sheet.height() > height);
    const MessageLabel *text = Parts(sheet).text;
    QTRY_COMPARE(text->height(), text->heightForWidth(text->width()));

    sheet.setText(manyWords(60));
    QTRY_COMPARE(sheet.height(), height);
}

void VelaMessageSheetLayoutTest::linesHaveTheScaledHeight()
{
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    VelaMask::createMask(&sheet, &host, QColor(0, 0, 0, 20));
    sheet.showSheet();
    const auto heights = [&sheet](const QString &text) {
        sheet.setText(text);
        sheet.setInformativeText(text);
        QCoreApplication::processEvents();
        const Parts parts(sheet);
        return QSize(parts.text->height(), parts.informative->height());
    };
    const QSize one = heights(QStringLiteral("a"));
    const QSize three = heights(QStringLiteral("a<br>b<br>c"));
    QCOMPARE(three - one, 2 * QSize(expectedPixels(24), expectedPixels(20)));
}

void VelaMessageSheetLayoutTest::theTextIsWrappedAndScaled_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("plain") << QStringLiteral("text") << QStringLiteral("text");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("rich") << QStringLiteral("<b>a</b> <a href='b'>c</a>")
                          << QStringLiteral("<b>a</b> <a href='b'>c</a>");
    QTest::newRow("a place marker") << QStringLiteral("%1 of %2") << QStringLiteral("%1 of %2");
    QTest::newRow("a length") << QStringLiteral("<img width='20px'>")
                              << QStringLiteral("<img width='%1px'>").arg(expectedPixels(20));
}

void VelaMessageSheetLayoutTest::theTextIsWrappedAndScaled()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    sheet.setText(text);
    QCOMPARE(Parts(sheet).text->text(), paragraph(24, shown));
}

void VelaMessageSheetLayoutTest::theTextLabelIsSetUpForReading()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    const MessageLabel *label = Parts(sheet).text;
    QVERIFY(label->wordWrap());
    QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignTop));
    QCOMPARE(label->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
    QVERIFY(!label->sizePolicy().hasHeightForWidth());
}

void VelaMessageSheetLayoutTest::theTextIsReplacedInItsLabel()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    const MessageLabel *label = Parts(sheet).text;
    sheet.setText(QStringLiteral("other"));
    QCOMPARE(sheet.findChildren<MessageLabel *>(), QList<MessageLabel *> {const_cast<MessageLabel *>(label)});
    QCOMPARE(label->text(), paragraph(24, QStringLiteral("other")));
}

void VelaMessageSheetLayoutTest::theInformativeTextIsWrappedAndScaled()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    sheet.setInformativeText(text);
    const MessageLabel *label = Parts(sheet).informative;
    QCOMPARE(label != nullptr, !text.isEmpty());
    if (label) {
        QCOMPARE(label->text(), paragraph(20, shown));
    }
}

void VelaMessageSheetLayoutTest::theInformativeLabelIsSetUpForReading()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    const MessageLabel *label = Parts(sheet).informative;
    QVERIFY(label->wordWrap());
    QVERIFY(label->openExternalLinks());
    QCOMPARE(label->alignment(), Qt::AlignTop | Qt::AlignLeft);
    QCOMPARE(label->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
    QVERIFY(label->sizePolicy().hasHeightForWidth());
}

void VelaMessageSheetLayoutTest::theInformativeLabelTakesItsInteractionFromTheStyle_data()
{
    QTest::addColumn<Qt::TextInteractionFlags>("flags");
    QTest::newRow("none") << Qt::TextInteractionFlags(Qt::NoTextInteraction);
    QTest::newRow("links") << Qt::TextInteractionFlags(Qt::LinksAccessibleByMouse);
    QTest::newRow("selection") << (Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void VelaMessageSheetLayoutTest::theInformativeLabelTakesItsInteractionFromTheStyle()
{
    QFETCH(Qt::TextInteractionFlags, flags);
    QApplication::setStyle(new HintStyle(QStyle::SH_MessageBox_TextInteractionFlags, int(flags)));
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    const MessageLabel *label = Parts(sheet).informative;
    QCOMPARE(label->textInteractionFlags(), flags);
    QCOMPARE(label->focusPolicy(), Qt::StrongFocus);
}

void VelaMessageSheetLayoutTest::aSecondInformativeTextKeepsTheLabel()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    MessageLabel *label = Parts(sheet).informative;
    label->setWordWrap(false);
    sheet.setInformativeText(QStringLiteral("less"));
    deleteWhatIsForgotten();
    QVERIFY(!label->wordWrap());
    QCOMPARE(Parts(sheet).informative, label);
    QCOMPARE(sheet.findChildren<MessageLabel *>().count(), 2);
    QCOMPARE(label->text(), paragraph(20, QStringLiteral("less")));
}

void VelaMessageSheetLayoutTest::anEmptyInformativeTextRemovesLabelAndSpacing()
{
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    sheet.showSheet();
    const QPointer<MessageLabel> label(Parts(sheet).informative);
    QVERIFY(label->isVisible());
    sheet.setInformativeText(QString());
    QVERIFY(label); // a label that is in the middle of an event is not deleted yet
    QVERIFY(label->isHidden());
    deleteWhatIsForgotten();
    QVERIFY(!label);

    const VelaMessageSheet plain(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    QCOMPARE(outline(sheet.layout(), Parts(sheet)), outline(plain.layout(), Parts(plain)));
}

void VelaMessageSheetLayoutTest::anEmptyInformativeTextWithoutALabelDoesNothing()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    const QString before = outline(sheet.layout(), Parts(sheet));
    sheet.setInformativeText(QString());
    sheet.setInformativeText(QLatin1String(""));
    QCOMPARE(outline(sheet.layout(), Parts(sheet)), before);
    QCOMPARE(sheet.findChildren<MessageLabel *>().count(), 1);
}

void VelaMessageSheetLayoutTest::anInformativeTextAfterAnEmptyOneMakesANewLabel()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    const QPointer<MessageLabel> first(Parts(sheet).informative);
    sheet.setInformativeText(QString());
    sheet.setInformativeText(QStringLiteral("again"));
    QVERIFY(first);
    deleteWhatIsForgotten();
    QVERIFY(!first);
    QVERIFY(Parts(sheet).informative);
    QCOMPARE(Parts(sheet).informative->text(), paragraph(20, QStringLiteral("again")));
    QVERIFY(outline(sheet.layout(), Parts(sheet)).contains(QLatin1String("informative")));
}

void VelaMessageSheetLayoutTest::anInformativeTextSetWhileShownAppears()
{
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    VelaMask::createMask(&sheet, &host, QColor(0, 0, 0, 20));
    sheet.showSheet();
    sheet.setInformativeText(QStringLiteral("more"));
    QTRY_VERIFY(Parts(sheet).informative->isVisible());
    QTRY_VERIFY(Parts(sheet).informative->y() > Parts(sheet).text->geometry().bottom());
}

QTEST_MAIN(VelaMessageSheetLayoutTest)

#include "tst_vela_msg_sheet_layout.moc"
