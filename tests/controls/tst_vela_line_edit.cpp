// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-line-edit.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QProxyStyle>
#include <QtTest>

namespace {

const QColor Plain(Qt::white);
const QColor Error(Qt::red);

constexpr char Sheets[] = "== component.lineedit_label ==\n"
                          "QLabel { color: blue; font-size: 11px }\n"
                          "== component.lineedit ==\n"
                          "QLineEdit { background: white; border: 3px solid black; min-height: 21px }\n"
                          "QLineEdit[error=\"true\"] { background: red }\n";

// A style under all style sheets that counts what becomes of widgets.
class CountingStyle : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

    void polish(QWidget *widget) override
    {
        polished.append(widget);
        QProxyStyle::polish(widget);
    }

    void unpolish(QWidget *widget) override
    {
        unpolished.append(widget);
        QProxyStyle::unpolish(widget);
    }

    QVector<QWidget *> polished;
    QVector<QWidget *> unpolished;
};

// Names of the dynamic properties that an object is told of.
class PropertyChanges : public QObject
{
public:
    explicit PropertyChanges(QObject *watched) { watched->installEventFilter(this); }

    int take(const QByteArray &name) { return std::exchange(m_names, {}).count(name); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange) {
            m_names.append(static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName());
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QList<QByteArray> m_names;
};

// The arguments of each call of the validators below, which are plain functions.
QStringList askedTexts;

bool isNotEmpty(const QString &text)
{
    askedTexts += text;
    return !text.isEmpty();
}

bool isEmpty(const QString &text)
{
    return !isNotEmpty(text);
}

QHBoxLayout *rowOf(const VelaLineEdit &edit)
{
    return qobject_cast<QHBoxLayout *>(edit.layout());
}

} // namespace

Q_DECLARE_METATYPE(QMargins)

class VelaLineEditTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void textsAndFieldHaveTheScaledSheetsOfTheirKeys();
    void itIsARowOfTextFieldAndText();
    void itsPartsBelongToIt();
    void itsPartsHaveTheApplicationsFontInAnyWindow();
    void itHandsTheFocusToItsField();
    void itsPartsAreEmptyAtFirst();
    void gettersGiveBackWhatWasSet();
    void emptyTextsTakeNoRoom();
    void textsStandBeforeAndAfterTheField();
    void aNarrowFieldStandsAtTheLeft();
    void marginsAndSpacingAreZeroAtFirst();
    void marginsAreScaledAndTruncated_data();
    void marginsAreScaledAndTruncated();
    void marginsSurroundTheRow();
    void spacingIsScaledAndTruncated_data();
    void spacingIsScaledAndTruncated();
    void spacingSeparatesTheParts();
    void marginsOfFourAndASpacingOfFiveAtEachScale();

    void theTextIsThatOfTheField();
    void theTextIsThatOfTheFieldWhateverItShows();
    void withoutAValidatorEveryTextIsValid_data();
    void withoutAValidatorEveryTextIsValid();
    void settingAValidatorDoesNotValidate();
    void theValidatorIsAskedOnceForTheCurrentText();
    void theValidatorsAnswerIsReturned();
    void aValidatorReplacesTheOneBefore();
    void theNullValidatorRemovesIt();
    void editingDoesNotValidate();

    void anErrorIsAPropertyOfTheFieldOnly();
    void thereIsNoErrorPropertyAtFirst();
    void validatingLeavesTheErrorAlone_data();
    void validatingLeavesTheErrorAlone();
    void theErrorLookComesAndGoesAtOnce();
    void theErrorLookIsThatOfAFieldBornWithTheProperty();
    void theErrorLookOutlivesEditing();
    void theFieldAloneIsPolishedAndNothingUnpolished_data();
    void theFieldAloneIsPolishedAndNothingUnpolished();
    void eachChangeIsOnePropertyChange();
    void theFieldIsRepaintedEvenWithoutAChange();
    void anErrorMayBeSetBeforeItIsShown();

private:
    ResourceFolder m_folder;
    CountingStyle *m_style = nullptr;
};

void VelaLineEditTest::initTestCase()
{
    m_style = new CountingStyle;
    QApplication::setStyle(m_style);
    installSheets(m_folder, Sheets);
}

void VelaLineEditTest::init()
{
    askedTexts.clear();
}

