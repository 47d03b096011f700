// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <QToolBar>
#include <QtTest>

#include <functional>
#include <utility>

Q_DECLARE_METATYPE(std::function<void(VelaIconButton *)>)

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

const QColor Normal(Qt::red);
const QColor Hover(Qt::green);
const QColor Press(Qt::blue);
const QColor Disable(Qt::magenta);
const QColor Other(Qt::cyan);

constexpr QSize FileSize(96, 64);
const QPoint Outside(1, 1); // in a test window's margin

QPixmap filled(const QSize &size, const QColor &color)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

QColor colorOf(const QIcon &icon)
{
    const QPixmap pixmap = icon.pixmap(8, 8);
    return pixmap.isNull() ? QColor() : pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
}

} // namespace

/// A window with a button and a neighbour to take the focus; the pointer is outside of both.
template<class Button>
class ButtonWindow : public QWidget
{
public:
    explicit ButtonWindow(Button *shownButton) : button(shownButton), neighbour(new QLineEdit)
    {
        auto *row = new QHBoxLayout(this);
        row->setContentsMargins(30, 30, 30, 30);
        row->addWidget(button);
        row->addWidget(neighbour);
        neighbour->setFocus();
    }

    bool showAndWait()
    {
        show();
        const bool isShown = QTest::qWaitForWindowActive(this);
        // The window must have seen the pointer for an enter to count, and a move to where it was already is none.
        QTest::mouseMove(windowHandle(), Outside + QPoint(1, 1));
        leave();
        return isShown;
    }

    QPoint center() const { return button->geometry().center(); }
    void enter() { QTest::mouseMove(windowHandle(), center()); }
    void leave() { QTest::mouseMove(windowHandle(), Outside); }
    void press(Qt::MouseButton which = Qt::LeftButton) { QTest::mousePress(windowHandle(), which, {}, center()); }
    void release(Qt::MouseButton which = Qt::LeftButton) { QTest::mouseRelease(windowHandle(), which, {}, center()); }

    Button *button;
    QLineEdit *neighbour;
};

class VelaButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void valuesOfTheKinds();
    void theKindsAreKnownByName();
    void aKindWithoutItsSheetIsUnstyledAndLogged();
    void theKindDecidesTheSheet_data();
    void theKindDecidesTheSheet();
    void anUnknownKindHasNoSheetAndIsNoError_data();
    void anUnknownKindHasNoSheetAndIsNoError();
    void theKindMayBeLeftOut();
    void itAddsNoSignalsSlotsOrProperties();
    void itIsFoundAmongItsParentsChildren();
    void clicksAndKeysClickIt();
    void itLooksLikeAPlainButtonOfTheSameSheet_data();
    void itLooksLikeAPlainButtonOfTheSameSheet();

    void withoutAParentItIsStyledToo_data();
    void withoutAParentItIsStyledToo();
    void aLaterStyleSheetReplacesItsOwn();

    void anIconButtonIsSetUpAsAnImageOnly_data();
    void anIconButtonIsSetUpAsAnImageOnly();
    void allFourImagesAreAskedForInOrder();
    void anUnknownImageLeavesItEmptyAndIsLoggedByTheImageManagerOnly();
    void theIconSizeIsTheNormalImagesLogicalSize();
    void theIconSizeOfAPixmapIsDividedByTheRatioAndRounded_data();
    void theIconSizeOfAPixmapIsDividedByTheRatioAndRounded();
    void theIconSizeIsAppliedByTheNextEventOnly();
    void everyChangeOfTheIconAppliesTheIconSize();
    void showPaintsTheDefaultIcon();
    void showOfADisabledButtonShowsItsDisableIcon();
    void thePointerAndTheMouseButtonsSwitchTheIcon();
    void everyMouseButtonShowsThePressIcon();
    void focusKeepsTheHoverIconWhenThePointerLeaves();
    void theKeptHoverIconEndsAtTheNextRelease();
    void theKeptHoverIconEndsAtTheNextShow();
    void disablingAndEnablingSwitchTheIconAtOnce();
    void whileDisabledNothingChangesTheIcon();
    void aButtonOfAPixmapShowsItInEveryState();
    void settersChangeNothingUntilTheNextEvent();
    void settersLeaveTheIconSizeAlone();
    void settingAllIconsShowsTheDefaultIconAtOnceWithoutItsSize();
    void settingTheDefaultIconReplacesAllFour();
    void eventsReachTheToolButton();
    void otherChangesReachTheToolButton();
    void theIconIsChangedBeforeTheToolButtonTellsOfTheEvent();
    void aDisabledButtonsHandlersChangeNothing();
    void aMenuOpensAtTheFirstPress();
    void aPressOnTheMenusPartOpensTheMenuOnly();
    void aDisabledButtonPaintsItsIconAsAnEnabledToolButtonDoes();
    void theImagesOfADisabledButtonAreNotGreyed_data();
    void theImagesOfADisabledButtonAreNotGreyed();

