// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-button.h"
#include "component/vela-check-box.h"
#include "component/vela-combo-box.h"
#include "component/vela-filter-bar.h"
#include "component/vela-footbar.h"
#include "component/vela-label.h"
#include "component/vela-line-edit.h"
#include "component/vela-menu.h"
#include "support/controls.h"
#include "support/resource-folder.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

// What a screen reader is told of each control.
class AccessibleControlsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void rolesAndNames_data();
    void rolesAndNames();
    void aCheckBoxTellsWhetherItIsChecked();
    void aRadioButtonTellsWhetherItIsChecked();
    void aMenuTellsItsItems();
    void aFootbarHoldsItsControlsInTheirOrder();
    void theButtonOfAFilterBarTellsThatItHasAMenu();
    void aFieldIsNamedByItsClientAndTellsItsText();
    void aComboBoxTellsItsCurrentText();
    void aDisabledControlSaysSo();
    void pressingThroughTheInterfaceClicks();

private:
    QWidget *create(const QString &control);

    ResourceFolder m_folder;
    QScopedPointer<QWidget> m_window;
};

void AccessibleControlsTest::initTestCase()
{
    for (const char *image : {"icon", "bt_search_dropdown"}) {
        for (const char *state : {"", "_hover", "_click", "_disable"}) {
            m_folder.writeImage(QLatin1String(image) + QLatin1String(state), QSize(64, 64), Qt::red);
        }
    }
    m_folder.writeCatalogue({QStringLiteral("icon"), QStringLiteral("bt_search_dropdown")});
    QByteArray sheets;
    for (const char *key : {"apply_button", "icon_button", "checkbox", "radio_button", "label", "lineedit",
                            "lineedit_label", "combobox", "scrollbar", "filter_bar_padding", "filter_search_button"}) {
        sheets += QByteArray("== component.") + key + " ==\n* { color: black }\n";
    }
    sheets.replace("== component.combobox ==\n", "== component.combobox ==\nQComboBox { %1 %2 }\n");
    installSheets(m_folder, sheets);
}

QWidget *AccessibleControlsTest::create(const QString &control)
{
    m_window.reset(new QWidget);
    const QString text = QStringLiteral("Caption");
    QWidget *widget = nullptr;
    if (control == QLatin1String("VelaButton")) {
        widget = new VelaButton(text, VelaButton::ApplyButton);
        widget->setParent(m_window.data());
    } else if (control == QLatin1String("VelaIconButton")) {
        widget = new VelaIconButton(QStringLiteral("icon"));
        widget->setParent(m_window.data());
        widget->setAccessibleName(text);
    } else if (control == QLatin1String("VelaCheckBox")) {
        widget = new VelaCheckBox(text, m_window.data());
    } else if (control == QLatin1String("VelaRadioButton")) {
        widget = new VelaRadioButton(text, m_window.data());
    } else if (control == QLatin1String("VelaLabel")) {
        widget = new VelaLabel(text, m_window.data());
    } else if (control == QLatin1String("VelaMenu")) {
        widget = new VelaMenu(m_window.data());
        widget->setAccessibleName(text);
    } else if (control == QLatin1String("VelaComboBox")) {
        widget = new VelaComboBox(m_window.data());
        widget->setAccessibleName(text);
    } else if (control == QLatin1String("VelaFilterBar")) {
        widget = new VelaFilterBar(m_window.data());
        widget->setAccessibleName(text);
    } else if (control == QLatin1String("VelaLineEdit")) {
        widget = new VelaLineEdit(m_window.data());
        widget->setAccessibleName(text);
    } else if (control == QLatin1String("VelaFootbar")) {
        widget = new VelaFootbar(m_window.data());
        widget->setAccessibleName(text);
    }
    return widget;
}

void AccessibleControlsTest::rolesAndNames_data()
{
    QTest::addColumn<int>("role");
    QTest::newRow("VelaButton") << int(QAccessible::PushButton);
    QTest::newRow("VelaIconButton") << int(QAccessible::PushButton);
    QTest::newRow("VelaCheckBox") << int(QAccessible::CheckBox);
    QTest::newRow("VelaRadioButton") << int(QAccessible::RadioButton);
    QTest::newRow("VelaLabel") << int(QAccessible::StaticText);
    QTest::newRow("VelaMenu") << int(QAccessible::PopupMenu);
    QTest::newRow("VelaComboBox") << int(QAccessible::ComboBox);
    QTest::newRow("VelaFilterBar") << int(QAccessible::EditableText);
    QTest::newRow("VelaLineEdit") << int(QAccessible::Client); // role of what holds others
    QTest::newRow("VelaFootbar") << int(QAccessible::Client);
}

