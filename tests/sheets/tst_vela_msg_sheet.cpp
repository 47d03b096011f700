// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/message-sheet-test.h"

class VelaMessageSheetTest : public MessageSheetTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { setUp(); }
    void cleanup() { restoreStyle(); }

    void theTypesAreKnownByName();
    void gettersGiveBackWhatWasSet();
    void theMethodsAreSlots();
    void theHelpersDeclareNothing();
    void captionsAreKeptInTheirOrder();

    void theTypeDecidesIconButtonsAndSheet_data();
    void theTypeDecidesIconButtonsAndSheet();
    void valuesOutsideHaveNeitherIconNorButtons_data();
    void valuesOutsideHaveNeitherIconNorButtons();
    void captionsComeFromTheCallerOrFromTheTexts_data();
    void captionsComeFromTheCallerOrFromTheTexts();

    void aSheetOfATypeHasAnEmptyText();
    void aSheetWithATextShowsIt();
    void aSheetWithBothTextsShowsThem();
    void anEmptyInformativeTextInTheConstructorMakesNoLabel();
    void everyConstructorTakesTheParent();
    void withoutAParentTheSheetHasTheMinimumWidth();

    void theProcessingSheetHasAMovieInPlaceOfAPicture();
    void theMovieIsScaled();
    void aMovieWithoutAFileStillTakesItsPlace();
    void theMovieLivesThroughNewTextsAndTypes();
    void thePictureOfANewTypeReplacesTheMovie();
    void theMovieMayBeDeletedBeforeTheSheet();

    void buttonsHaveFixedHeightAndMinimumWidth();
    void buttonsHaveTheirSheets();
    void theTextHasItsSheetFromTheStart();
    void theInformativeTextHasNoSheetBeforeTheNextType();
    void labelsAndButtonsAreWatched();
    void theInformativeLabelIsNotWatchedBeforeTheNextType();

    void anIconIsShownAndLaidOut();
    void aNullIconTakesNoPlace();
    void aNewTypeSetsEverythingUpAnew();
    void aTextWithoutButtonsTakesAllClicksOnIt();
    void aNewTypeForgetsCustomCaptions();
    void aNewTypeKeepsTheTexts();
    void aClickAfterNewTypesAnswersOnce_data();
    void aClickAfterNewTypesAnswersOnce();
    void theTypeMayChangeWhileTheAnswerIsReported();

    void buttonsAreFoundByTheirCodes();
};

void VelaMessageSheetTest::theMethodsAreSlots()
{
    const QMetaObject &metaObject = VelaMessageSheet::staticMetaObject;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        QCOMPARE(metaObject.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(metaObject.method(i).access(), QMetaMethod::Public);
    }
}

void VelaMessageSheetTest::theHelpersDeclareNothing()
{
    QCOMPARE(ownDeclarations(MessageLabel::staticMetaObject), QStringList());
    QCOMPARE(MessageLabel::staticMetaObject.superClass(), &QLabel::staticMetaObject);
    QCOMPARE(ownDeclarations(DialogButtonBoxStyle::staticMetaObject), QStringList());
    QCOMPARE(DialogButtonBoxStyle::staticMetaObject.superClass(), &QProxyStyle::staticMetaObject);
}

void VelaMessageSheetTest::captionsAreKeptInTheirOrder()
{
    MsgBoxCustomBtnText captions(QStringLiteral("first"), QStringLiteral("second"));
    QCOMPARE(captions.okText, QStringLiteral("first"));
    QCOMPARE(captions.cancelText, QStringLiteral("second"));

    const MsgBoxCustomBtnText copy = captions;
    captions.okText = QStringLiteral("changed");
    QCOMPARE(copy.okText, QStringLiteral("first"));
}

void VelaMessageSheetTest::theTypeDecidesIconButtonsAndSheet_data()
{
    QTest::addColumn<Type>("type");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("icon");
    QTest::addColumn<QList<int>>("codes");
    QTest::addColumn<QByteArray>("sheet");

    const QByteArray processing = "message_sheet_processing";
    const QByteArray other = "message_sheet_other";
    const QList<int> none;
    const QList<int> ok = {OkCode};
    const QList<int> both = {OkCode, CancelCode};
    QTest::newRow("app") << VelaMessageSheet::AppMessage << 0 << QStringLiteral("app_img") << none << processing;
    QTest::newRow("info") << VelaMessageSheet::InfoMessage << 1 << QStringLiteral("icon_information") << ok << other;
    QTest::newRow("warning") << VelaMessageSheet::WarningMessage << 2 << QStringLiteral("icon_warning") << ok << other;
    QTest::newRow("question") << VelaMessageSheet::QuestionMessage << 3 << QStringLiteral("icon_question") << both
                              << other;
    QTest::newRow("upgrade") << VelaMessageSheet::UpgradeMessage << 4 << QStringLiteral("icon_information") << both
                             << other;
    QTest::newRow("warning question") << VelaMessageSheet::WarningQuestionMessage << 5 << QStringLiteral("icon_warning")
                                      << both << other;
    QTest::newRow("processing") << VelaMessageSheet::ProcessingMessage << 6 << QString() << none << processing;
}