void VelaLineEditTest::itsPartsHaveTheApplicationsFontInAnyWindow()
{
    QWidget window;
    QFont font = window.font();
    font.setItalic(true);
    window.setFont(font);
    VelaLineEdit edit(&window);
    window.show();
    for (const QWidget *part : {static_cast<QWidget *>(edit.getPreLabel()), static_cast<QWidget *>(edit.getLineEdit()),
                                static_cast<QWidget *>(edit.getPostLabel())}) {
        part->ensurePolished();
        QVERIFY(!part->font().italic());
    }
}

void VelaLineEditTest::gettersGiveBackWhatWasSet()
{
    VelaLineEdit edit;
    QCOMPARE(edit.margins(), QMargins());
    QCOMPARE(edit.spacing(), 0);
    QVERIFY(!edit.hasError());

    edit.setMargins(1, 2, 3, 4);
    edit.setSpacing(5);
    edit.setError(true);
    QCOMPARE(edit.margins(), QMargins(1, 2, 3, 4));
    QCOMPARE(edit.spacing(), 5);
    QVERIFY(edit.hasError());
}

void VelaLineEditTest::textsAndFieldHaveTheScaledSheetsOfTheirKeys()
{
    LogCapture log;
    VelaLineEdit edit;
    const QString label = QStringLiteral("\nQLabel { color: blue; font-size: %1px }").arg(expectedPixels(11));
    const QString field = QStringLiteral("\nQLineEdit { background: white; border: %1px solid black; min-height: %2px }"
                                         "\nQLineEdit[error=\"true\"] { background: red }")
                              .arg(expectedPixels(3))
                              .arg(expectedPixels(21));
    QCOMPARE(edit.getPreLabel()->styleSheet(), label);
    QCOMPARE(edit.getLineEdit()->styleSheet(), field);
    QCOMPARE(edit.getPostLabel()->styleSheet(), label);
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaLineEditTest::itIsARowOfTextFieldAndText()
{
    VelaLineEdit edit;
    const QHBoxLayout *row = rowOf(edit);
    QVERIFY(row);
    QCOMPARE(row->alignment(), Qt::AlignLeft);
    QCOMPARE(row->count(), 3);
    const QVector<QWidget *> parts {edit.getPreLabel(), edit.getLineEdit(), edit.getPostLabel()};
    for (int i = 0; i < parts.size(); ++i) {
        QCOMPARE(row->itemAt(i)->widget(), parts[i]);
        QCOMPARE(row->itemAt(i)->alignment(), Qt::Alignment());
        QCOMPARE(row->stretch(i), 0);
    }
}

void VelaLineEditTest::itsPartsBelongToIt()
{
    auto edit = std::make_unique<VelaLineEdit>();
    const QVector<QWidget *> parts {edit->getPreLabel(), edit->getLineEdit(), edit->getPostLabel()};
    const QList<QWidget *> children = edit->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(children, QList<QWidget *>(parts.begin(), parts.end()));

    QVector<QPointer<QWidget>> alive(parts.begin(), parts.end());
    edit.reset();
    for (const QPointer<QWidget> &part : alive) {
        QVERIFY(!part);
    }
}

void VelaLineEditTest::itsPartsAreEmptyAtFirst()
{
    VelaLineEdit edit;
    QCOMPARE(edit.getPreLabel()->text(), QString());
    QCOMPARE(edit.getLineEdit()->text(), QString());
    QCOMPARE(edit.getPostLabel()->text(), QString());
    QCOMPARE(edit.getEditText(), QString());
}

void VelaLineEditTest::emptyTextsTakeNoRoom()
{
    VelaLineEdit edit;
    edit.resize(400, 60);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QCOMPARE(edit.getPreLabel()->width(), 0);
    QCOMPARE(edit.getPostLabel()->width(), 0);
    QCOMPARE(edit.getLineEdit()->x(), 0);
    QCOMPARE(edit.getLineEdit()->width(), edit.width());
}

void VelaLineEditTest::textsStandBeforeAndAfterTheField()
{
    VelaLineEdit edit;
    edit.getPreLabel()->setText(QStringLiteral("Before"));
    edit.getPostLabel()->setText(QStringLiteral("and after"));
    edit.resize(500, 60);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    const QRect pre = edit.getPreLabel()->geometry();
    const QRect field = edit.getLineEdit()->geometry();
    const QRect post = edit.getPostLabel()->geometry();
    QCOMPARE(pre.left(), 0);
    QCOMPARE(pre.width(), edit.getPreLabel()->sizeHint().width());
    QCOMPARE(field.left(), pre.right() + 1);
    QCOMPARE(post.left(), field.right() + 1);
    QCOMPARE(post.width(), edit.getPostLabel()->sizeHint().width());
    QCOMPARE(post.right(), edit.width() - 1);
}

void VelaLineEditTest::aNarrowFieldStandsAtTheLeft()
{
    VelaLineEdit edit;
    edit.getPreLabel()->setText(QStringLiteral("Before"));
    edit.getPreLabel()->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    edit.getPostLabel()->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    edit.getLineEdit()->setFixedWidth(50);
    edit.resize(500, 60);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QCOMPARE(edit.getPreLabel()->x(), 0);
    QCOMPARE(edit.getLineEdit()->x(), edit.getPreLabel()->sizeHint().width());
}

void VelaLineEditTest::marginsAndSpacingAreZeroAtFirst()
{
    const VelaLineEdit edit;
    QCOMPARE(rowOf(edit)->contentsMargins(), QMargins());
    QCOMPARE(rowOf(edit)->spacing(), 0);
}

void VelaLineEditTest::marginsAreScaledAndTruncated_data()
{
    QTest::addColumn<QMargins>("margins");
    QTest::newRow("all alike") << QMargins(4, 4, 4, 4);
    QTest::newRow("all different") << QMargins(1, 3, 5, 7);
    QTest::newRow("large") << QMargins(101, 203, 307, 409);
    QTest::newRow("none") << QMargins();
}

void VelaLineEditTest::marginsAreScaledAndTruncated()
{
    QFETCH(QMargins, margins);
    VelaLineEdit edit;
    edit.setMargins(11, 13, 17, 19);
    edit.setMargins(margins.left(), margins.top(), margins.right(), margins.bottom());
    QCOMPARE(rowOf(edit)->contentsMargins(),
             QMargins(expectedPixels(margins.left()), expectedPixels(margins.top()), expectedPixels(margins.right()),
                      expectedPixels(margins.bottom())));
}

void VelaLineEditTest::marginsSurroundTheRow()
{
    VelaLineEdit edit;
    edit.setMargins(5, 7, 9, 11);
    edit.getLineEdit()->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    edit.resize(400, 200);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QCOMPARE(edit.getLineEdit()->geometry(),
             edit.rect().adjusted(expectedPixels(5), expectedPixels(7), -expectedPixels(9), -expectedPixels(11)));
}

void VelaLineEditTest::spacingIsScaledAndTruncated_data()
{
    QTest::addColumn<int>("spacing");
    for (int spacing : {0, 1, 3, 5, 10, 333}) {
        QTest::newRow(qPrintable(QString::number(spacing))) << spacing;
    }
}

void VelaLineEditTest::spacingIsScaledAndTruncated()
{
    QFETCH(int, spacing);
    VelaLineEdit edit;
    edit.setSpacing(77);
    edit.setSpacing(spacing);
    QCOMPARE(rowOf(edit)->spacing(), expectedPixels(spacing));
}

void VelaLineEditTest::spacingSeparatesTheParts()
{
    VelaLineEdit edit;
    edit.setSpacing(15);
    edit.resize(400, 60);
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    QCOMPARE(edit.getLineEdit()->x(), expectedPixels(15));
    QCOMPARE(edit.getPostLabel()->x(), edit.getLineEdit()->geometry().right() + 1 + expectedPixels(15));
}

void VelaLineEditTest::marginsOfFourAndASpacingOfFiveAtEachScale()
{
    const QMap<double, QPair<int, int>> known {{1.0, {4, 5}}, {1.25, {5, 6}}, {1.5, {6, 7}}};
    QVERIFY(known.contains(expectedScale()));
    const auto [margin, spacing] = known.value(expectedScale());
    VelaLineEdit edit;
    edit.setMargins(4, 4, 4, 4);
    edit.setSpacing(5);
    QCOMPARE(rowOf(edit)->contentsMargins(), QMargins(margin, margin, margin, margin));
    QCOMPARE(rowOf(edit)->spacing(), spacing);
}

void VelaLineEditTest::theTextIsThatOfTheField()
{
    Shown<ControlWindow> window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    window.click();
    QVERIFY(edit->getLineEdit()->hasFocus());
    window.type(QStringLiteral("typed"));
    QCOMPARE(edit->getEditText(), QStringLiteral("typed"));
    window.key(Qt::Key_Backspace);
    QCOMPARE(edit->getEditText(), QStringLiteral("type"));
    edit->getLineEdit()->setText(QStringLiteral(" set "));
    QCOMPARE(edit->getEditText(), QStringLiteral(" set "));
    edit->getPreLabel()->setText(QStringLiteral("not this"));
    QCOMPARE(edit->getEditText(), QStringLiteral(" set "));
}

void VelaLineEditTest::theTextIsThatOfTheFieldWhateverItShows()
{
    VelaLineEdit edit;
    edit.getLineEdit()->setPlaceholderText(QStringLiteral("placeholder"));
    QCOMPARE(edit.getEditText(), QString());
    edit.getLineEdit()->setEchoMode(QLineEdit::Password);
    edit.getLineEdit()->setText(QStringLiteral("secret"));
    QCOMPARE(edit.getEditText(), QStringLiteral("secret"));
}

void VelaLineEditTest::withoutAValidatorEveryTextIsValid_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("word") << QStringLiteral("word");
    QTest::newRow("long") << QString(10000, QLatin1Char('x'));
}

