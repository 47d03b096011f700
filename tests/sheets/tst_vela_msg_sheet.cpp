// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-mask.h"
#include "component/vela-msg-sheet.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/component-strings.h"

#include <QDialogButtonBox>
#include <QMovie>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

using Type = VelaMessageSheet::MessageType;

Q_DECLARE_METATYPE(QMessageBox::StandardButton)
Q_DECLARE_METATYPE(VelaMessageSheet::MessageType)

namespace {

// Logical pixels.
constexpr int Shadow = 22;
constexpr int Margin = 10;
constexpr int TextBottomMargin = 4;
constexpr int InformativeSpacing = 6;
constexpr int IconSpacing = 20;
constexpr int ButtonSpacing = 20;

// What callers compare answers against.
constexpr int OkCode = 0x400;
constexpr int CancelCode = 0x800000;

constexpr int IconFileSize = 160; // 40 logical pixels

const char *const IconNames[] = {"app_img", "icon_information", "icon_warning", "icon_question"};
const QColor IconColors[] = {Qt::red, Qt::green, Qt::blue, Qt::yellow};

// Sections of sheets that apply to nothing; each has a length of its own.
struct Section
{
    const char *name;
    int length;
};

const Section Sections[] = {
    {"apply_button", 10},        {"cancel_button", 20},      {"message_sheet_processing", 30},
    {"message_sheet_other", 40}, {"message_sheet_text", 50}, {"message_sheet_informative_text", 60},
};

QString sectionText(const char *name, double scale)
{
    for (const Section &section : Sections) {
        if (qstrcmp(section.name, name) == 0) {
            return QStringLiteral("#%1 { left: %2px }")
                .arg(QLatin1String(name), QString::number(static_cast<int>(section.length * scale)));
        }
    }
    qFatal("no section %s", name);
}

// The sheet under "component.name" as widgets have it.
QString sheetOf(const char *name)
{
    return sectionText(name, expectedScale());
}

QColor iconColor(const QString &name)
{
    for (int i = 0; i < 4; ++i) {
        if (name == QLatin1String(IconNames[i])) {
            return IconColors[i];
        }
    }
    return {};
}

QString paragraph(int lineHeight, const QString &text)
{
    return QStringLiteral("<p style='line-height: %1px;'>%2</p>")
        .arg(QString::number(expectedPixels(lineHeight)), text);
}

QString manyWords(int count)
{
    return QStringList(QVector<QString>(count, QStringLiteral("word")).toList()).join(QLatin1Char(' '));
}

QPixmap picture(int logicalSize)
{
    QPixmap pixmap(expectedPixels(logicalSize), expectedPixels(logicalSize));
    pixmap.fill(Qt::magenta);
    return pixmap;
}

// A window that is so many logical pixels wide.
class Host : public QWidget
{
public:
    explicit Host(int logicalWidth = 700) { resize(expectedPixels(logicalWidth), expectedPixels(500)); }
};

// What a sheet is made of at the moment.
struct Parts
{
    explicit Parts(const VelaMessageSheet &sheet)
    {
        const auto labels = sheet.findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        for (QLabel *label : labels) {
            auto *message = qobject_cast<MessageLabel *>(label);
            if (!message) {
                icon = label;
            } else if (!text) {
                text = message;
            } else {
                informative = message;
            }
        }
        box = sheet.findChild<QDialogButtonBox *>(QString(), Qt::FindDirectChildrenOnly);
    }

