// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-filter-bar.h"
#include "component/vela-footbar.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-menu.h"
#include "support/resource-folder.h"
#include "utils/util.h"

#include <QSignalSpy>
#include <QtTest>

using Create = std::unique_ptr<QWidget> (*)();
Q_DECLARE_METATYPE(Create)

namespace {

const QString Caption = QStringLiteral("Caption");

template<typename Widget>
std::unique_ptr<QWidget> createWithCaption()
{
    return std::make_unique<Widget>(Caption);
}

template<typename Widget>
std::unique_ptr<QWidget> createNamed()
{
    auto widget = std::make_unique<Widget>();
    widget->setAccessibleName(Caption);
    return widget;
}

} // namespace

class AccessibleControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void eachControlHasARoleAndAName_data();
    void eachControlHasARoleAndAName();
    void anIconButtonIsNamedByItsToolTip();
    void anIconButtonWithoutAToolTipIsNamedByItsMenu();
    void theNameOfTheApplicationComesFirst();
    void theToolTipDescribesAButtonThatHasAnotherName();
    void aRichToolTipIsSpokenWithoutItsTags();
    void aLabelNamesTheButtonThatItIsTheBuddyOf();
    void aButtonTellsNoAccessKeysInItsName();
    void aButtonThatCanBeCheckedTellsIt();
    void aCheckBoxTellsWhetherItIsChecked();
    void aRadioButtonTellsWhetherItIsChecked();
    void pressingThroughTheInterfaceClicks();
    void aDisabledButtonSaysSoAndOffersNoAction();
    void theButtonOfAFilterBarTellsThatItHasAMenu();
    void theButtonOfAFilterBarHasANameOfItsOwn();
    void aMenusTitleNamesTheButtonOfAFilterBar();
    void theMenuOfAButtonOpensThroughTheInterface();
    void aMenuTellsItsItems();
    void aFootbarHoldsItsControlsInTheirOrder();
    void aComboBoxTellsItsCurrentText();
};

void AccessibleControlsTest::eachControlHasARoleAndAName_data()
{
    QTest::addColumn<Create>("create");
    QTest::addColumn<int>("role");
    QTest::newRow("button") << Create(createWithCaption<VelaButton>) << number(QAccessible::PushButton);
    QTest::newRow("check box") << Create(createWithCaption<VelaCheckBox>) << number(QAccessible::CheckBox);
    QTest::newRow("radio button") << Create(createWithCaption<VelaRadioButton>) << number(QAccessible::RadioButton);
    QTest::newRow("label") << Create(createWithCaption<VelaLabel>) << number(QAccessible::StaticText);
    QTest::newRow("icon button") << Create([]() -> std::unique_ptr<QWidget> {
        auto button = std::make_unique<VelaIconButton>(QStringLiteral("bt_settings"));
        button->setAccessibleName(Caption);
        return button;
    }) << number(QAccessible::PushButton);
    QTest::newRow("menu") << Create(createNamed<VelaMenu>) << number(QAccessible::PopupMenu);
    QTest::newRow("combo box") << Create(createNamed<VelaComboBox>) << number(QAccessible::ComboBox);
    QTest::newRow("filter bar") << Create(createNamed<VelaFilterBar>) << number(QAccessible::EditableText);
    QTest::newRow("field between texts") << Create(createNamed<VelaLineEdit>) << number(QAccessible::Client);
    QTest::newRow("footbar") << Create(createNamed<VelaFootbar>) << number(QAccessible::Client);
}

void AccessibleControlsTest::eachControlHasARoleAndAName()
{
    QFETCH(Create, create);
    QFETCH(int, role);
    const std::unique_ptr<QWidget> control = create();
    QCOMPARE(number(spoken(control.get())->role()), role);
    QCOMPARE(nameOf(control.get()), Caption);
}

void AccessibleControlsTest::anIconButtonIsNamedByItsToolTip()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    QCOMPARE(nameOf(&button), QString());
    button.setToolTip(QStringLiteral("Settings"));
    QCOMPARE(nameOf(&button), QStringLiteral("Settings"));
    QCOMPARE(descriptionOf(&button), QString()); // a description like the name would be said twice
    QCOMPARE(button.accessibleName(), QString()); // the accessible name stays the application's
}