private:
    ResourceFolder m_folder;
};

void VelaButtonTest::initTestCase()
{
    m_folder.setAsPaths();
    m_folder.writeImage(QStringLiteral("four"), FileSize, Normal);
    m_folder.writeImage(QStringLiteral("four_hover"), FileSize, Hover);
    m_folder.writeImage(QStringLiteral("four_click"), FileSize, Press);
    m_folder.writeImage(QStringLiteral("four_disable"), FileSize, Disable);
    m_folder.writeImage(QStringLiteral("one"), FileSize, Normal);
    m_folder.writeImage(QStringLiteral("large"), FileSize * 2, Other);
    m_folder.writeImage(QStringLiteral("large_hover"), FileSize, Hover);
    m_folder.writeImage(QStringLiteral("large_click"), FileSize, Press);
    m_folder.writeImage(QStringLiteral("large_disable"), FileSize, Disable);
    m_folder.writeCatalogue({QStringLiteral("four"), QStringLiteral("one"), QStringLiteral("large")});
    ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
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

// The first to build buttons: no sheets are installed yet.
void VelaButtonTest::aKindWithoutItsSheetIsUnstyledAndLogged()
{
    LogCapture log;
    for (const Kind &kind : Kinds) {
        const VelaButton button(QStringLiteral("x"), kind.value);
        QCOMPARE(button.styleSheet(), QString());
        QCOMPARE(log.takeTexts(),
                 QStringList {QStringLiteral("Cannot find stylesheet \"%1\"").arg(QLatin1String(kind.key))});
    }
    const VelaIconButton iconButton(QStringLiteral("four"));
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Cannot find stylesheet \"component.icon_button\"")});

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
    sheets += "== component.icon_button ==\nQToolButton { border: none; padding: 4px }\nQToolButton::menu-indicator { "
              "image: none }\n";
    m_folder.writeFile(QStringLiteral("buttons.qss"), sheets);
    StyleManager::getInstance()->initialize({m_folder.path() + QStringLiteral("/buttons.qss")});
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

void VelaButtonTest::itAddsNoSignalsSlotsOrProperties()
{
    QCOMPARE(VelaButton::staticMetaObject.className(), "VelaButton");
    QCOMPARE(VelaButton::staticMetaObject.methodCount(), QPushButton::staticMetaObject.methodCount());
    QCOMPARE(VelaButton::staticMetaObject.propertyCount(), QPushButton::staticMetaObject.propertyCount());
    QCOMPARE(VelaIconButton::staticMetaObject.className(), "VelaIconButton");
    QCOMPARE(VelaIconButton::staticMetaObject.methodCount(), QToolButton::staticMetaObject.methodCount());
    QCOMPARE(VelaIconButton::staticMetaObject.propertyCount(), QToolButton::staticMetaObject.propertyCount());
}

void VelaButtonTest::itIsFoundAmongItsParentsChildren()
{
    QWidget parent;
    auto *row = new QHBoxLayout(&parent);
    auto *button = new VelaButton(QStringLiteral("x"), VelaButton::ApplyButton);
    auto *iconButton = new VelaIconButton(QStringLiteral("four"));
    row->addWidget(button);
    row->addWidget(iconButton);
    row->addWidget(new QPushButton);
    row->addWidget(new QToolButton);
    QCOMPARE(parent.findChildren<VelaButton *>(), QList<VelaButton *> {button});
    QCOMPARE(parent.findChildren<VelaIconButton *>(), QList<VelaIconButton *> {iconButton});
}