    MessageLabel *text = nullptr;
    MessageLabel *informative = nullptr;
    QLabel *icon = nullptr;
    QDialogButtonBox *box = nullptr;
};

QPixmap iconOf(const VelaMessageSheet &sheet)
{
    return Parts(sheet).icon->pixmap(Qt::ReturnByValue);
}

QList<int> codesOf(const VelaMessageSheet &sheet)
{
    QList<int> codes;
    const QDialogButtonBox *box = Parts(sheet).box;
    const auto buttons = box->buttons();
    for (QAbstractButton *button : buttons) {
        codes.append(box->standardButton(button));
    }
    std::sort(codes.begin(), codes.end());
    return codes;
}

void deleteWhatIsForgotten()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Whether the sheet sees, and refuses, an attempt to close widget.
bool isWatched(QWidget *widget)
{
    QCloseEvent event;
    QCoreApplication::sendEvent(widget, &event);
    return !event.isAccepted();
}

// A layout as a text: "[...]" a row or column, "20" a gap along it, "icon^" a widget aligned to the top.
QString outline(const QLayout *layout, const Parts &parts)
{
    const auto nameOf = [&parts](const QWidget *widget) {
        return widget == parts.icon       ? QStringLiteral("icon")
            : widget == parts.text        ? QStringLiteral("text")
            : widget == parts.informative ? QStringLiteral("informative")
            : widget == parts.box         ? QStringLiteral("buttons")
                                          : QStringLiteral("?");
    };
    const auto *box = qobject_cast<const QBoxLayout *>(layout);
    const bool isRow = box->direction() == QBoxLayout::LeftToRight;
    QStringList items;
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem *item = layout->itemAt(i);
        QString name;
        if (item->layout()) {
            name = outline(item->layout(), parts);
        } else if (item->widget()) {
            name = nameOf(item->widget());
        } else {
            name = QString::number(isRow ? item->sizeHint().width() : item->sizeHint().height());
        }
        items.append(name + (item->alignment() == Qt::AlignTop ? QStringLiteral("^") : QString()));
    }
    return (isRow ? QStringLiteral("row(") : QStringLiteral("column(")) + items.join(QLatin1Char(' '))
        + QLatin1Char(')');
}

// An application's style with one answer of its own.
class HintStyle : public QProxyStyle
{
public:
    HintStyle(StyleHint hint, int answer) : m_hint(hint), m_answer(answer) { }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        return hint == m_hint ? m_answer : QProxyStyle::styleHint(hint, option, widget, returnData);
    }

private:
    const StyleHint m_hint;
    const int m_answer;
};

// Answers each hint differently and keeps what it was asked.
class AskedStyle : public QProxyStyle
{
public:
    static int answer(StyleHint hint) { return 1000 + hint; }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        lastOption = option;
        lastWidget = widget;
        lastReturnData = returnData;
        return answer(hint);
    }

    mutable const QStyleOption *lastOption = nullptr;
    mutable const QWidget *lastWidget = nullptr;
    mutable const QStyleHintReturn *lastReturnData = nullptr;
};

} // namespace

class VelaMessageSheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void theTypesAreKnownByName();
    void gettersGiveBackWhatWasSet();
    void missingSheetsAreLoggedOnceEach();
    void theSheetDeclaresItsThreeSlotsAndItsTypes();
    void theHelpersDeclareNothing();
    void captionsAreKeptInTheirOrder();

    void theTypeDecidesIconButtonsAndSheet_data();
    void theTypeDecidesIconButtonsAndSheet();
    void valuesOutsideHaveNeitherIconNorButtons_data();
    void valuesOutsideHaveNeitherIconNorButtons();
    void captionsComeFromTheCallerOrFromTheTexts_data();
    void captionsComeFromTheCallerOrFromTheTexts();
    void clicksAnswerWithTheCodes_data();
    void clicksAnswerWithTheCodes();

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
    void theInformativeTextIsWrappedAndScaled_data();
    void theInformativeTextIsWrappedAndScaled();
    void theInformativeLabelIsSetUpForReading();
    void theInformativeLabelTakesItsInteractionFromTheStyle_data();
    void theInformativeLabelTakesItsInteractionFromTheStyle();
    void aSecondInformativeTextKeepsTheLabel();
    void anEmptyInformativeTextRemovesLabelAndSpacing();
    void anEmptyInformativeTextWithoutALabelDoesNothing();
    void anInformativeTextAfterAnEmptyOneMakesANewLabel();
    void anInformativeTextSetWhileShownAppears();

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

    void okIsTheDefaultButton();
    void anotherButtonMayBeTheDefault();
    void noButtonAsDefaultChangesNothing();
    void buttonsAreFoundByTheirCodes();