void VelaMessageSheetTest::theTypeDecidesIconButtonsAndSheet()
{
    QFETCH(Type, type);
    QFETCH(QString, icon);
    QFETCH(QByteArray, sheet);
    QTEST(static_cast<int>(type), "value");

    Host host;
    const VelaMessageSheet made(type, &host);
    VelaMessageSheet changed(VelaMessageSheet::ProcessingMessage, &host);
    changed.setMessageType(type);
    VelaMessageSheet changedFromOther(VelaMessageSheet::UpgradeMessage, &host);
    changedFromOther.setMessageType(type);
    for (const VelaMessageSheet *message :
         std::initializer_list<const VelaMessageSheet *> {&made, &changed, &changedFromOther}) {
        const QPixmap pixmap = iconOf(*message);
        QCOMPARE(pixmap.isNull(), icon.isEmpty());
        if (!icon.isEmpty()) {
            QCOMPARE(pixmap.size(), expectedImageSize(QSize(IconFileSize, IconFileSize)));
            QCOMPARE(pixmap.toImage().pixelColor(1, 1), iconColor(icon));
        }
        QTEST(codesOf(*message), "codes");
        QCOMPARE(message->styleSheet().trimmed(), sheetOf(sheet.constData()));
    }
}

void VelaMessageSheetTest::valuesOutsideHaveNeitherIconNorButtons_data()
{
    QTest::addColumn<int>("value");
    for (int value : {-1, 7, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QTest::addRow("%d", value) << value;
    }
}

void VelaMessageSheetTest::valuesOutsideHaveNeitherIconNorButtons()
{
    QFETCH(int, value);
    Host host;
    const VelaMessageSheet made(static_cast<Type>(value), QStringLiteral("text"), &host);
    VelaMessageSheet changed(VelaMessageSheet::WarningQuestionMessage, QStringLiteral("text"), &host);
    changed.setMessageType(static_cast<Type>(value));
    for (const VelaMessageSheet *sheet : std::initializer_list<const VelaMessageSheet *> {&made, &changed}) {
        QVERIFY(iconOf(*sheet).isNull());
        QVERIFY(!Parts(*sheet).icon->movie());
        QCOMPARE(codesOf(*sheet), QList<int>());
        QCOMPARE(sheet->styleSheet().trimmed(), sheetOf("message_sheet_other"));
        QCOMPARE(outline(sheet->layout(), Parts(*sheet)), QStringLiteral("column(row(column(text)))"));
    }
}

void VelaMessageSheetTest::captionsComeFromTheCallerOrFromTheTexts_data()
{
    QTest::addColumn<Type>("type");
    QTest::addColumn<QString>("okText");
    QTest::addColumn<QString>("cancelText");
    QTest::addColumn<QString>("okCaption");
    QTest::addColumn<QString>("cancelCaption"); // null for a sheet without such a button

    struct Kind
    {
        const char *name;
        Type type;
        const char *defaultOk;
        bool hasCancel;
    };
    const Kind kinds[] = {
        {"info", VelaMessageSheet::InfoMessage, "Agree", false},
        {"warning", VelaMessageSheet::WarningMessage, "Agree", false},
        {"question", VelaMessageSheet::QuestionMessage, "Agree", true},
        {"upgrade", VelaMessageSheet::UpgradeMessage, "Renew", true},
        {"warning question", VelaMessageSheet::WarningQuestionMessage, "Agree", true},
    };
    for (const Kind &kind : kinds) {
        for (const char *okText : {"", "Go"}) {
            for (const char *cancelText : {"", "Stay"}) {
                QTest::addRow("%s, \"%s\", \"%s\"", kind.name, okText, cancelText)
                    << kind.type << QString::fromLatin1(okText) << QString::fromLatin1(cancelText)
                    << QString::fromLatin1(*okText ? okText : kind.defaultOk)
                    << (kind.hasCancel ? QString::fromLatin1(*cancelText ? cancelText : "Decline") : QString());
            }
        }
    }
}

void VelaMessageSheetTest::captionsComeFromTheCallerOrFromTheTexts()
{
    QFETCH(Type, type);
    QFETCH(QString, okText);
    QFETCH(QString, cancelText);
    QFETCH(QString, cancelCaption);
    Host host;
    const VelaMessageSheet sheet(type, QStringLiteral("text"), MsgBoxCustomBtnText(okText, cancelText), &host);
    QTEST(sheet.button(QMessageBox::Ok)->text(), "okCaption");
    const QPushButton *cancel = sheet.button(QMessageBox::Discard);
    QCOMPARE(cancel != nullptr, !cancelCaption.isNull());
    if (cancel) {
        QCOMPARE(cancel->text(), cancelCaption);
    }
    if (okText.isEmpty() && cancelText.isEmpty()) {
        const VelaMessageSheet plain(type, QStringLiteral("text"), &host);
        QTEST(plain.button(QMessageBox::Ok)->text(), "okCaption");
    }
}

void VelaMessageSheetTest::aSheetOfATypeHasAnEmptyText()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    const Parts parts(sheet);
    QVERIFY(parts.text);
    QCOMPARE(parts.text->text(), QString());
    QVERIFY(!parts.informative);
    QVERIFY(!sheet.isVisible());
}