void VelaButtonTest::clicksAndKeysClickIt()
{
    ButtonWindow<VelaButton> window(new VelaButton(QStringLiteral("x"), VelaButton::ApplyButton));
    QVERIFY(window.showAndWait());
    const QSignalSpy clicked(window.button, &VelaButton::clicked);

    window.press();
    window.release();
    QCOMPARE(clicked.count(), 1);
    window.button->setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Space);
    QCOMPARE(clicked.count(), 2);
    window.button->setEnabled(false);
    window.press();
    window.release();
    QCOMPARE(clicked.count(), 2);
}

void VelaButtonTest::itLooksLikeAPlainButtonOfTheSameSheet_data()
{
    theKindDecidesTheSheet_data();
}

void VelaButtonTest::itLooksLikeAPlainButtonOfTheSameSheet()
{
    QFETCH(int, kind);
    QFETCH(QString, key);
    auto *plain = new QPushButton(QStringLiteral("Caption"));
    plain->setFlat(true);
    plain->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    plain->setStyleSheet(getStyleSheet(key, false));
    ButtonWindow<QPushButton> plainWindow(plain);
    ButtonWindow<VelaButton> window(new VelaButton(QStringLiteral("Caption"), kind));

    const auto grabAllStates = [](auto &shown) {
        QVector<QImage> states;
        const auto grab = [&] { states.append(shown.button->grab().toImage()); };
        grab();
        shown.enter();
        grab();
        shown.press();
        grab();
        shown.release();
        shown.leave();
        shown.button->setFocus();
        grab();
        shown.button->setEnabled(false);
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
    ButtonWindow<VelaButton> window(new VelaButton(QString(), VelaButton::RedButton));
    window.button->setStyleSheet(sheet);
    QCOMPARE(window.button->styleSheet(), sheet);
    QVERIFY(window.showAndWait());
    QCOMPARE(paintedColor(window.button), QColor(Qt::cyan));
}

void VelaButtonTest::anIconButtonIsSetUpAsAnImageOnly_data()
{
    QTest::addColumn<bool>("isOfPixmap");
    QTest::newRow("of an image name") << false;
    QTest::newRow("of a pixmap") << true;
}

void VelaButtonTest::anIconButtonIsSetUpAsAnImageOnly()
{
    QFETCH(bool, isOfPixmap);
    LogCapture log;
    const std::unique_ptr<VelaIconButton> button(isOfPixmap ? new VelaIconButton(filled(QSize(16, 16), Normal))
                                                            : new VelaIconButton(QStringLiteral("four")));
    QVERIFY(!button->parent());
    QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
    QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(button->popupMode(), QToolButton::InstantPopup);
    QVERIFY(button->styleSheet().contains(QStringLiteral("padding: %1px").arg(expectedPixels(4))));
    QCOMPARE(button->styleSheet(), getStyleSheet("component.icon_button", false));
    QCOMPARE(colorOf(button->icon()), Normal);
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaButtonTest::allFourImagesAreAskedForInOrder()
{
    LogCapture log;
    const VelaIconButton button(QStringLiteral("one"));
    const QString warning = QStringLiteral("Cannot load pixmap \"one\" with type %1 [use default icon]");
    QCOMPARE(log.takeTexts(), (QStringList {warning.arg(1), warning.arg(2), warning.arg(3)}));
}

void VelaButtonTest::anUnknownImageLeavesItEmptyAndIsLoggedByTheImageManagerOnly()
{
    LogCapture log;
    auto *button = new VelaIconButton(QStringLiteral("unknown"));
    const QString warning = QStringLiteral("Cannot load pixmap \"unknown\"");
    QCOMPARE(log.takeTexts(), (QStringList {warning, warning, warning, warning}));
    QVERIFY(button->icon().isNull());

    ButtonWindow<VelaIconButton> window(button);
    QVERIFY(window.showAndWait());
    QCOMPARE(button->QToolButton::iconSize(), QSize(0, 0));
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaButtonTest::theIconSizeIsTheNormalImagesLogicalSize()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    QCOMPARE(window.button->iconSize(), expectedImageSize(FileSize) / expectedRatio());
}

void VelaButtonTest::theIconSizeOfAPixmapIsDividedByTheRatioAndRounded_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("sizeAtRatio2");
    QTest::newRow("even") << QSize(48, 32) << QSize(24, 16);
    QTest::newRow("odd") << QSize(25, 25) << QSize(13, 13);
    QTest::newRow("one") << QSize(1, 3) << QSize(1, 2);
}

void VelaButtonTest::theIconSizeOfAPixmapIsDividedByTheRatioAndRounded()
{
    QFETCH(QSize, size);
    QFETCH(QSize, sizeAtRatio2);
    ButtonWindow<VelaIconButton> window(new VelaIconButton(filled(size, Normal)));
    QVERIFY(window.showAndWait());
    QCOMPARE(window.button->iconSize(), expectedRatio() == 2 ? sizeAtRatio2 : size);
}

void VelaButtonTest::theIconSizeIsAppliedByTheNextEventOnly()
{
    const QToolButton plain;
    auto *button = new VelaIconButton(filled(QSize(70, 50), Normal));
    QCOMPARE(button->iconSize(), plain.iconSize());

    ButtonWindow<VelaIconButton> window(button);
    QVERIFY(window.showAndWait());
    QCOMPARE(button->iconSize(), QSize(70, 50) / expectedRatio());
}

void VelaButtonTest::everyChangeOfTheIconAppliesTheIconSize()
{
    const QSize foreign(5, 7);
    const QSize own = QSize(70, 50) / expectedRatio();
    ButtonWindow<VelaIconButton> window(new VelaIconButton(filled(QSize(70, 50), Normal)));
    QVERIFY(window.showAndWait());
    VelaIconButton *button = window.button;

    const std::pair<const char *, std::function<void()>> changes[] = {
        {"enter", [&] { window.enter(); }},
        {"press", [&] { window.press(); }},
        {"release", [&] { window.release(); }},
        {"leave", [&] { window.leave(); }},
        {"disable", [&] { button->setEnabled(false); }},
        {"enable", [&] { button->setEnabled(true); }},
        {"show",
         [&] {
             button->hide();
             button->show();
         }},
    };
    for (const auto &[name, change] : changes) {
        button->setIconSize(foreign);
        change();
        QVERIFY2(button->iconSize() == own, name);
    }
}

void VelaButtonTest::showPaintsTheDefaultIcon()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    QCOMPARE(paintedColor(window.button), Normal);
}