private:
    ResourceFolder m_folder;
    QString m_movieFile;
    QString m_styleName;
    QStringList m_loggedWithoutSheets;
};

void VelaMessageSheetTest::initTestCase()
{
    m_styleName = QApplication::style()->objectName();
    {
        Host host;
        LogCapture log;
        const VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, &host);
        m_loggedWithoutSheets = log.takeTexts().filter(QStringLiteral("stylesheet"));
    }

    QStringList names;
    for (int i = 0; i < 4; ++i) {
        names.append(QLatin1String(IconNames[i]));
        m_folder.writeImage(names.last(), QSize(IconFileSize, IconFileSize), IconColors[i]);
    }
    for (const char *place : {"lt", "rt", "lb", "rb", "l", "r", "t", "b"}) {
        names.append(QLatin1String("bg_tutorial_") + QLatin1String(place));
        m_folder.writeImage(names.last(), QSize(4 * Shadow, 4 * Shadow), Qt::gray);
    }
    m_folder.writeCatalogue(names);

    QByteArray sheets;
    for (const Section &section : Sections) {
        sheets += QByteArrayLiteral("== component.") + section.name + " ==\n" + sectionText(section.name, 1.0).toUtf8()
            + '\n';
    }
    installSheets(m_folder, sheets);
    ComponentStrings::getInstance()->installStrings({
        {QStringLiteral("ok"), QStringLiteral("Agree")},
        {QStringLiteral("cancel"), QStringLiteral("Decline")},
        {QStringLiteral("wizard_client_upgrade"), QStringLiteral("Renew")},
    });

    m_folder.writeFile(QStringLiteral("dot.gif"),
                       QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7"));
    m_movieFile = m_folder.path() + QLatin1String("/dot.gif");
}

void VelaMessageSheetTest::cleanup()
{
    if (QApplication::style()->objectName() != m_styleName) {
        QApplication::setStyle(m_styleName);
    }
}

void VelaMessageSheetTest::missingSheetsAreLoggedOnceEach()
{
    QStringList expected;
    for (const char *key : {"apply_button", "cancel_button", "message_sheet_other", "message_sheet_text"}) {
        expected.append(QStringLiteral("Cannot find stylesheet \"component.%1\"").arg(QLatin1String(key)));
    }
    m_loggedWithoutSheets.sort();
    QCOMPARE(m_loggedWithoutSheets, expected);
}

void VelaMessageSheetTest::theSheetDeclaresItsThreeSlotsAndItsTypes()
{
    const QMetaObject &metaObject = VelaMessageSheet::staticMetaObject;
    QCOMPARE(ownDeclarations(metaObject),
             (QStringList {QStringLiteral("done(int)"), QStringLiteral("quit()"),
                           QStringLiteral("buttonClick(QAbstractButton*)"), QStringLiteral("MessageType")}));
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        QCOMPARE(metaObject.method(i).methodType(), QMetaMethod::Slot);
        QCOMPARE(metaObject.method(i).access(), QMetaMethod::Public);
    }
    QCOMPARE(metaObject.className(), "VelaMessageSheet");
    QCOMPARE(metaObject.superClass()->className(), "VelaSheet");
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
    QTest::addColumn<QString>("cancelCaption"); // null where there is no such button

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

void VelaMessageSheetTest::clicksAnswerWithTheCodes_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("which");
    QTest::addColumn<int>("code");
    QTest::newRow("ok") << QMessageBox::Ok << 1024;
    QTest::newRow("cancel") << QMessageBox::Discard << 8388608;
}