void VelaMessageSheetTest::aSheetWithATextShowsIt()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::WarningMessage, QStringLiteral("Mind <b>this</b>"), &host);
    const Parts parts(sheet);
    QCOMPARE(parts.text->text(), paragraph(24, QStringLiteral("Mind <b>this</b>")));
    QVERIFY(!parts.informative);
}

void VelaMessageSheetTest::aSheetWithBothTextsShowsThem()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::WarningMessage, QStringLiteral("Mind this"),
                                 QStringLiteral("It matters"), &host);
    const Parts parts(sheet);
    QCOMPARE(parts.text->text(), paragraph(24, QStringLiteral("Mind this")));
    QVERIFY(parts.informative);
    QCOMPARE(parts.informative->text(), paragraph(20, QStringLiteral("It matters")));
    QCOMPARE(sheet.button(QMessageBox::Ok)->text(), QStringLiteral("Agree"));
}

void VelaMessageSheetTest::anEmptyInformativeTextInTheConstructorMakesNoLabel()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QString(), &host);
    QVERIFY(!Parts(sheet).informative);
}

void VelaMessageSheetTest::everyConstructorTakesTheParent()
{
    Host host(600);
    const QString text = QStringLiteral("text");
    const VelaMessageSheet typed(VelaMessageSheet::InfoMessage, &host);
    const VelaMessageSheet withText(VelaMessageSheet::InfoMessage, text, &host);
    const VelaMessageSheet withTexts(VelaMessageSheet::InfoMessage, text, text, &host);
    const VelaMessageSheet withCaptions(VelaMessageSheet::InfoMessage, text, MsgBoxCustomBtnText(text, text), &host);
    const VelaMessageSheet processing(text, m_movieFile, &host);
    for (const VelaMessageSheet *sheet : {&typed, &withText, &withTexts, &withCaptions, &processing}) {
        QCOMPARE(sheet->parentWidget(), &host);
        QVERIFY(!sheet->isWindow());
        QCOMPARE(sheet->width(), expectedPixels(540));
        QVERIFY(isWatched(Parts(*sheet).text)); // the sheet keeps its window's close button away
    }
}

void VelaMessageSheetTest::withoutAParentTheSheetHasTheMinimumWidth()
{
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"));
    QCOMPARE(sheet.width(), expectedPixels(480));
}

void VelaMessageSheetTest::theProcessingSheetHasAMovieInPlaceOfAPicture()
{
    Host host;
    const VelaMessageSheet sheet(QStringLiteral("Wait"), m_movieFile, &host);
    const Parts parts(sheet);
    const QMovie *movie = parts.icon->movie();
    QVERIFY(movie);
    QVERIFY(movie->isValid());
    QCOMPARE(movie->fileName(), m_movieFile);
    QCOMPARE(movie->state(), QMovie::NotRunning);
    QVERIFY(iconOf(sheet).isNull());
    QCOMPARE(parts.text->text(), paragraph(24, QStringLiteral("Wait")));
    QCOMPARE(codesOf(sheet), QList<int>());
    QCOMPARE(sheet.styleSheet().trimmed(), sheetOf("message_sheet_processing"));
}