void AccessibleControlsTest::rolesAndNames()
{
    QFETCH(int, role);
    QWidget *widget = create(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(widget);
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    QVERIFY(interface);
    QCOMPARE(int(interface->role()), role);
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Caption"));
}

void AccessibleControlsTest::aCheckBoxTellsWhetherItIsChecked()
{
    VelaCheckBox box(QStringLiteral("Caption"));
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&box);
    QVERIFY(interface->state().checkable);
    QVERIFY(!interface->state().checked);
    box.setChecked(true);
    QVERIFY(interface->state().checked);
    box.setCheckState(Qt::PartiallyChecked);
    QVERIFY(interface->state().checkStateMixed);
}

void AccessibleControlsTest::aRadioButtonTellsWhetherItIsChecked()
{
    VelaRadioButton button(QStringLiteral("Caption"));
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(!interface->state().checked);
    button.setChecked(true);
    QVERIFY(interface->state().checked);
}

void AccessibleControlsTest::aMenuTellsItsItems()
{
    VelaMenu menu;
    menu.addAction(QStringLiteral("&Open"));
    menu.addAction(QStringLiteral("Close"))->setEnabled(false);
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&menu);
    QCOMPARE(interface->childCount(), 2);
    QCOMPARE(int(interface->child(0)->role()), int(QAccessible::MenuItem));
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
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&bar);
    QCOMPARE(interface->childCount(), 2);
    QCOMPARE(interface->child(0)->text(QAccessible::Name), QStringLiteral("Help"));
    QCOMPARE(interface->child(1)->text(QAccessible::Name), QStringLiteral("OK"));
}

void AccessibleControlsTest::theButtonOfAFilterBarTellsThatItHasAMenu()
{
    VelaFilterBar bar;
    QMenu menu;
    auto *button = bar.findChild<VelaIconButton *>();
    QCOMPARE(int(QAccessible::queryAccessibleInterface(button)->role()), int(QAccessible::PushButton));
    bar.setMenu(&menu);
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(button);
    QCOMPARE(int(interface->role()), int(QAccessible::ButtonMenu));
    QVERIFY(interface->state().hasPopup);
}

void AccessibleControlsTest::aFieldIsNamedByItsClientAndTellsItsText()
{
    VelaLineEdit field;
    field.getPreLabel()->setText(QStringLiteral("&Quota"));
    field.getPreLabel()->setBuddy(field.getLineEdit());
    field.getLineEdit()->setText(QStringLiteral("250"));
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(field.getLineEdit());
    QCOMPARE(int(interface->role()), int(QAccessible::EditableText));
    QCOMPARE(interface->text(QAccessible::Name), QStringLiteral("Quota"));
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("250"));
    QCOMPARE(int(QAccessible::queryAccessibleInterface(field.getPreLabel())->role()), int(QAccessible::StaticText));
}

void AccessibleControlsTest::aComboBoxTellsItsCurrentText()
{
    VelaComboBox combo;
    combo.addItems({QStringLiteral("One"), QStringLiteral("Two")});
    combo.setCurrentIndex(1);
    QCOMPARE(QAccessible::queryAccessibleInterface(&combo)->text(QAccessible::Value), QStringLiteral("Two"));
}

void AccessibleControlsTest::aDisabledControlSaysSo()
{
    VelaButton button(QStringLiteral("Caption"), VelaButton::ApplyButton);
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(&button);
    QVERIFY(!interface->state().disabled);
    button.setEnabled(false);
    QVERIFY(interface->state().disabled);
}

void AccessibleControlsTest::pressingThroughTheInterfaceClicks()
{
    VelaButton button(QStringLiteral("Caption"), VelaButton::ApplyButton);
    VelaIconButton iconButton(QStringLiteral("icon"));
    for (QAbstractButton *each :
         {static_cast<QAbstractButton *>(&button), static_cast<QAbstractButton *>(&iconButton)}) {
        const QSignalSpy clicked(each, &QAbstractButton::clicked);
        QAccessible::queryAccessibleInterface(each)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        QTRY_COMPARE(clicked.count(), 1);
    }
}

QTEST_MAIN(AccessibleControlsTest)
#include "tst_accessible_controls.moc"