void VelaMessageSheetTest::clicksAnswerWithTheCodes()
{
    QFETCH(QMessageBox::StandardButton, which);
    QFETCH(int, code);
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    const QSignalSpy finished(&sheet, &VelaSheet::finished);
    sheet.showSheet();
    sheet.button(which)->click();
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first(), QVariantList {code});
    QVERIFY(!sheet.isVisible());

    sheet.buttonClick(sheet.button(which));
    QCOMPARE(finished.count(), 2);
    QCOMPARE(finished.last(), QVariantList {code});
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
        QVERIFY(isWatched(Parts(*sheet).text)); // its window's close button is blocked
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
    QCOMPARE(parts.icon->movie()->format(), QByteArray()); // it would be found in the file
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

void VelaMessageSheetTest::aMessageLabelIsAsHighAsItsTextNeeds_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a word") << QStringLiteral("<p>word</p>");
    QTest::newRow("many words") << QStringLiteral("<p>%1</p>").arg(manyWords(60));
    QTest::newRow("paragraphs") << QStringLiteral("<p>%1</p><p><b>%1</b></p>").arg(manyWords(20));
    QTest::newRow("line height") << QStringLiteral("<p style='line-height: 24px;'>%1</p>").arg(manyWords(40));
    QTest::newRow("plain") << manyWords(50);
}

void VelaMessageSheetTest::aMessageLabelIsAsHighAsItsTextNeeds()
{
    QFETCH(QString, text);
    QWidget parent; // a child of it gets its first size when it is shown
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

void VelaMessageSheetTest::aMessageLabelKeepsItsHeight()
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

void VelaMessageSheetTest::aMessageLabelGrowsAsItNarrows()
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

void VelaMessageSheetTest::anEmptyMessageLabelHasNoHeight()
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

void VelaMessageSheetTest::theBoxStyleAnswersTheLayoutItself()
{
    DialogButtonBoxStyle style;
    style.setBaseStyle(new AskedStyle);
    QCOMPARE(style.styleHint(QStyle::SH_DialogButtonLayout), 0);
    const QDialogButtonBox box;
    const QStyleOption option;
    QCOMPARE(style.styleHint(QStyle::SH_DialogButtonLayout, &option, &box),
             static_cast<int>(QDialogButtonBox::WinLayout));
}

void VelaMessageSheetTest::theBoxStylePassesEveryOtherHintOn()
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

void VelaMessageSheetTest::theBoxStyleIsBasedOnTheApplications()
{
    const DialogButtonBoxStyle style;
    QCOMPARE(style.baseStyle()->metaObject()->className(), QApplication::style()->metaObject()->className());
}

void VelaMessageSheetTest::buttonsComeInTheSameOrderInEveryStyle_data()
{
    QTest::addColumn<QString>("styleName"); // empty for the usual one
    QTest::addColumn<int>("layout"); // that the application's style asks for, -1 for its own

    const QStringList names = QStyleFactory::keys();
    for (const QString &name : names) {
        QTest::newRow(qPrintable(name)) << name << -1;
    }
    for (int layout = QDialogButtonBox::WinLayout; layout <= QDialogButtonBox::AndroidLayout; ++layout) {
        QTest::addRow("layout %d", layout) << QString() << layout;
    }
}

void VelaMessageSheetTest::buttonsComeInTheSameOrderInEveryStyle()
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

void VelaMessageSheetTest::aPlainBoxFollowsTheApplicationsStyle()
{
    QApplication::setStyle(new HintStyle(QStyle::SH_DialogButtonLayout, QDialogButtonBox::GnomeLayout));
    QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Discard);
    box.show();
    QVERIFY(box.button(QDialogButtonBox::Discard)->x() < box.button(QDialogButtonBox::Ok)->x());
}