void VelaMessageSheetTest::theMovieIsScaled()
{
    Host host;
    const VelaMessageSheet sheet(QStringLiteral("Wait"), m_movieFile, &host);
    QMovie *movie = Parts(sheet).icon->movie();
    const QSize size(expectedPixels(32), expectedPixels(32));
    QCOMPARE(movie->scaledSize(), size);
    QVERIFY(movie->jumpToFrame(0));
    QCOMPARE(movie->currentPixmap().size(), size);
}

void VelaMessageSheetTest::aMovieWithoutAFileStillTakesItsPlace()
{
    Host host;
    const VelaMessageSheet sheet(QStringLiteral("Wait"), QStringLiteral("/nowhere/at-all.gif"), &host);
    const Parts parts(sheet);
    QVERIFY(parts.icon->movie());
    QVERIFY(!parts.icon->movie()->isValid());
    QCOMPARE(parts.icon->movie()->format(), QByteArray()); // there is no file to find a format in
    QVERIFY(outline(sheet.layout(), parts).contains(QLatin1String("icon")));
}

void VelaMessageSheetTest::theMovieLivesThroughNewTextsAndTypes()
{
    Host host;
    VelaMessageSheet sheet(QStringLiteral("Wait"), m_movieFile, &host);
    const QPointer<QMovie> movie(Parts(sheet).icon->movie());
    sheet.setText(QStringLiteral("Wait longer"));
    sheet.setInformativeText(QStringLiteral("much longer"));
    sheet.setMessageType(VelaMessageSheet::ProcessingMessage);
    deleteWhatIsForgotten();
    QVERIFY(movie);
    QCOMPARE(Parts(sheet).icon->movie(), movie.data());
    QVERIFY(outline(sheet.layout(), Parts(sheet)).contains(QLatin1String("icon")));
}

void VelaMessageSheetTest::thePictureOfANewTypeReplacesTheMovie()
{
    Host host;
    VelaMessageSheet sheet(QStringLiteral("Wait"), m_movieFile, &host);
    const QPointer<QMovie> movie(Parts(sheet).icon->movie());
    sheet.setMessageType(VelaMessageSheet::InfoMessage);
    QVERIFY(!Parts(sheet).icon->movie());
    QCOMPARE(iconOf(sheet).toImage().pixelColor(1, 1), iconColor(QStringLiteral("icon_information")));
    QVERIFY(movie);
}

void VelaMessageSheetTest::theMovieMayBeDeletedBeforeTheSheet()
{
    Host host;
    VelaMessageSheet sheet(QStringLiteral("Wait"), m_movieFile, &host);
    delete Parts(sheet).icon->movie();
    sheet.setText(QStringLiteral("No movie"));
    QVERIFY(!outline(sheet.layout(), Parts(sheet)).contains(QLatin1String("icon")));
}

void VelaMessageSheetTest::buttonsHaveFixedHeightAndMinimumWidth()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    const QPushButton *ok = sheet.button(QMessageBox::Ok);
    const QPushButton *cancel = sheet.button(QMessageBox::Discard);
    const int height = expectedPixels(32);
    QCOMPARE(ok->minimumSize(), QSize(expectedPixels(120), height));
    QCOMPARE(cancel->minimumSize(), QSize(expectedPixels(80), height));
    for (const QPushButton *button : {ok, cancel}) {
        QCOMPARE(button->maximumSize(), QSize(QWIDGETSIZE_MAX, height));
    }
}

void VelaMessageSheetTest::buttonsHaveTheirSheets()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    for (Type type : {VelaMessageSheet::QuestionMessage, VelaMessageSheet::UpgradeMessage}) {
        sheet.setMessageType(type);
        QCOMPARE(sheet.button(QMessageBox::Ok)->styleSheet().trimmed(), sheetOf("apply_button"));
        QCOMPARE(sheet.button(QMessageBox::Discard)->styleSheet().trimmed(), sheetOf("cancel_button"));
    }
}

void VelaMessageSheetTest::theTextHasItsSheetFromTheStart()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    QCOMPARE(Parts(sheet).text->styleSheet().trimmed(), sheetOf("message_sheet_text"));
    const VelaMessageSheet processing(QStringLiteral("text"), m_movieFile, &host);
    QCOMPARE(Parts(processing).text->styleSheet().trimmed(), sheetOf("message_sheet_text"));
}