void VelaLineEditTest::withoutAValidatorEveryTextIsValid()
{
    QFETCH(QString, text);
    VelaLineEdit edit;
    edit.getLineEdit()->setText(text);
    QVERIFY(edit.validate());
}

void VelaLineEditTest::settingAValidatorDoesNotValidate()
{
    VelaLineEdit edit;
    edit.setValidator(isNotEmpty);
    QCOMPARE(askedTexts, QStringList());
    QVERIFY(!edit.getLineEdit()->validator());
}

void VelaLineEditTest::theValidatorIsAskedOnceForTheCurrentText()
{
    VelaLineEdit edit;
    edit.setValidator(isNotEmpty);
    edit.getLineEdit()->setText(QStringLiteral("first"));
    edit.validate();
    QCOMPARE(askedTexts, QStringList {QStringLiteral("first")});
    edit.getLineEdit()->setText(QStringLiteral(" second "));
    edit.validate();
    QCOMPARE(askedTexts, (QStringList {QStringLiteral("first"), QStringLiteral(" second ")}));
}

void VelaLineEditTest::theValidatorsAnswerIsReturned()
{
    VelaLineEdit edit;
    edit.setValidator(isNotEmpty);
    QVERIFY(!edit.validate());
    edit.getLineEdit()->setText(QStringLiteral("text"));
    QVERIFY(edit.validate());
    edit.getLineEdit()->clear();
    QVERIFY(!edit.validate());
}