void VelaMessageSheetTest::theWidthFollowsThatOfTheParent()
{
    // In ninety-sixths of a pixel, so that nothing is rounded.
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

void VelaMessageSheetTest::theWidthAtItsLimits_data()
{
    QTest::addColumn<int>("parentWidth");
    QTest::addColumn<int>("width");
    const int widths[][2] = {{300, 260}, {480, 440}, {520, 480}, {539, 499}, {540, 480}, {544, 504},
                             {560, 520}, {576, 536}, {580, 540}, {584, 540}, {600, 540}, {4000, 540}};
    for (const auto &row : widths) {
        QTest::addRow("%d", row[0]) << row[0] << row[1];
    }
}

void VelaMessageSheetTest::theWidthAtItsLimits()
{
    QFETCH(int, parentWidth);
    QFETCH(int, width);
    Host host(parentWidth);
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    // A parent that cannot have this width is a part of a logical pixel narrower.
    const bool isWhole = host.width() == parentWidth * expectedScale();
    QCOMPARE(sheet.width(), expectedPixels(isWhole ? width : width - 1));
}

void VelaMessageSheetTest::theWidthIsTakenAnewWithEachLayout()
{
    Host host(500);
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    host.resize(expectedPixels(440), 100);
    QCOMPARE(sheet.width(), expectedPixels(460));
    sheet.setText(QStringLiteral("text"));
    QCOMPARE(sheet.width(), expectedPixels(400));
}

void VelaMessageSheetTest::theLayoutHasWhatTheSheetHas_data()
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

void VelaMessageSheetTest::theLayoutHasWhatTheSheetHas()
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

void VelaMessageSheetTest::marginsAndSpacingsAreScaled()
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

void VelaMessageSheetTest::theSheetIsFixedInWidthAndAtMostAsHighAsNeeded()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    QCOMPARE(sheet.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(sheet.sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
}

void VelaMessageSheetTest::everyLayoutAdjustsTheHeight()
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

void VelaMessageSheetTest::theIconStaysSmall()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    const QSizePolicy policy = Parts(sheet).icon->sizePolicy();
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Maximum);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Maximum);
}

using Change = void (*)(VelaMessageSheet &);
Q_DECLARE_METATYPE(Change)

void VelaMessageSheetTest::everyChangeMakesOneNewLayout_data()
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

void VelaMessageSheetTest::everyChangeMakesOneNewLayout()
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

void VelaMessageSheetTest::theShownSheetIsLaidOutToThePixel_data()
{
    QTest::addColumn<int>("words");
    QTest::addColumn<int>("informativeWords");
    QTest::newRow("a word") << 1 << 0;
    QTest::newRow("a word and another") << 1 << 1;
    QTest::newRow("many words") << 90 << 0;
    QTest::newRow("many words and more") << 60 << 70;
    QTest::newRow("a word and many") << 1 << 90;
}

void VelaMessageSheetTest::theShownSheetIsLaidOutToThePixel()
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

void VelaMessageSheetTest::aShownSheetFollowsItsTexts()
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

void VelaMessageSheetTest::linesHaveTheScaledHeight()
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

void VelaMessageSheetTest::theTextIsWrappedAndScaled_data()
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

void VelaMessageSheetTest::theTextIsWrappedAndScaled()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, &host);
    sheet.setText(text);
    QCOMPARE(Parts(sheet).text->text(), paragraph(24, shown));
}

void VelaMessageSheetTest::theTextLabelIsSetUpForReading()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    const MessageLabel *label = Parts(sheet).text;
    QVERIFY(label->wordWrap());
    QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignTop));
    QCOMPARE(label->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
}

void VelaMessageSheetTest::theTextIsReplacedInItsLabel()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    const MessageLabel *label = Parts(sheet).text;
    sheet.setText(QStringLiteral("other"));
    QCOMPARE(sheet.findChildren<MessageLabel *>(), QList<MessageLabel *> {const_cast<MessageLabel *>(label)});
    QCOMPARE(label->text(), paragraph(24, QStringLiteral("other")));
}

void VelaMessageSheetTest::theInformativeTextIsWrappedAndScaled_data()
{
    theTextIsWrappedAndScaled_data();
}

void VelaMessageSheetTest::theInformativeTextIsWrappedAndScaled()
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

