// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/vela-button.h"
#include "component/vela-filter-bar.h"
#include "support/resource-folder.h"

#include <QLabel>
#include <QMenu>
#include <QSignalSpy>
#include <QtTest>

class AccessibleButtonsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void anIconButtonIsNamedByItsToolTip();
    void anIconButtonWithoutAToolTipIsNamedByItsMenu();
    void theNameOfTheApplicationComesFirst();
    void theToolTipDescribesAButtonThatHasAnotherName();
    void aLabelNamesTheButtonThatItIsTheBuddyOf();
    void aButtonTellsNoAccessKeysInItsName();
    void aButtonThatCanBeCheckedTellsIt();
    void aDisabledButtonOffersNoAction();
    void theButtonOfAFilterBarHasANameOfItsOwn();
    void aMenusTitleNamesTheButtonOfAFilterBar();
    void theMenuOfAButtonOpensThroughTheInterface();
};

void AccessibleButtonsTest::anIconButtonIsNamedByItsToolTip()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    QCOMPARE(nameOf(&button), QString());
    button.setToolTip(QStringLiteral("Settings"));
    QCOMPARE(nameOf(&button), QStringLiteral("Settings"));
    QCOMPARE(descriptionOf(&button), QString()); // a description like the name would be said twice
    QCOMPARE(button.accessibleName(), QString()); // the accessible name stays the application's
}

void AccessibleButtonsTest::anIconButtonWithoutAToolTipIsNamedByItsMenu()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    QMenu menu(QStringLiteral("&More && more"));
    button.setMenu(&menu);
    QCOMPARE(nameOf(&button), QStringLiteral("More & more"));
    QCOMPARE(number(spoken(&button)->role()), number(QAccessible::ButtonMenu));
}

void AccessibleButtonsTest::theNameOfTheApplicationComesFirst()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    button.setToolTip(QStringLiteral("Settings"));
    button.setAccessibleName(QStringLiteral("Preferences"));
    QCOMPARE(nameOf(&button), QStringLiteral("Preferences"));
}

void AccessibleButtonsTest::theToolTipDescribesAButtonThatHasAnotherName()
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

void AccessibleButtonsTest::aLabelNamesTheButtonThatItIsTheBuddyOf()
{
    QWidget window;
    QLabel label(QStringLiteral("&Colour"), &window);
    VelaIconButton button(QStringLiteral("bt_settings"));
    button.setParent(&window);
    label.setBuddy(&button);
    QCOMPARE(nameOf(&button), QStringLiteral("Colour"));
}

void AccessibleButtonsTest::aButtonTellsNoAccessKeysInItsName()
{
    VelaButton button(QStringLiteral("&Copy && paste"), VelaButton::ApplyButton);
    QCOMPARE(nameOf(&button), QStringLiteral("Copy & paste"));
    QCOMPARE(spoken(&button)->text(QAccessible::Accelerator),
             QKeySequence(Qt::ALT | Qt::Key_C).toString(QKeySequence::NativeText));
}

void AccessibleButtonsTest::aButtonThatCanBeCheckedTellsIt()
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

void AccessibleButtonsTest::aDisabledButtonOffersNoAction()
{
    VelaIconButton button(QStringLiteral("bt_settings"));
    const QString press = QAccessibleActionInterface::pressAction();
    QVERIFY(spoken(&button)->actionInterface()->actionNames().contains(press));
    button.setEnabled(false);
    QVERIFY(!spoken(&button)->actionInterface()->actionNames().contains(press));
    const QSignalSpy pressed(&button, &QAbstractButton::pressed);
    spoken(&button)->actionInterface()->doAction(press);
    QCOMPARE(pressed.count(), 0);
}

void AccessibleButtonsTest::theButtonOfAFilterBarHasANameOfItsOwn()
{
    VelaFilterBar bar;
    QCOMPARE(nameOf(bar.findChild<VelaIconButton *>()), QStringLiteral("Filter options"));
}

void AccessibleButtonsTest::aMenusTitleNamesTheButtonOfAFilterBar()
{
    VelaFilterBar bar;
    QMenu menu(QStringLiteral("Kinds"));
    bar.setMenu(&menu);
    QCOMPARE(nameOf(bar.findChild<VelaIconButton *>()), QStringLiteral("Kinds"));
}

void AccessibleButtonsTest::theMenuOfAButtonOpensThroughTheInterface()
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

QTEST_MAIN(AccessibleButtonsTest)
#include "tst_accessible_buttons.moc"
