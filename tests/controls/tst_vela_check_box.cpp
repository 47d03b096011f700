// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-check-box.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QtTest>

namespace {

// Rules that are the same for both, so that what they look like can be told from their states.
constexpr char Rules[] = "%1 { spacing: 7px; padding: 5px; color: black; background: white }\n"
                         "%1::indicator { width: 22px; height: 18px; background: yellow; border: 1px solid black }\n"
                         "%1::indicator:hover { background: orange }\n"
                         "%1::indicator:pressed { background: red }\n"
                         "%1::indicator:checked { background: green }\n"
                         "%1::indicator:indeterminate { background: blue }\n"
                         "%1:focus { color: magenta }\n"
                         "%1:disabled { color: gray }";

struct Kind
{
    const char *name;
    const char *base;
    const char *key;
};

constexpr Kind Kinds[] = {
    {"check box", "QCheckBox", "component.checkbox"},
    {"radio button", "QRadioButton", "component.radio_button"},
};
enum { Check, Radio };

const QString Caption = QStringLiteral("A &caption");

// What stands in the style-sheet file, with its lengths at the expected scale.
QString expectedSheet(int kind)
{
    QString sheet = QLatin1Char('\n') + QLatin1String(Rules).arg(QLatin1String(Kinds[kind].base));
    for (int length : {22, 18, 7, 5, 1}) {
        sheet.replace(QStringLiteral(" %1px").arg(length), QStringLiteral(" %1_px").arg(expectedPixels(length)));
    }
    return sheet.replace(QLatin1String("_px"), QLatin1String("px"));
}

std::unique_ptr<QAbstractButton> create(int kind, const QString &text = Caption, QWidget *parent = nullptr)
{
    if (kind == Check) {
        return std::make_unique<VelaCheckBox>(text, parent);
    }
    return std::make_unique<VelaRadioButton>(text, parent);
}

// A button of the toolkit with the same sheet.
std::unique_ptr<QAbstractButton> createPlain(int kind, const QString &text = Caption, QWidget *parent = nullptr)
{
    std::unique_ptr<QAbstractButton> button;
    if (kind == Check) {
        button = std::make_unique<QCheckBox>(text, parent);
    } else {
        button = std::make_unique<QRadioButton>(text, parent);
    }
    button->setStyleSheet(getStyleSheet(Kinds[kind].key, false));
    return button;
}

// What a button says of itself, in order.
class SignalRecorder : public QObject
{
public:
    explicit SignalRecorder(QAbstractButton *button)
    {
        connect(button, &QAbstractButton::pressed, this, [this] { m_log += QStringLiteral("pressed"); });
        connect(button, &QAbstractButton::released, this, [this] { m_log += QStringLiteral("released"); });
        connect(button, &QAbstractButton::clicked, this,
                [this](bool checked) { m_log += QStringLiteral("clicked %1").arg(checked); });
        connect(button, &QAbstractButton::toggled, this,
                [this](bool checked) { m_log += QStringLiteral("toggled %1").arg(checked); });
        if (auto *checkBox = qobject_cast<QCheckBox *>(button)) {
            connect(checkBox, &QCheckBox::stateChanged, this,
                    [this](int state) { m_log += QStringLiteral("state %1").arg(state); });
        }
    }

    QStringList take() { return std::exchange(m_log, {}); }

private:
    QStringList m_log;
};

} // namespace

class VelaCheckBoxTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void itTakesTextAndParentAndHasTheScaledSheetOfItsKey_data() { addKinds(); }
    void itTakesTextAndParentAndHasTheScaledSheetOfItsKey();
    void allElseIsAsInItsBase_data() { addKinds(); }
    void allElseIsAsInItsBase();
    void aLaterSheetReplacesItsOwn_data() { addKinds(); }
    void aLaterSheetReplacesItsOwn();

    void itLooksLikeItsBaseWithTheSameSheet_data() { addKinds(); }
    void itLooksLikeItsBaseWithTheSameSheet();
    void theSheetDecidesTheIndicator_data() { addKinds(); }
    void theSheetDecidesTheIndicator();

    void clicksAndKeysSignalWhatTheBaseSignals_data() { addKinds(); }
    void clicksAndKeysSignalWhatTheBaseSignals();
    void aClickChecksAndSignalsInOrder_data() { addKinds(); }
    void aClickChecksAndSignalsInOrder();
    void aCheckBoxWithThreeStatesGoesThroughThem();
    void aPartialStateMakesACheckBoxTristate();
    void radioButtonsOfAParentExcludeEachOther();
    void radioButtonsExcludePlainOnesToo();
    void arrowKeysMoveTheChoiceBetweenRadioButtons();
    void aCheckedRadioButtonStaysCheckedWhenClicked();
    void radioButtonsCanBeMadeIndependent();
    void checkBoxesAreIndependent();
    void aDisabledOneTakesNoClick_data() { addKinds(); }
    void aDisabledOneTakesNoClick();
    void theMnemonicClicksIt_data() { addKinds(); }
    void theMnemonicClicksIt();

private:
    static void addKinds();

    ResourceFolder m_folder;
};

void VelaCheckBoxTest::addKinds()
{
    QTest::addColumn<int>("kind");
    for (int kind : {Check, Radio}) {
        QTest::newRow(Kinds[kind].name) << kind;
    }
}

void VelaCheckBoxTest::initTestCase()
{
    QByteArray sheets;
    for (int kind : {Check, Radio}) {
        sheets +=
            QByteArray("== ") + Kinds[kind].key + " ==\n" + QByteArray(Rules).replace("%1", Kinds[kind].base) + '\n';
    }
    installSheets(m_folder, sheets);
}