void VelaMessageSheetTest::theInformativeLabelIsSetUpForReading()
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
}

void VelaMessageSheetTest::theInformativeLabelTakesItsInteractionFromTheStyle_data()
{
    QTest::addColumn<Qt::TextInteractionFlags>("flags");
    QTest::newRow("none") << Qt::TextInteractionFlags(Qt::NoTextInteraction);
    QTest::newRow("links") << Qt::TextInteractionFlags(Qt::LinksAccessibleByMouse);
    QTest::newRow("selection") << (Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void VelaMessageSheetTest::theInformativeLabelTakesItsInteractionFromTheStyle()
{
    QFETCH(Qt::TextInteractionFlags, flags);
    QApplication::setStyle(new HintStyle(QStyle::SH_MessageBox_TextInteractionFlags, int(flags)));
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    const MessageLabel *label = Parts(sheet).informative;
    QCOMPARE(label->textInteractionFlags(), flags);
    QCOMPARE(label->focusPolicy(), Qt::StrongFocus);
}

void VelaMessageSheetTest::aSecondInformativeTextKeepsTheLabel()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    const MessageLabel *label = Parts(sheet).informative;
    sheet.setInformativeText(QStringLiteral("less"));
    deleteWhatIsForgotten();
    QCOMPARE(Parts(sheet).informative, label);
    QCOMPARE(sheet.findChildren<MessageLabel *>().count(), 2);
    QCOMPARE(label->text(), paragraph(20, QStringLiteral("less")));
}

void VelaMessageSheetTest::anEmptyInformativeTextRemovesLabelAndSpacing()
{
    Host host;
    host.show();
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), QStringLiteral("more"), &host);
    sheet.showSheet();
    const QPointer<MessageLabel> label(Parts(sheet).informative);
    QVERIFY(label->isVisible());
    sheet.setInformativeText(QString());
    QVERIFY(label); // it may be in the middle of an event
    QVERIFY(label->isHidden());
    deleteWhatIsForgotten();
    QVERIFY(!label);

    const VelaMessageSheet plain(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    QCOMPARE(outline(sheet.layout(), Parts(sheet)), outline(plain.layout(), Parts(plain)));
}

void VelaMessageSheetTest::anEmptyInformativeTextWithoutALabelDoesNothing()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, QStringLiteral("text"), &host);
    const QString before = outline(sheet.layout(), Parts(sheet));
    sheet.setInformativeText(QString());
    sheet.setInformativeText(QLatin1String(""));
    QCOMPARE(outline(sheet.layout(), Parts(sheet)), before);
    QCOMPARE(sheet.findChildren<MessageLabel *>().count(), 1);
}

void VelaMessageSheetTest::anInformativeTextAfterAnEmptyOneMakesANewLabel()
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

void VelaMessageSheetTest::anInformativeTextSetWhileShownAppears()
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

// An empty box of buttons would lie over it.
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
    clicksAnswerWithTheCodes_data();
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

void VelaMessageSheetTest::okIsTheDefaultButton()
{
    Host host;
    const VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    QVERIFY(sheet.button(QMessageBox::Ok)->isDefault());
    QVERIFY(!sheet.button(QMessageBox::Discard)->isDefault());
}

void VelaMessageSheetTest::anotherButtonMayBeTheDefault()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    sheet.setDefaultButton(sheet.button(QMessageBox::Discard));
    QVERIFY(sheet.button(QMessageBox::Discard)->isDefault());
    QVERIFY(sheet.button(QMessageBox::Ok)->isDefault()); // it stays what it was
}

void VelaMessageSheetTest::noButtonAsDefaultChangesNothing()
{
    Host host;
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, QStringLiteral("text"), &host);
    sheet.setDefaultButton(nullptr);
    QVERIFY(sheet.button(QMessageBox::Ok)->isDefault());
    QVERIFY(!sheet.button(QMessageBox::Discard)->isDefault());
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