void VelaMessageSheetTest::theInformativeTextHasNoSheetBeforeTheNextType()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    QCOMPARE(Parts(sheet).informative->styleSheet(), QString());
    sheet.setInformativeText(QStringLiteral("less"));
    QCOMPARE(Parts(sheet).informative->styleSheet(), QString());
    sheet.setMessageType(VelaMessageSheet::InfoMessage);
    QCOMPARE(Parts(sheet).informative->styleSheet().trimmed(), sheetOf("message_sheet_informative_text"));
}

void VelaMessageSheetTest::labelsAndButtonsAreWatched()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    const Parts parts(sheet);
    QWidget *const watched[] = {parts.text, sheet.button(QMessageBox::Ok), sheet.button(QMessageBox::Discard)};
    for (QWidget *widget : watched) {
        QVERIFY(isWatched(widget));
    }
    QVERIFY(!isWatched(parts.icon));
    QVERIFY(!isWatched(parts.box));
    sheet.setBlockWindowButton(false);
    for (QWidget *widget : watched) {
        QVERIFY(!isWatched(widget));
    }
}

void VelaMessageSheetTest::theInformativeLabelIsNotWatchedBeforeTheNextType()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    QVERIFY(!isWatched(Parts(sheet).informative));
    sheet.setMessageType(VelaMessageSheet::QuestionMessage);
    QVERIFY(isWatched(Parts(sheet).informative));
    QVERIFY(isWatched(sheet.button(QMessageBox::Discard)));
}

void VelaMessageSheetTest::anIconIsShownAndLaidOut()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::ProcessingMessage, QStringLiteral("text"), &host);
    QVERIFY(!outline(sheet.layout(), Parts(sheet)).contains(QLatin1String("icon")));
    const QPixmap pixmap = picture(24);
    sheet.setIcon(pixmap);
    QCOMPARE(iconOf(sheet).cacheKey(), pixmap.cacheKey());
    QVERIFY(outline(sheet.layout(), Parts(sheet))
                .contains(QStringLiteral("row(icon^ %1 column(").arg(expectedPixels(IconSpacing))));
}

void VelaMessageSheetTest::aNullIconTakesNoPlace()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    sheet.setIcon(QPixmap());
    QVERIFY(iconOf(sheet).isNull());
    QVERIFY(outline(sheet.layout(), Parts(sheet)).startsWith(QLatin1String("column(row(column(text)) ")));
}

// An empty box of buttons would lie over the text.
void VelaMessageSheetTest::aTextWithoutButtonsTakesAllClicksOnIt()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    host.show();
    sheet.show();
    sheet.setMessageType(VelaMessageSheet::AppMessage);
    sheet.setText(QStringLiteral("a long text ").repeated(200));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const QRect text = Parts(sheet).text->geometry() & sheet.rect();
    QVERIFY(text.height() > 2 * Parts(sheet).box->height());
    for (int y = text.top(); y <= text.bottom(); ++y) {
        QCOMPARE(sheet.childAt(text.center().x(), y), static_cast<QWidget *>(Parts(sheet).text));
    }

    sheet.setMessageType(VelaMessageSheet::QuestionMessage);
    QVERIFY(Parts(sheet).box->isVisible());
}

void VelaMessageSheetTest::aNewTypeSetsEverythingUpAnew()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    const QPointer<QPushButton> ok(sheet.button(QMessageBox::Ok));
    const QPointer<QPushButton> cancel(sheet.button(QMessageBox::Discard));

    sheet.setMessageType(VelaMessageSheet::AppMessage);
    QVERIFY(!ok && !cancel);
    QCOMPARE(codesOf(sheet), QList<int>());
    QCOMPARE(sheet.styleSheet().trimmed(), sheetOf("message_sheet_processing"));
    QCOMPARE(iconOf(sheet).toImage().pixelColor(1, 1), iconColor(QStringLiteral("app_img")));
    QVERIFY(!outline(sheet.layout(), Parts(sheet)).contains(QLatin1String("buttons")));

    sheet.setMessageType(VelaMessageSheet::UpgradeMessage);
    QCOMPARE(codesOf(sheet), (QList<int> {OkCode, CancelCode}));
    QCOMPARE(sheet.button(QMessageBox::Ok)->text(), QStringLiteral("Renew"));
    QVERIFY(sheet.button(QMessageBox::Ok)->isDefault());
    QCOMPARE(sheet.button(QMessageBox::Ok)->minimumSize(), QSize(expectedPixels(120), expectedPixels(32)));
    QCOMPARE(sheet.styleSheet().trimmed(), sheetOf("message_sheet_other"));
    QVERIFY(outline(sheet.layout(), Parts(sheet)).contains(QLatin1String("buttons")));
}

