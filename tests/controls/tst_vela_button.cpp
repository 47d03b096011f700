// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QStyleOptionButton>
#include <QVBoxLayout>
#include <QtTest>

namespace {

struct Kind
{
    const char *name;
    int kind;
    int value;
    const char *key;
};

constexpr Kind Kinds[] = {
    {"apply", VelaButton::ApplyButton, 0, "component.apply_button"},
    {"cancel", VelaButton::CancelButton, 1, "component.cancel_button"},
    {"selected page", VelaButton::SelectPagingButton, 2, "component.select_paging_button"},
    {"other page", VelaButton::NonselectPagingButton, 3, "component.nonselect_paging_button"},
    {"default", VelaButton::DefaultButton, 4, "component.default_button"},
    {"red", VelaButton::RedButton, 5, "component.red_button"},
};

} // namespace

class VelaButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void valuesOfTheKinds();
    void theKindsAreKnownByName();
    void theKindDecidesTheSheet_data();
    void theKindDecidesTheSheet();
    void anUnknownKindHasNoSheetAndIsNoError_data();
    void anUnknownKindHasNoSheetAndIsNoError();
    void theKindMayBeLeftOut();
    void aParentMayBeGivenAtOnce();
    void itIsMeasuredByItsSheetAtOnce();
    void clicksAndKeysClickIt();
    void itLooksLikeAPlainButtonOfTheSameSheet_data() { theKindDecidesTheSheet_data(); }
    void itLooksLikeAPlainButtonOfTheSameSheet();

    void withoutAParentItIsStyledToo_data();
    void withoutAParentItIsStyledToo();
    void aLaterStyleSheetReplacesItsOwn();

private:
    ResourceFolder m_folder;
};

void VelaButtonTest::initTestCase()
{
    QByteArray sheets;
    for (const Kind &kind : Kinds) {
        sheets +=
            QStringLiteral("== %1 ==\n"
                           "QPushButton { min-width: %2px; padding: 7px; border: 3px solid black; background: white }\n"
                           "QPushButton:hover { background: yellow }\n"
                           "QPushButton:pressed { background: orange }\n"
                           "QPushButton:focus { border-color: blue }\n"
                           "QPushButton:disabled { color: gray }\n")
                .arg(QLatin1String(kind.key))
                .arg(81 + kind.value)
                .toUtf8();
    }
    installSheets(m_folder, sheets);
}

void VelaButtonTest::theKindsAreKnownByName()
{
    const auto kinds = QMetaEnum::fromType<VelaButton::Kind>();
    QCOMPARE(kinds.valueToKey(VelaButton::RedButton), "RedButton");
    QCOMPARE(kinds.keyCount(), 6);
}

void VelaButtonTest::valuesOfTheKinds()
{
    for (const Kind &kind : Kinds) {
        QCOMPARE(kind.kind, kind.value);
    }
}

void VelaButtonTest::theKindDecidesTheSheet_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("key");
    for (const Kind &kind : Kinds) {
        QTest::newRow(kind.name) << kind.value << QString::fromLatin1(kind.key);
    }
}

