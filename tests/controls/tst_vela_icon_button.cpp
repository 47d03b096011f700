// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"
#include "support/controls.h"
#include "support/environment.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"

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

const QColor Normal(Qt::red);
const QColor Hover(Qt::green);
const QColor Press(Qt::blue);
const QColor Disable(Qt::magenta);
const QColor Other(Qt::cyan);

constexpr QSize FileSize(96, 64);

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

class IconButtonWindow : public ControlWindow
{
public:
    explicit IconButtonWindow(VelaIconButton *shownButton) : ControlWindow(shownButton), button(shownButton) { }

    VelaIconButton *const button;
};

} // namespace

class VelaIconButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void anIconButtonIsSetUpAsAnImageOnly_data();
    void anIconButtonIsSetUpAsAnImageOnly();
    void allFourImagesAreAskedForInOrder();
    void aParentMayBeGivenAtOnce();
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
    void theIconOfAFormStaysUntilTheButtonHasImages();
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

void VelaIconButtonTest::initTestCase()
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
    installSheets(m_folder,
                  "== component.icon_button ==\nQToolButton { border: none; padding: 4px }\n"
                  "QToolButton::menu-indicator { image: none }\n");
}

void VelaIconButtonTest::anIconButtonIsSetUpAsAnImageOnly_data()
{
    QTest::addColumn<bool>("isOfPixmap");
    QTest::newRow("of an image name") << false;
    QTest::newRow("of a pixmap") << true;
}

void VelaIconButtonTest::anIconButtonIsSetUpAsAnImageOnly()
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

void VelaIconButtonTest::allFourImagesAreAskedForInOrder()
{
    LogCapture log;
    const VelaIconButton button(QStringLiteral("one"));
    const QString warning = QStringLiteral("Cannot load pixmap \"one\" with type %1 [use default icon]");
    QCOMPARE(log.takeTexts(), (QStringList {warning.arg(1), warning.arg(2), warning.arg(3)}));
}

void VelaIconButtonTest::aParentMayBeGivenAtOnce()
{
    QWidget window;
    const VelaIconButton named(QStringLiteral("four"), &window);
    QCOMPARE(named.parentWidget(), &window);
    QCOMPARE(colorOf(named.icon()), Normal);
    QCOMPARE(named.styleSheet(), getStyleSheet("component.icon_button", false));
    QCOMPARE(named.popupMode(), QToolButton::InstantPopup);
    const VelaIconButton drawn(filled(QSize(16, 16), Press), &window);
    QCOMPARE(drawn.parentWidget(), &window);
    QCOMPARE(colorOf(drawn.icon()), Press);
    QCOMPARE(drawn.styleSheet(), named.styleSheet());
}

void VelaIconButtonTest::anUnknownImageLeavesItEmptyAndIsLoggedByTheImageManagerOnly()
{
    LogCapture log;
    auto *button = new VelaIconButton(QStringLiteral("unknown"));
    const QString warning = QStringLiteral("Cannot load pixmap \"unknown\"");
    QCOMPARE(log.takeTexts(), (QStringList {warning, warning, warning, warning}));
    QVERIFY(button->icon().isNull());

    Shown<IconButtonWindow> window(button);
    QCOMPARE(button->QToolButton::iconSize(), QSize(0, 0));
    QCOMPARE(log.takeTexts(), QStringList());
}

void VelaIconButtonTest::theIconSizeIsTheNormalImagesLogicalSize()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
    QCOMPARE(window.button->iconSize(), expectedImageSize(FileSize) / expectedRatio());
}

void VelaIconButtonTest::theIconSizeOfAPixmapIsDividedByTheRatioAndRounded_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("sizeAtRatio2");
    QTest::newRow("even") << QSize(48, 32) << QSize(24, 16);
    QTest::newRow("odd") << QSize(25, 25) << QSize(13, 13);
    QTest::newRow("one") << QSize(1, 3) << QSize(1, 2);
}

void VelaIconButtonTest::theIconSizeOfAPixmapIsDividedByTheRatioAndRounded()
{
    QFETCH(QSize, size);
    QFETCH(QSize, sizeAtRatio2);
    Shown<IconButtonWindow> window(new VelaIconButton(filled(size, Normal)));
    QCOMPARE(window.button->iconSize(), expectedRatio() == 2 ? sizeAtRatio2 : size);
}