void VelaMessageSheetTest::aNewTypeForgetsCustomCaptions()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"),
                           MsgBoxCustomBtnText(QStringLiteral("Go"), QStringLiteral("Stay")), &host);
    sheet.setMessageType(VelaMessageSheet::QuestionMessage);
    QCOMPARE(sheet.button(QMessageBox::Ok)->text(), QStringLiteral("Agree"));
    QCOMPARE(sheet.button(QMessageBox::Discard)->text(), QStringLiteral("Decline"));
}

void VelaMessageSheetTest::aNewTypeKeepsTheTexts()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    sheet.setMessageType(VelaMessageSheet::WarningMessage);
    QCOMPARE(Parts(sheet).text->text(), paragraph(24, QStringLiteral("text")));
    QCOMPARE(Parts(sheet).informative->text(), paragraph(20, QStringLiteral("more")));
    QVERIFY(outline(sheet.layout(), Parts(sheet)).contains(QLatin1String("informative")));
}

void VelaMessageSheetTest::aClickAfterNewTypesAnswersOnce_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("which");
    QTest::addColumn<int>("code");
    QTest::newRow("ok") << QMessageBox::Ok << 1024;
    QTest::newRow("cancel") << QMessageBox::Discard << 8388608;
}

void VelaMessageSheetTest::aClickAfterNewTypesAnswersOnce()
{
    QFETCH(QMessageBox::StandardButton, which);
    QFETCH(int, code);
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    sheet.setMessageType(VelaMessageSheet::QuestionMessage);
    sheet.setMessageType(VelaMessageSheet::WarningQuestionMessage);
    sheet.showSheet();
    const QSignalSpy finished(&sheet, &VelaSheet::finished);
    sheet.button(which)->click();
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first(), QVariantList {code});
}

void VelaMessageSheetTest::theTypeMayChangeWhileTheAnswerIsReported()
{
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    connect(&sheet, &VelaSheet::finished, &sheet,
            [&sheet] { sheet.setMessageType(VelaMessageSheet::ProcessingMessage); });
    sheet.showSheet();
    sheet.button(QMessageBox::Ok)->click();
    QCOMPARE(codesOf(sheet), QList<int>());
}

void VelaMessageSheetTest::buttonsAreFoundByTheirCodes()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    QVERIFY(sheet.button(QMessageBox::Ok));
    QCOMPARE(sheet.button(QMessageBox::Ok), Parts(sheet).box->button(QDialogButtonBox::Ok));
    for (QMessageBox::StandardButton which :
         {QMessageBox::Discard, QMessageBox::Cancel, QMessageBox::Yes, QMessageBox::No, QMessageBox::NoButton}) {
        QVERIFY(!sheet.button(which));
    }
    const VelaMessageSheet question(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    QVERIFY(question.button(QMessageBox::Discard));
    QVERIFY(question.button(QMessageBox::Discard) != question.button(QMessageBox::Ok));
    QVERIFY(!question.button(QMessageBox::Cancel));
}

void VelaMessageSheetTest::gettersGiveBackWhatWasSet()
{
    QWidget window;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("<b>text</b>"), QStringLiteral("more"),
                           &window);
    QCOMPARE(sheet.messageType(), VelaMessageSheet::QuestionMessage);
    QCOMPARE(sheet.text(), QStringLiteral("<b>text</b>"));
    QCOMPARE(sheet.informativeText(), QStringLiteral("more"));
    QVERIFY(sheet.blocksWindowButton());

    sheet.setMessageType(VelaMessageSheet::InfoMessage);
    sheet.setText(QStringLiteral("another"));
    sheet.setInformativeText(QString());
    sheet.setBlockWindowButton(false);
    QCOMPARE(sheet.messageType(), VelaMessageSheet::InfoMessage);
    QCOMPARE(sheet.text(), QStringLiteral("another"));
    QCOMPARE(sheet.informativeText(), QString());
    QVERIFY(!sheet.blocksWindowButton());
}

void VelaMessageSheetTest::theTypesAreKnownByName()
{
    const auto types = QMetaEnum::fromType<VelaMessageSheet::MessageType>();
    QCOMPARE(types.valueToKey(VelaMessageSheet::ProcessingMessage), "ProcessingMessage");
    QCOMPARE(types.keyCount(), 7);
}

QTEST_MAIN(VelaMessageSheetTest)

#include "tst_vela_msg_sheet.moc"