void VelaButtonTest::theKindDecidesTheSheet()
{
    QFETCH(int, kind);
    QFETCH(QString, key);
    LogCapture log;
    const VelaButton button(QStringLiteral("Caption"), kind);

    QCOMPARE(button.text(), QStringLiteral("Caption"));
    QVERIFY(!button.parent());
    QVERIFY(button.isFlat());
    QCOMPARE(button.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QVERIFY(button.styleSheet().contains(
        QStringLiteral("min-width: %1px; padding: %2px").arg(expectedPixels(81 + kind)).arg(expectedPixels(7))));
    QCOMPARE(button.styleSheet(), getStyleSheet(key, false));
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaButtonTest::anUnknownKindHasNoSheetAndIsNoError_data()
{
    QTest::addColumn<int>("kind");
    for (int kind : {-1, 6, 7, 1000, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        QTest::newRow(qPrintable(QString::number(kind))) << kind;
    }
}

void VelaButtonTest::anUnknownKindHasNoSheetAndIsNoError()
{
    QFETCH(int, kind);
    LogCapture log;
    const VelaButton button(QStringLiteral("x"), kind);

    QCOMPARE(button.text(), QStringLiteral("x"));
    QVERIFY(button.isFlat());
    QCOMPARE(button.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button.styleSheet(), QString());
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaButtonTest::theKindMayBeLeftOut()
{
    const VelaButton button(QStringLiteral("x"));
    QCOMPARE(button.styleSheet(), getStyleSheet("component.default_button", false));
}

void VelaButtonTest::aParentMayBeGivenAtOnce()
{
    QWidget window;
    QVBoxLayout column(&window);
    auto *given = new VelaButton(QStringLiteral("Caption"), VelaButton::RedButton, &window);
    QCOMPARE(given->parentWidget(), &window);
    QCOMPARE(given->styleSheet(), getStyleSheet("component.red_button", false));
    auto *laidOut = new VelaButton(QStringLiteral("Caption"), VelaButton::RedButton);
    column.addWidget(given);
    column.addWidget(laidOut);
    window.show();
    QCOMPARE(given->size(), laidOut->size());
    given->clearFocus();
    QCOMPARE(given->grab().toImage(), laidOut->grab().toImage());
}

void VelaButtonTest::itIsMeasuredByItsSheetAtOnce()
{
    const auto contents = [](const QPushButton &button) {
        QStyleOptionButton option;
        option.initFrom(&button);
        option.rect = QRect(0, 0, 200, 100);
        return button.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &button);
    };
    QWidget parent;
    for (QWidget *each : {static_cast<QWidget *>(nullptr), &parent}) {
        const VelaButton button(QStringLiteral("Save"), VelaButton::ApplyButton, each);
        QPushButton plain(QStringLiteral("Save"), each);
        plain.setStyleSheet(button.styleSheet());
        QCOMPARE(contents(button), contents(plain));
    }
}

void VelaButtonTest::clicksAndKeysClickIt()
{
    auto *button = new VelaButton(QStringLiteral("x"), VelaButton::ApplyButton);
    Shown<ControlWindow> window(button);
    const QSignalSpy clicked(button, &VelaButton::clicked);

    window.press();
    window.release();
    QCOMPARE(clicked.count(), 1);
    window.control->setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    QCOMPARE(clicked.count(), 2);
    window.control->setEnabled(false);
    window.press();
    window.release();
    QCOMPARE(clicked.count(), 2);
}

void VelaButtonTest::itLooksLikeAPlainButtonOfTheSameSheet()
{
    QFETCH(int, kind);
    QFETCH(QString, key);
    auto *plain = new QPushButton(QStringLiteral("Caption"));
    plain->setFlat(true);
    plain->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    plain->setStyleSheet(getStyleSheet(key, false));
    ControlWindow plainWindow(plain);
    ControlWindow window(new VelaButton(QStringLiteral("Caption"), kind));

    const auto grabAllStates = [](auto &shown) {
        QVector<QImage> states;
        const auto grab = [&] { states.append(shown.control->grab().toImage()); };
        grab();
        shown.enter();
        grab();
        shown.press();
        grab();
        shown.release();
        shown.leave();
        shown.control->setFocus();
        grab();
        shown.control->setEnabled(false);
        grab();
        return states;
    };
    QVERIFY(plainWindow.showAndWait());
    const QVector<QImage> expected = grabAllStates(plainWindow);
    plainWindow.close();
    QVERIFY(window.showAndWait());
    const QVector<QImage> found = grabAllStates(window);

    QCOMPARE(found.size(), expected.size());
    for (int i = 0; i < found.size(); ++i) {
        QCOMPARE(found[i], expected[i]);
    }
    for (int i = 1; i < found.size(); ++i) {
        QVERIFY(found[i] != found[0]); // each state of this sheet can be told from the normal one
    }
}

void VelaButtonTest::withoutAParentItIsStyledToo_data()
{
    QTest::addColumn<bool>("isAskedBeforeItIsShown");
    QTest::newRow("shown at once") << false;
    QTest::newRow("asked for its size first") << true;
}

void VelaButtonTest::withoutAParentItIsStyledToo()
{
    QFETCH(bool, isAskedBeforeItIsShown);
    QPushButton plain(QStringLiteral("Caption"));
    plain.setFlat(true);
    plain.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    plain.setStyleSheet(getStyleSheet("component.red_button", false));
    VelaButton button(QStringLiteral("Caption"), VelaButton::RedButton);
    if (isAskedBeforeItIsShown) {
        QCOMPARE(button.sizeHint(), plain.sizeHint());
    }
    // Of two windows on the screen one may have the focus already, which is painted, and the other not yet.
    plain.setAttribute(Qt::WA_DontShowOnScreen);
    button.setAttribute(Qt::WA_DontShowOnScreen);
    plain.show();
    button.show();
    plain.resize(plain.sizeHint());
    button.resize(plain.sizeHint());
    QCOMPARE(button.sizeHint(), plain.sizeHint());
    QCOMPARE(button.grab().toImage(), plain.grab().toImage());
}

void VelaButtonTest::aLaterStyleSheetReplacesItsOwn()
{
    const QString sheet = QStringLiteral("QPushButton { background: cyan; border: none }");
    ControlWindow window(new VelaButton(QString(), VelaButton::RedButton));
    window.control->setStyleSheet(sheet);
    QCOMPARE(window.control->styleSheet(), sheet);
    QVERIFY(window.showAndWait());
    QCOMPARE(paintedColor(window.control), QColor(Qt::cyan));
}

QTEST_MAIN(VelaButtonTest)

#include "tst_vela_button.moc"