void AccessibleControlsTest::anIconButtonWithoutAToolTipIsNamedByItsMenu()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    QMenu menu(QStringLiteral("&More && more"));
    button.setMenu(&menu);
    QCOMPARE(nameOf(&button), QStringLiteral("More & more"));
    QCOMPARE(number(spoken(&button)->role()), number(QAccessible::ButtonMenu));
}

void AccessibleControlsTest::theNameOfTheApplicationComesFirst()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    button.setToolTip(QStringLiteral("Settings"));
    button.setAccessibleName(QStringLiteral("Preferences"));
    QCOMPARE(nameOf(&button), QStringLiteral("Preferences"));
}

void AccessibleControlsTest::theToolTipDescribesAButtonThatHasAnotherName()
{
    VelaIconButton iconButton(QStringLiteral("bt_settings"));
    VelaButton button(QStringLiteral("Go"), VelaButton::ApplyButton);
    for (QWidget *each : {static_cast<QWidget *>(&iconButton), static_cast<QWidget *>(&button)}) {
        each->setToolTip(QStringLiteral("Settings"));
        each->setAccessibleName(QStringLiteral("Preferences"));
        QCOMPARE(descriptionOf(each), QStringLiteral("Settings"));
        each->setAccessibleDescription(QStringLiteral("Of all"));
        QCOMPARE(descriptionOf(each), QStringLiteral("Of all"));
    }
}

void AccessibleControlsTest::aRichToolTipIsSpokenWithoutItsTags()
{
    VelaIconButton iconButton(QStringLiteral("bt_settings"));
    iconButton.setToolTip(getHtmlEscapedStringForToolTip(QStringLiteral("Tom & Jerry")));
    QCOMPARE(nameOf(&iconButton), QStringLiteral("Tom & Jerry"));
    QCOMPARE(descriptionOf(&iconButton), QString());
    iconButton.setAccessibleName(QStringLiteral("Film"));
    QCOMPARE(descriptionOf(&iconButton), QStringLiteral("Tom & Jerry"));

    VelaButton button(QStringLiteral("Go"), VelaButton::ApplyButton);
    button.setToolTip(QStringLiteral("<b>Of all</b>"));
    QCOMPARE(descriptionOf(&button), QStringLiteral("Of all"));
}

void AccessibleControlsTest::aLabelNamesTheButtonThatItIsTheBuddyOf()
{
    QWidget window;
    QLabel label(QStringLiteral("&Colour"), &window);
    VelaIconButton button(QStringLiteral("bt_settings"));
    button.setParent(&window);
    label.setBuddy(&button);
    QCOMPARE(nameOf(&button), QStringLiteral("Colour"));
}

void AccessibleControlsTest::aButtonTellsNoAccessKeysInItsName()
{
    VelaButton button(QStringLiteral("&Copy && paste"), VelaButton::ApplyButton);
    QCOMPARE(nameOf(&button), QStringLiteral("Copy & paste"));
    QCOMPARE(spoken(&button)->text(QAccessible::Accelerator),
             QKeySequence(Qt::ALT | Qt::Key_C).toString(QKeySequence::NativeText));
}

void AccessibleControlsTest::aButtonThatCanBeCheckedTellsIt()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    QVERIFY(!spoken(&button)->state().checkable);
    button.setCheckable(true);
    QVERIFY(spoken(&button)->state().checkable);
    spoken(&button)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(button.isChecked());
    QVERIFY(spoken(&button)->state().checked);
    QCOMPARE(number(spoken(&button)->role()), number(QAccessible::CheckBox));
}

void AccessibleControlsTest::aCheckBoxTellsWhetherItIsChecked()
{
    VelaCheckBox box(Caption);
    QVERIFY(spoken(&box)->state().checkable);
    QVERIFY(!spoken(&box)->state().checked);
    box.setChecked(true);
    QVERIFY(spoken(&box)->state().checked);
    box.setCheckState(Qt::PartiallyChecked);
    QVERIFY(spoken(&box)->state().checkStateMixed);
}

void AccessibleControlsTest::aRadioButtonTellsWhetherItIsChecked()
{
    VelaRadioButton button(Caption);
    QVERIFY(!spoken(&button)->state().checked);
    button.setChecked(true);
    QVERIFY(spoken(&button)->state().checked);
}