void VelaButtonTest::showOfADisabledButtonShowsItsDisableIcon()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    window.button->setEnabled(false);
    window.button->setDisableIcon(filled(QSize(16, 16), Other)); // seen only if show itself sets the icon
    QCOMPARE(colorOf(window.button->icon()), Disable);
    QVERIFY(window.showAndWait());
    QCOMPARE(colorOf(window.button->icon()), Other);
}

void VelaButtonTest::thePointerAndTheMouseButtonsSwitchTheIcon()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());

    window.enter();
    QCOMPARE(paintedColor(window.button), Hover);
    window.press();
    QCOMPARE(paintedColor(window.button), Press);
    window.release();
    QCOMPARE(paintedColor(window.button), Normal); // though the pointer is over it
    QTest::mouseMove(window.windowHandle(), window.center() + QPoint(1, 1));
    QCOMPARE(paintedColor(window.button), Normal);
    window.neighbour->setFocus();
    window.leave();
    QCOMPARE(paintedColor(window.button), Normal);
    window.enter();
    QCOMPARE(paintedColor(window.button), Hover);
    window.leave();
    QCOMPARE(paintedColor(window.button), Normal);
}

void VelaButtonTest::everyMouseButtonShowsThePressIcon()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    for (Qt::MouseButton which : {Qt::RightButton, Qt::MiddleButton}) {
        window.press(which);
        QCOMPARE(paintedColor(window.button), Press);
        QVERIFY(!window.button->isDown());
        window.release(which);
        QCOMPARE(paintedColor(window.button), Normal);
    }
}