void VelaLineEditTest::aValidatorReplacesTheOneBefore()
{
    VelaLineEdit edit;
    edit.setValidator(isNotEmpty);
    edit.setValidator(isEmpty);
    QVERIFY(edit.validate());
    QCOMPARE(askedTexts.size(), 1);
    edit.getLineEdit()->setText(QStringLiteral("text"));
    QVERIFY(!edit.validate());
}

void VelaLineEditTest::theNullValidatorRemovesIt()
{
    VelaLineEdit edit;
    edit.setValidator(isNotEmpty);
    edit.setValidator(nullptr);
    QVERIFY(edit.validate());
    QCOMPARE(askedTexts, QStringList());
}

void VelaLineEditTest::editingDoesNotValidate()
{
    ControlWindow window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    edit->setValidator(isNotEmpty);
    QVERIFY(window.showAndWait());
    window.click();
    window.type(QStringLiteral("text"));
    window.key(Qt::Key_Return);
    window.neighbour->setFocus();
    QCOMPARE(askedTexts, QStringList());
}

void VelaLineEditTest::anErrorIsAPropertyOfTheFieldOnly()
{
    VelaLineEdit edit;
    for (bool error : {true, false, true}) {
        edit.setError(error);
        QCOMPARE(edit.getLineEdit()->property("error"), QVariant(error));
        QVERIFY(!edit.property("error").isValid());
        QVERIFY(!edit.getPreLabel()->property("error").isValid());
        QVERIFY(!edit.getPostLabel()->property("error").isValid());
    }
}

void VelaLineEditTest::thereIsNoErrorPropertyAtFirst()
{
    VelaLineEdit edit;
    QCOMPARE(edit.getLineEdit()->dynamicPropertyNames().contains("error"), false);
}

void VelaLineEditTest::validatingLeavesTheErrorAlone_data()
{
    QTest::addColumn<QVariant>("error");
    QTest::newRow("never set") << QVariant();
    QTest::newRow("set") << QVariant(true);
    QTest::newRow("set and reset") << QVariant(false);
}

void VelaLineEditTest::validatingLeavesTheErrorAlone()
{
    QFETCH(QVariant, error);
    VelaLineEdit edit;
    edit.setValidator(isNotEmpty);
    if (error.isValid()) {
        edit.setError(error.toBool());
    }
    QVERIFY(!edit.validate());
    QCOMPARE(edit.getLineEdit()->property("error"), error);
    edit.getLineEdit()->setText(QStringLiteral("text"));
    QVERIFY(edit.validate());
    QCOMPARE(edit.getLineEdit()->property("error"), error);
}