void AccessibleControlsTest::pressingThroughTheInterfaceClicks()
{
    VelaButton button(Caption, VelaButton::ApplyButton);
    VelaIconButton iconButton(QStringLiteral("bt_settings"));
    for (QAbstractButton *each : QList<QAbstractButton *> {&button, &iconButton}) {
        const QSignalSpy clicked(each, &QAbstractButton::clicked);
        spoken(each)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(clicked.count(), 1);
    }
}

void AccessibleControlsTest::aDisabledButtonSaysSoAndOffersNoAction()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    const QString press = QAccessibleActionInterface::pressAction();
    QVERIFY(!spoken(&button)->state().disabled);
    QVERIFY(spoken(&button)->actionInterface()->actionNames().contains(press));
    button.setEnabled(false);
    QVERIFY(spoken(&button)->state().disabled);
    QVERIFY(!spoken(&button)->actionInterface()->actionNames().contains(press));
    const QSignalSpy pressed(&button, &QAbstractButton::pressed);
    spoken(&button)->actionInterface()->doAction(press);
    QCOMPARE(pressed.count(), 0);
}

void AccessibleControlsTest::theButtonOfAFilterBarTellsThatItHasAMenu()
{
    VelaFilterBar bar;
    QMenu menu;
    auto *button = bar.findChild<VelaIconButton *>();
    QCOMPARE(number(spoken(button)->role()), number(QAccessible::PushButton));
    bar.setMenu(&menu);
    QCOMPARE(number(spoken(button)->role()), number(QAccessible::ButtonMenu));
    QVERIFY(spoken(button)->state().hasPopup);
}

void AccessibleControlsTest::theButtonOfAFilterBarHasANameOfItsOwn()
{
    VelaFilterBar bar;
    QCOMPARE(nameOf(bar.findChild<VelaIconButton *>()), QStringLiteral("Filter options"));
}

void AccessibleControlsTest::aMenusTitleNamesTheButtonOfAFilterBar()
{
    VelaFilterBar bar;
    QMenu menu(QStringLiteral("Kinds"));
    bar.setMenu(&menu);
    QCOMPARE(nameOf(bar.findChild<VelaIconButton *>()), QStringLiteral("Kinds"));
}

void AccessibleControlsTest::theMenuOfAButtonOpensThroughTheInterface()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    QMenu menu;
    menu.addAction(QStringLiteral("One"));
    button.setMenu(&menu);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    bool wasOpen = false;
    connect(&menu, &QMenu::aboutToShow, &menu, [&menu, &wasOpen] {
        wasOpen = true;
        QTimer::singleShot(0, &menu, &QMenu::close);
    });
    spoken(&button)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QTRY_VERIFY(wasOpen);
    QTRY_VERIFY(!menu.isVisible());
}

void AccessibleControlsTest::aMenuTellsItsItems()
{
    VelaMenu menu;
    menu.addAction(QStringLiteral("&Open"));
    menu.addAction(QStringLiteral("Close"))->setEnabled(false);
    QAccessibleInterface *interface = spoken(&menu);
    QCOMPARE(interface->childCount(), 2);
    QCOMPARE(number(interface->child(0)->role()), number(QAccessible::MenuItem));
    QCOMPARE(interface->child(0)->text(QAccessible::Name), QStringLiteral("Open"));
    QVERIFY(!interface->child(0)->state().disabled);
    QVERIFY(interface->child(1)->state().disabled);
}

void AccessibleControlsTest::aFootbarHoldsItsControlsInTheirOrder()
{
    VelaFootbar bar;
    bar.pushLeftWidget(new VelaButton(QStringLiteral("Help"), VelaButton::ApplyButton));
    bar.pushRightWidget(new VelaButton(QStringLiteral("OK"), VelaButton::ApplyButton));
    bar.init();
    QCOMPARE(spoken(&bar)->childCount(), 2);
    QCOMPARE(spoken(&bar)->child(0)->text(QAccessible::Name), QStringLiteral("Help"));
    QCOMPARE(spoken(&bar)->child(1)->text(QAccessible::Name), QStringLiteral("OK"));
}

void AccessibleControlsTest::aComboBoxTellsItsCurrentText()
{
    VelaComboBox combo;
    combo.addItems({QStringLiteral("One"), QStringLiteral("Two")});
    combo.setCurrentIndex(1);
    QCOMPARE(spoken(&combo)->text(QAccessible::Value), QStringLiteral("Two"));
}

QTEST_MAIN(AccessibleControlsTest)
#include "tst_accessible_controls.moc"