void VelaButtonTest::focusKeepsTheHoverIconWhenThePointerLeaves()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    window.button->setFocus();
    QVERIFY(window.button->hasFocus());

    window.enter();
    window.leave();
    QCOMPARE(paintedColor(window.button), Hover);

    window.neighbour->setFocus(); // losing the focus changes nothing by itself
    QCOMPARE(paintedColor(window.button), Hover);
    window.enter();
    window.leave();
    QCOMPARE(paintedColor(window.button), Normal);
}

void VelaButtonTest::theKeptHoverIconEndsAtTheNextRelease()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    window.button->setFocus();
    window.enter();
    window.leave();
    window.press();
    window.release();
    QCOMPARE(colorOf(window.button->icon()), Normal);
}

void VelaButtonTest::theKeptHoverIconEndsAtTheNextShow()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    window.button->setFocus();
    window.enter();
    window.leave();
    QCOMPARE(colorOf(window.button->icon()), Hover);
    window.button->hide();
    window.button->show();
    QCOMPARE(colorOf(window.button->icon()), Normal);
}

void VelaButtonTest::disablingAndEnablingSwitchTheIconAtOnce()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    window.enter();
    QCOMPARE(colorOf(window.button->icon()), Hover);
    window.button->setEnabled(false);
    QCOMPARE(colorOf(window.button->icon()), Disable);
    window.button->setEnabled(true);
    QCOMPARE(colorOf(window.button->icon()), Normal); // though the pointer is over it
    QVERIFY(window.button->underMouse());

    window.setEnabled(false); // by its parent
    QCOMPARE(colorOf(window.button->icon()), Disable);
    window.setEnabled(true);
    QCOMPARE(colorOf(window.button->icon()), Normal);
}

void VelaButtonTest::whileDisabledNothingChangesTheIcon()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    window.button->setEnabled(false);

    window.enter();
    QCOMPARE(colorOf(window.button->icon()), Disable);
    window.press();
    QCOMPARE(colorOf(window.button->icon()), Disable);
    window.release();
    QCOMPARE(colorOf(window.button->icon()), Disable);
    window.leave();
    QCOMPARE(colorOf(window.button->icon()), Disable);
}

void VelaButtonTest::aButtonOfAPixmapShowsItInEveryState()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(filled(QSize(32, 32), Other)));
    QVERIFY(window.showAndWait());
    QCOMPARE(paintedColor(window.button), Other);
    window.enter();
    QCOMPARE(paintedColor(window.button), Other);
    window.press();
    QCOMPARE(paintedColor(window.button), Other);
    window.release();
    window.button->setEnabled(false);
    QCOMPARE(paintedColor(window.button), Other);
}

void VelaButtonTest::settersChangeNothingUntilTheNextEvent()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    const QPixmap other = filled(QSize(32, 32), Other);

    window.enter();
    window.button->setHoverIcon(other);
    window.button->setPressIcon(other);
    window.button->setDisableIcon(other);
    QCOMPARE(paintedColor(window.button), Hover);
    window.leave();
    QCOMPARE(paintedColor(window.button), Normal);
    window.enter();
    QCOMPARE(paintedColor(window.button), Other);

    window.button->setHoverIcon(filled(QSize(32, 32), Hover));
    window.press();
    QCOMPARE(paintedColor(window.button), Other);
    window.release();
    window.button->setEnabled(false);
    QCOMPARE(colorOf(window.button->icon()), Other);
    window.button->setDisableIcon(filled(QSize(32, 32), Disable));
    QCOMPARE(colorOf(window.button->icon()), Other);
}

void VelaButtonTest::settersLeaveTheIconSizeAlone()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(filled(QSize(20, 10), Normal)));
    QVERIFY(window.showAndWait());
    const QPixmap large = filled(QSize(80, 80), Other);
    window.button->setHoverIcon(large);
    window.button->setPressIcon(large);
    window.button->setDisableIcon(large);
    window.enter();
    QCOMPARE(window.button->iconSize(), QSize(20, 10) / expectedRatio());
    window.press();
    QCOMPARE(window.button->iconSize(), QSize(20, 10) / expectedRatio());
    window.release();
    window.button->setEnabled(false);
    QCOMPARE(window.button->iconSize(), QSize(20, 10) / expectedRatio());
}