void VelaCheckBoxTest::itTakesTextAndParentAndHasTheScaledSheetOfItsKey()
{
    QFETCH(int, kind);
    LogCapture log;
    QWidget parent;
    const auto button = create(kind, Caption, &parent);
    QCOMPARE(button->text(), Caption);
    QCOMPARE(button->parentWidget(), &parent);
    QCOMPARE(button->styleSheet(), expectedSheet(kind));
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaCheckBoxTest::allElseIsAsInItsBase()
{
    QFETCH(int, kind);
    QWidget parent;
    const auto button = create(kind, Caption, &parent);
    const auto plain = createPlain(kind, Caption, &parent);
    QCOMPARE(differingProperties(*plain->metaObject(), *button, *plain), QStringList());
    plain->setFocusPolicy(Qt::NoFocus);
    QCOMPARE(differingProperties(*plain->metaObject(), *button, *plain), QStringList {QStringLiteral("focusPolicy")});
}

void VelaCheckBoxTest::aLaterSheetReplacesItsOwn()
{
    QFETCH(int, kind);
    const QString sheet = QStringLiteral("QAbstractButton { background: cyan; min-width: 60px; min-height: 60px }");
    ControlWindow window(create(kind, QString()).release());
    window.control->setStyleSheet(sheet);
    QVERIFY(window.showAndWait());
    QCOMPARE(window.control->styleSheet(), sheet);
    QCOMPARE(paintedColor(window.control), QColor(Qt::cyan));
}

void VelaCheckBoxTest::itLooksLikeItsBaseWithTheSameSheet()
{
    QFETCH(int, kind);
    const auto grabAllStates = [kind](QAbstractButton *button) {
        QVector<QImage> states;
        ControlWindow window(button);
        const auto grab = [&] { states.append(button->grab().toImage()); };
        if (!window.showAndWait()) {
            return states;
        }
        grab();
        window.enter();
        grab();
        window.press();
        grab();
        window.release(); // checked, with the pointer on it and the focus in it
        grab();
        window.leave();
        window.neighbour->setFocus();
        button->setEnabled(false);
        grab();
        if (kind == Check) {
            static_cast<QCheckBox *>(button)->setCheckState(Qt::PartiallyChecked);
            grab();
        }
        return states;
    };
    const QVector<QImage> expected = grabAllStates(createPlain(kind).release());
    const QVector<QImage> found = grabAllStates(create(kind).release());

    QCOMPARE(expected.size(), kind == Check ? 6 : 5);
    QCOMPARE(found.size(), expected.size());
    for (int i = 0; i < found.size(); ++i) {
        QCOMPARE(found[i], expected[i]);
        QCOMPARE(found.indexOf(found[i]), i); // each state can be told from the others
    }
}

void VelaCheckBoxTest::theSheetDecidesTheIndicator()
{
    QFETCH(int, kind);
    Shown<ControlWindow> window(create(kind).release());
    auto *button = static_cast<QAbstractButton *>(window.control);
    const QPoint inIndicator(expectedPixels(5) + expectedPixels(22) / 2, button->height() / 2);

    QCOMPARE(paintedColor(button, QPoint(1, 1)), QColor(Qt::white));
    QCOMPARE(paintedColor(button, inIndicator), QColor(Qt::yellow));
    QCOMPARE(paintedColor(button, QPoint(expectedPixels(5), button->height() / 2)), QColor(Qt::black)); // the border
    button->setChecked(true);
    QCOMPARE(paintedColor(button, inIndicator), QColor("green"));
    if (kind == Check) {
        static_cast<QCheckBox *>(button)->setCheckState(Qt::PartiallyChecked);
        QCOMPARE(paintedColor(button, inIndicator), QColor(Qt::blue));
    }
}

void VelaCheckBoxTest::clicksAndKeysSignalWhatTheBaseSignals()
{
    QFETCH(int, kind);
    const auto record = [](QAbstractButton *button) {
        ControlWindow window(button);
        SignalRecorder recorder(button);
        if (!window.showAndWait()) {
            return QStringList();
        }
        window.click();
        window.click();
        window.press();
        window.leave(); // the button comes up and is not clicked
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
        button->setFocus();
        window.key(Qt::Key_Space);
        window.key(Qt::Key_Return);
        window.key(Qt::Key_Enter);
        button->animateClick(0);
        QTest::qWait(10);
        button->click();
        button->toggle();
        button->setChecked(false);
        if (auto *checkBox = qobject_cast<QCheckBox *>(button)) {
            checkBox->setTristate();
            window.click();
            window.click();
            window.click();
            checkBox->setCheckState(Qt::PartiallyChecked);
        }
        button->setCheckable(false);
        window.click();
        return recorder.take();
    };
    const QStringList expected = record(createPlain(kind).release());
    QVERIFY(expected.size() > 10);
    QCOMPARE(record(create(kind).release()), expected);
}

void VelaCheckBoxTest::aClickChecksAndSignalsInOrder()
{
    QFETCH(int, kind);
    ControlWindow window(create(kind).release());
    auto *button = static_cast<QAbstractButton *>(window.control);
    SignalRecorder recorder(button);
    QVERIFY(window.showAndWait());
    QVERIFY(button->isCheckable());
    QVERIFY(!button->isChecked());

    window.click();
    QVERIFY(button->isChecked());
    QStringList expected {QStringLiteral("pressed"), QStringLiteral("toggled 1"), QStringLiteral("released"),
                          QStringLiteral("clicked 1")};
    if (kind == Check) {
        expected.insert(2, QStringLiteral("state 2"));
    }
    QCOMPARE(recorder.take(), expected);
}

void VelaCheckBoxTest::aCheckBoxWithThreeStatesGoesThroughThem()
{
    Shown<ControlWindow> window(new VelaCheckBox(Caption));
    auto *checkBox = static_cast<VelaCheckBox *>(window.control);
    QVERIFY(!checkBox->isTristate());
    QVector<int> states;
    connect(checkBox, &VelaCheckBox::stateChanged, this, [&states](int state) { states.append(state); });

    window.click();
    window.click();
    QCOMPARE(std::exchange(states, {}), (QVector<int> {Qt::Checked, Qt::Unchecked}));
    checkBox->setTristate();
    window.click();
    window.click();
    window.click();
    QCOMPARE(states, (QVector<int> {Qt::PartiallyChecked, Qt::Checked, Qt::Unchecked}));
}

void VelaCheckBoxTest::aPartialStateMakesACheckBoxTristate()
{
    VelaCheckBox checkBox(Caption);
    checkBox.setCheckState(Qt::PartiallyChecked);
    QVERIFY(checkBox.isTristate());
    QVERIFY(checkBox.isChecked());
    QCOMPARE(checkBox.checkState(), Qt::PartiallyChecked);
}

void VelaCheckBoxTest::radioButtonsOfAParentExcludeEachOther()
{
    ControlWindow window(new VelaRadioButton(Caption));
    auto *first = static_cast<VelaRadioButton *>(window.control);
    auto *second = new VelaRadioButton(Caption, &window);
    QWidget elsewhere;
    VelaRadioButton stranger(Caption, &elsewhere);
    second->setChecked(true);
    stranger.setChecked(true);
    const QSignalSpy toggled(second, &VelaRadioButton::toggled);
    QVERIFY(window.showAndWait());

    window.click();
    QVERIFY(first->isChecked());
    QVERIFY(!second->isChecked());
    QCOMPARE(toggled.count(), 1);
    QVERIFY(stranger.isChecked());
}

void VelaCheckBoxTest::radioButtonsExcludePlainOnesToo()
{
    QWidget parent;
    VelaRadioButton button(Caption, &parent);
    QRadioButton plain(Caption, &parent);
    button.setChecked(true);
    plain.setChecked(true);
    QVERIFY(!button.isChecked());
    button.setChecked(true);
    QVERIFY(!plain.isChecked());
}

void VelaCheckBoxTest::arrowKeysMoveTheChoiceBetweenRadioButtons()
{
    ControlWindow window(new VelaRadioButton(Caption));
    auto *first = static_cast<VelaRadioButton *>(window.control);
    auto *second = new VelaRadioButton(Caption);
    window.layout()->addWidget(second);
    QVERIFY(window.showAndWait());
    window.click();
    first->setFocus();

    window.key(Qt::Key_Right);
    QVERIFY(second->isChecked());
    QVERIFY(second->hasFocus());
    window.key(Qt::Key_Left);
    QVERIFY(first->isChecked());
}

void VelaCheckBoxTest::aCheckedRadioButtonStaysCheckedWhenClicked()
{
    ControlWindow window(new VelaRadioButton(Caption));
    auto *button = static_cast<VelaRadioButton *>(window.control);
    const VelaRadioButton other(Caption, &window);
    QVERIFY(window.showAndWait());
    window.click();
    const QSignalSpy toggled(button, &VelaRadioButton::toggled);
    const QSignalSpy clicked(button, &VelaRadioButton::clicked);
    window.click();
    QVERIFY(button->isChecked());
    QCOMPARE(toggled.count(), 0);
    QCOMPARE(clicked.count(), 1);
}

void VelaCheckBoxTest::radioButtonsCanBeMadeIndependent()
{
    ControlWindow window(new VelaRadioButton(Caption));
    auto *first = static_cast<VelaRadioButton *>(window.control);
    auto *second = new VelaRadioButton(Caption, &window);
    first->setAutoExclusive(false);
    second->setAutoExclusive(false);
    second->setChecked(true);
    QVERIFY(window.showAndWait());
    window.click();
    QVERIFY(first->isChecked());
    QVERIFY(second->isChecked());
    window.click();
    QVERIFY(!first->isChecked());
}

void VelaCheckBoxTest::checkBoxesAreIndependent()
{
    QWidget parent;
    VelaCheckBox first(Caption, &parent);
    VelaCheckBox second(Caption, &parent);
    first.setChecked(true);
    second.setChecked(true);
    QVERIFY(first.isChecked());
}

void VelaCheckBoxTest::aDisabledOneTakesNoClick()
{
    QFETCH(int, kind);
    ControlWindow window(create(kind).release());
    auto *button = static_cast<QAbstractButton *>(window.control);
    SignalRecorder recorder(button);
    QVERIFY(window.showAndWait());
    button->setEnabled(false);
    window.click();
    QVERIFY(!button->isChecked());
    QCOMPARE(recorder.take(), QStringList());
}

void VelaCheckBoxTest::theMnemonicClicksIt()
{
    QFETCH(int, kind);
    Shown<ControlWindow> window(create(kind).release());
    auto *button = static_cast<QAbstractButton *>(window.control);
    window.key(Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(button->isChecked());
}

QTEST_MAIN(VelaCheckBoxTest)
#include "tst_vela_check_box.moc"