void VelaIconButtonTest::theIconSizeIsAppliedByTheNextEventOnly()
{
    const QToolButton plain;
    auto *button = new VelaIconButton(filled(QSize(70, 50), Normal));
    QCOMPARE(button->iconSize(), plain.iconSize());

    Shown<IconButtonWindow> window(button);
    QCOMPARE(button->iconSize(), QSize(70, 50) / expectedRatio());
}

void VelaIconButtonTest::everyChangeOfTheIconAppliesTheIconSize()
{
    const QSize foreign(5, 7);
    const QSize own = QSize(70, 50) / expectedRatio();
    Shown<IconButtonWindow> window(new VelaIconButton(filled(QSize(70, 50), Normal)));
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

void VelaIconButtonTest::showPaintsTheDefaultIcon()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
    QCOMPARE(paintedColor(window.button), Normal);
}

void VelaIconButtonTest::showOfADisabledButtonShowsItsDisableIcon()
{
    IconButtonWindow window(new VelaIconButton(QStringLiteral("four")));
    window.button->setEnabled(false);
    window.button->setDisableIcon(filled(QSize(16, 16), Other)); // seen only if show itself sets the icon
    QCOMPARE(colorOf(window.button->icon()), Disable);
    QVERIFY(window.showAndWait());
    QCOMPARE(colorOf(window.button->icon()), Other);
}

void VelaIconButtonTest::thePointerAndTheMouseButtonsSwitchTheIcon()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));

    window.enter();
    QCOMPARE(paintedColor(window.button), Hover);
    window.press();
    QCOMPARE(paintedColor(window.button), Press);
    window.release();
    QCOMPARE(paintedColor(window.button), Normal); // the normal icon, though the pointer is over it
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

void VelaIconButtonTest::everyMouseButtonShowsThePressIcon()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
    for (Qt::MouseButton which : {Qt::RightButton, Qt::MiddleButton}) {
        window.press(which);
        QCOMPARE(paintedColor(window.button), Press);
        QVERIFY(!window.button->isDown());
        window.release(which);
        QCOMPARE(paintedColor(window.button), Normal);
    }
}

void VelaIconButtonTest::focusKeepsTheHoverIconWhenThePointerLeaves()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
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

void VelaIconButtonTest::theKeptHoverIconEndsAtTheNextRelease()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
    window.button->setFocus();
    window.enter();
    window.leave();
    window.press();
    window.release();
    QCOMPARE(colorOf(window.button->icon()), Normal);
}

void VelaIconButtonTest::theKeptHoverIconEndsAtTheNextShow()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
    window.button->setFocus();
    window.enter();
    window.leave();
    QCOMPARE(colorOf(window.button->icon()), Hover);
    window.button->hide();
    window.button->show();
    QCOMPARE(colorOf(window.button->icon()), Normal);
}

void VelaIconButtonTest::disablingAndEnablingSwitchTheIconAtOnce()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
    window.enter();
    QCOMPARE(colorOf(window.button->icon()), Hover);
    window.button->setEnabled(false);
    QCOMPARE(colorOf(window.button->icon()), Disable);
    window.button->setEnabled(true);
    QCOMPARE(colorOf(window.button->icon()), Normal); // the normal icon, though the pointer is over it
    QVERIFY(window.button->underMouse());

    window.setEnabled(false); // a button disabled by its parent
    QCOMPARE(colorOf(window.button->icon()), Disable);
    window.setEnabled(true);
    QCOMPARE(colorOf(window.button->icon()), Normal);
}

void VelaIconButtonTest::whileDisabledNothingChangesTheIcon()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
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

void VelaIconButtonTest::aButtonOfAPixmapShowsItInEveryState()
{
    Shown<IconButtonWindow> window(new VelaIconButton(filled(QSize(32, 32), Other)));
    QCOMPARE(paintedColor(window.button), Other);
    window.enter();
    QCOMPARE(paintedColor(window.button), Other);
    window.press();
    QCOMPARE(paintedColor(window.button), Other);
    window.release();
    window.button->setEnabled(false);
    QCOMPARE(paintedColor(window.button), Other);
}