void VelaLineEditTest::theErrorLookComesAndGoesAtOnce()
{
    Shown<ControlWindow> window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    QCOMPARE(paintedColor(edit->getLineEdit()), Plain);
    edit->setError(true);
    QCOMPARE(paintedColor(edit->getLineEdit()), Error);
    edit->setError(false);
    QCOMPARE(paintedColor(edit->getLineEdit()), Plain);
    edit->setError(true);
    QCOMPARE(paintedColor(edit->getLineEdit()), Error);
}

void VelaLineEditTest::theErrorLookIsThatOfAFieldBornWithTheProperty()
{
    ControlWindow window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    auto *plain = new QLineEdit;
    plain->setProperty("error", true);
    plain->setStyleSheet(edit->getLineEdit()->styleSheet());
    ControlWindow plainWindow(plain);
    QVERIFY(window.showAndWait());
    plainWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plainWindow));

    edit->setError(true);
    const QSize size(100, 60);
    edit->getLineEdit()->resize(size);
    plain->resize(size);
    QCOMPARE(edit->getLineEdit()->grab().toImage(), plain->grab().toImage());
}

void VelaLineEditTest::theErrorLookOutlivesEditing()
{
    ControlWindow window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    edit->setValidator(isNotEmpty);
    QVERIFY(window.showAndWait());
    edit->setError(true);
    window.click();
    window.type(QStringLiteral("x"));
    QVERIFY(edit->validate());
    window.hide();
    window.show();
    QCOMPARE(paintedColor(edit->getLineEdit()), Error);
}

void VelaLineEditTest::theFieldAloneIsPolishedAndNothingUnpolished_data()
{
    QTest::addColumn<bool>("error");
    QTest::newRow("error") << true;
    QTest::newRow("no error") << false;
}

void VelaLineEditTest::theFieldAloneIsPolishedAndNothingUnpolished()
{
    QFETCH(bool, error);
    Shown<ControlWindow> window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    for (int repetition = 0; repetition < 2; ++repetition) {
        m_style->polished.clear();
        m_style->unpolished.clear();
        edit->setError(error);
        QCOMPARE(m_style->polished, QVector<QWidget *> {edit->getLineEdit()});
        QCOMPARE(m_style->unpolished, QVector<QWidget *>());
    }
}

void VelaLineEditTest::eachChangeIsOnePropertyChange()
{
    VelaLineEdit edit;
    PropertyChanges ofField(edit.getLineEdit());
    PropertyChanges ofTheWhole(&edit);
    edit.setError(true);
    QCOMPARE(ofField.take("error"), 1);
    edit.setError(true);
    QCOMPARE(ofField.take("error"), 0);
    edit.setError(false);
    QCOMPARE(ofField.take("error"), 1);
    QCOMPARE(ofTheWhole.take("error"), 0);
}

void VelaLineEditTest::theFieldIsRepaintedEvenWithoutAChange()
{
    ControlWindow window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    edit->getLineEdit()->setStyleSheet(QString()); // an edit with a sheet is repainted by the polishing already
    QVERIFY(window.showAndWait());
    QTest::qWait(50);
    EventCounter paints(edit->getLineEdit(), QEvent::Paint);
    for (bool error : {true, true, false, false}) {
        QTest::qWait(50);
        QCOMPARE(paints.take(), 0);
        edit->setError(error);
        QTest::qWait(50);
        QVERIFY(paints.take() > 0);
    }
}

void VelaLineEditTest::anErrorMayBeSetBeforeItIsShown()
{
    ControlWindow window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    edit->setError(true);
    QVERIFY(window.showAndWait());
    QCOMPARE(paintedColor(edit->getLineEdit()), Error);
}

// A label's access key, or an application, gives the focus to the whole like this.
void VelaLineEditTest::itHandsTheFocusToItsField()
{
    Shown<ControlWindow> window(new VelaLineEdit);
    auto *edit = static_cast<VelaLineEdit *>(window.control);
    QVERIFY(!edit->getLineEdit()->hasFocus());
    edit->setFocus();
    QVERIFY(edit->getLineEdit()->hasFocus());
    QVERIFY(edit->hasFocus());
}

QTEST_MAIN(VelaLineEditTest)
#include "tst_vela_line_edit.moc"