void VelaButtonTest::settingAllIconsShowsTheDefaultIconAtOnceWithoutItsSize()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    window.enter();
    const QSize size = window.button->iconSize();

    window.button->setAllIcon(QStringLiteral("large"));
    QCOMPARE(colorOf(window.button->icon()), Other);
    QCOMPARE(window.button->iconSize(), size);
    window.leave();
    QCOMPARE(window.button->iconSize(), expectedImageSize(FileSize * 2) / expectedRatio());
    window.enter();
    QCOMPARE(paintedColor(window.button), Hover);
}

void VelaButtonTest::settingTheDefaultIconReplacesAllFour()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    const QSize size = window.button->iconSize();

    window.button->setDefaultIcon(filled(QSize(60, 60), Other));
    QCOMPARE(colorOf(window.button->icon()), Other);
    QCOMPARE(window.button->iconSize(), size);
    window.enter();
    QCOMPARE(paintedColor(window.button), Other);
    QCOMPARE(window.button->iconSize(), QSize(60, 60) / expectedRatio());
    window.press();
    QCOMPARE(paintedColor(window.button), Other);
    window.release();
    window.button->setEnabled(false);
    QCOMPARE(colorOf(window.button->icon()), Other);
}

void VelaButtonTest::eventsReachTheToolButton()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    const QSignalSpy pressed(window.button, &VelaIconButton::pressed);
    const QSignalSpy clicked(window.button, &VelaIconButton::clicked);

    window.enter();
    QVERIFY(window.button->underMouse());
    window.press();
    QVERIFY(window.button->isDown());
    QCOMPARE(pressed.count(), 1);
    window.release();
    QVERIFY(!window.button->isDown());
    QCOMPARE(clicked.count(), 1);
    window.leave();
    QVERIFY(!window.button->underMouse());
}

// A tool button raises itself in a tool bar, and comes up again when it is disabled.
void VelaButtonTest::otherChangesReachTheToolButton()
{
    QToolBar toolBar;
    auto *button = new VelaIconButton(QStringLiteral("four"));
    QVERIFY(!button->autoRaise());
    toolBar.addWidget(button);
    QVERIFY(button->autoRaise());

    button->setDown(true);
    button->setEnabled(false);
    QVERIFY(!button->isDown());
}

// What listens to a button may ask for its icon, or change it.
void VelaButtonTest::theIconIsChangedBeforeTheToolButtonTellsOfTheEvent()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    VelaIconButton *button = window.button;
    QAction action;
    button->setDefaultAction(&action);
    QVERIFY(window.showAndWait());
    QVector<QColor> colors;
    const auto noteColor = [&] { colors.append(colorOf(button->icon())); };
    connect(&action, &QAction::hovered, button, noteColor);
    connect(button, &VelaIconButton::pressed, button, noteColor);
    connect(button, &VelaIconButton::released, button, noteColor);

    window.enter();
    QCOMPARE(colors, QVector<QColor> {Hover});
    window.press();
    QCOMPARE(colors, (QVector<QColor> {Hover, Press}));
    window.release();
    QCOMPARE(colors, (QVector<QColor> {Hover, Press, Normal}));
    button->setDown(true);
    colors.clear();
    button->setEnabled(false);
    QCOMPARE(colors, QVector<QColor> {Disable});
}

// Pointer events do not get as far on their own, but a derived class may pass some on.
void VelaButtonTest::aDisabledButtonsHandlersChangeNothing()
{
    class OpenButton : public VelaIconButton
    {
    public:
        using VelaIconButton::mousePressEvent;
        using VelaIconButton::mouseReleaseEvent;
        using VelaIconButton::VelaIconButton;
    };
    OpenButton button(QStringLiteral("four"));
    button.setEnabled(false);
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::RightButton, Qt::RightButton, {});
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(1, 1), Qt::RightButton, {}, {});

    button.mousePressEvent(&press);
    QCOMPARE(colorOf(button.icon()), Disable);
    button.mouseReleaseEvent(&release);
    QCOMPARE(colorOf(button.icon()), Disable);
}