void VelaIconButtonTest::settersChangeNothingUntilTheNextEvent()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
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

void VelaIconButtonTest::settersLeaveTheIconSizeAlone()
{
    Shown<IconButtonWindow> window(new VelaIconButton(filled(QSize(20, 10), Normal)));
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

void VelaIconButtonTest::settingAllIconsShowsTheDefaultIconAtOnceWithoutItsSize()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
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

void VelaIconButtonTest::settingTheDefaultIconReplacesAllFour()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
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

void VelaIconButtonTest::theIconOfAFormStaysUntilTheButtonHasImages()
{
    IconButtonWindow window(new VelaIconButton(static_cast<QWidget *>(nullptr)));
    VelaIconButton *button = window.button;
    button->setIcon(filled(QSize(16, 16), Other));
    button->setIconSize(QSize(12, 12));
    QVERIFY(window.showAndWait());
    QTest::mouseClick(button, Qt::LeftButton);
    button->setEnabled(false);
    button->setEnabled(true);
    QCOMPARE(colorOf(button->icon()), Other);
    QCOMPARE(button->iconSize(), QSize(12, 12));

    button->setHoverIcon(filled(QSize(16, 16), Hover));
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(button, &enter);
    QCOMPARE(colorOf(button->icon()), Hover);
}

void VelaIconButtonTest::eventsReachTheToolButton()
{
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
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
void VelaIconButtonTest::otherChangesReachTheToolButton()
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
void VelaIconButtonTest::theIconIsChangedBeforeTheToolButtonTellsOfTheEvent()
{
    IconButtonWindow window(new VelaIconButton(QStringLiteral("four")));
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
void VelaIconButtonTest::aDisabledButtonsHandlersChangeNothing()
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

void VelaIconButtonTest::aMenuOpensAtTheFirstPress()
{
    IconButtonWindow window(new VelaIconButton(QStringLiteral("four")));
    auto *menu = new QMenu(window.button);
    menu->addAction(QStringLiteral("Item"));
    window.button->setMenu(menu);
    QVERIFY(window.showAndWait());
    const MenuUser user(menu);

    window.press(); // returns when the menu is closed

    QVERIFY(user.hasUsed());
}

void VelaIconButtonTest::aPressOnTheMenusPartOpensTheMenuOnly()
{
    IconButtonWindow window(new VelaIconButton(QStringLiteral("four")));
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

void VelaIconButtonTest::aDisabledButtonPaintsItsIconAsAnEnabledToolButtonDoes()
{
    IconButtonWindow window(new VelaIconButton(QStringLiteral("four")));
    auto *plain = new QToolButton;
    plain->setStyleSheet(getStyleSheet("component.icon_button", false));
    plain->setIcon(getGlobalImage("four", ImageManager::IMAGE_DISABLE));
    plain->setIconSize(expectedImageSize(FileSize) / expectedRatio());
    ControlWindow plainWindow(plain);
    window.button->setEnabled(false);
    window.show();
    plainWindow.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(QTest::qWaitForWindowExposed(&plainWindow));
    QCOMPARE(window.button->grab().toImage(), plain->grab().toImage());
}

void VelaIconButtonTest::theImagesOfADisabledButtonAreNotGreyed_data()
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
        button->setAllIcon(QStringLiteral("large")); // the normal image until the next event
    }) << Other;
    QTest::newRow("a name without an image of its own for it") << Change([disable](VelaIconButton *button) {
        button->setAllIcon(QStringLiteral("one"));
        disable(button);
    }) << Normal;
}

void VelaIconButtonTest::theImagesOfADisabledButtonAreNotGreyed()
{
    QFETCH(std::function<void(VelaIconButton *)>, change);
    QFETCH(QColor, expected);
    Shown<IconButtonWindow> window(new VelaIconButton(QStringLiteral("four")));
    change(window.button);
    QVERIFY(!window.button->isEnabled());
    QCOMPARE(paintedColor(window.button), expected);
}

QTEST_MAIN(VelaIconButtonTest)

#include "tst_vela_icon_button.moc"