void VelaButtonTest::aMenuOpensAtTheFirstPress()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    auto *menu = new QMenu(window.button);
    menu->addAction(QStringLiteral("Item"));
    window.button->setMenu(menu);
    QVERIFY(window.showAndWait());
    const MenuUser user(menu);

    window.press(); // returns when the menu is closed

    QVERIFY(user.hasUsed());
}

void VelaButtonTest::aPressOnTheMenusPartOpensTheMenuOnly()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QMenu menu;
    menu.addAction(QStringLiteral("Item"));
    window.button->setMenu(&menu);
    window.button->setPopupMode(QToolButton::MenuButtonPopup);
    QVERIFY(window.showAndWait());
    const QSignalSpy pressed(window.button, &VelaIconButton::pressed);
    const MenuUser user(&menu);
    QStyleOptionToolButton option;
    option.initFrom(window.button);
    option.subControls = QStyle::SC_ToolButton | QStyle::SC_ToolButtonMenu;
    option.features = QStyleOptionToolButton::MenuButtonPopup;
    const QRect menuPart = window.button->style()->subControlRect(QStyle::CC_ToolButton, &option,
                                                                  QStyle::SC_ToolButtonMenu, window.button);

    // Returns when the menu is closed.
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {},
                      window.button->geometry().topLeft() + menuPart.center());

    QVERIFY(user.hasUsed());
    QCOMPARE(pressed.count(), 0);
}

void VelaButtonTest::aDisabledButtonPaintsItsIconAsAnEnabledToolButtonDoes()
{
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    auto *plain = new QToolButton;
    plain->setStyleSheet(getStyleSheet("component.icon_button", false));
    plain->setIcon(getGlobalImage("four", ImageManager::IMAGE_DISABLE));
    plain->setIconSize(expectedImageSize(FileSize) / expectedRatio());
    ButtonWindow<QToolButton> plainWindow(plain);
    window.button->setEnabled(false);
    window.show();
    plainWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(QTest::qWaitForWindowExposed(&plainWindow));
    QCOMPARE(window.button->grab().toImage(), plain->grab().toImage());
}

void VelaButtonTest::theImagesOfADisabledButtonAreNotGreyed_data()
{
    using Change = std::function<void(VelaIconButton *)>;
    QTest::addColumn<Change>("change");
    QTest::addColumn<QColor>("expected");
    const auto disable = [](VelaIconButton *button) { button->setEnabled(false); };
    QTest::newRow("of its name") << Change(disable) << Disable;
    QTest::newRow("of its window") << Change([](VelaIconButton *button) { button->window()->setEnabled(false); })
                                   << Disable;
    QTest::newRow("checked") << Change([disable](VelaIconButton *button) {
        button->setCheckable(true);
        button->setChecked(true);
        disable(button);
    }) << Disable;
    QTest::newRow("set for that state") << Change([disable](VelaIconButton *button) {
        button->setDisableIcon(filled(FileSize, Other));
        disable(button);
    }) << Other;
    QTest::newRow("set for all states before") << Change([disable](VelaIconButton *button) {
        button->setDefaultIcon(filled(FileSize, Other));
        disable(button);
    }) << Other;
    QTest::newRow("set for all states meanwhile") << Change([disable](VelaIconButton *button) {
        disable(button);
        button->setDefaultIcon(filled(FileSize, Other));
    }) << Other;
    QTest::newRow("another name meanwhile") << Change([disable](VelaIconButton *button) {
        disable(button);
        button->setAllIcon(QStringLiteral("large")); // shows the normal one until the next event
    }) << Other;
    QTest::newRow("a name without an image of its own for it") << Change([disable](VelaIconButton *button) {
        button->setAllIcon(QStringLiteral("one"));
        disable(button);
    }) << Normal;
}

void VelaButtonTest::theImagesOfADisabledButtonAreNotGreyed()
{
    QFETCH(std::function<void(VelaIconButton *)>, change);
    QFETCH(QColor, expected);
    ButtonWindow<VelaIconButton> window(new VelaIconButton(QStringLiteral("four")));
    QVERIFY(window.showAndWait());
    change(window.button);
    QVERIFY(!window.button->isEnabled());
    QCOMPARE(paintedColor(window.button), expected);
}

QTEST_MAIN(VelaButtonTest)
#include "tst_vela_button.moc"
