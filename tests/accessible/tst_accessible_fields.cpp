// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/vela-combo-box.h"
#include "component/vela-filter-bar.h"
#include "component/vela-input-sheet.h"
#include "component/vela-line-edit.h"
#include "support/resource-folder.h"

#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

#include <memory>

class AccessibleFieldsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installReferenceTheme(); }

    void aCompoundFieldIsNamedByWhatKnowsMost();
    void theTextBeforeAFieldMayBeItsBuddy();
    void aCompoundFieldHandsTheFocusOn();
    void aFieldThatLooksWrongSaysSo();
    void thePromptNamesTheFieldOfAnInputSheet();
    void aComboBoxNamesItsField();
    void aFilterBarHasAName();
    void aPlaceholderIsTheNameOfAFilterBar();

    void everyFieldTellsItsText_data();
    void everyFieldTellsItsText();
    void textIsReadInParts();
    void theCursorAndTheSelectionAreMoved();
    void textIsChanged();
    void aFieldThatIsReadOnlyIsNotChanged();
    void aValidatorIsAsked();
    void aPasswordIsNotRead();
    void aCharacterIsFoundWhereItIsShown();

private:
    static std::unique_ptr<QWidget> create(const QString &kind);
    static QLineEdit *fieldOf(QWidget *widget);
};

void AccessibleFieldsTest::aCompoundFieldIsNamedByWhatKnowsMost()
{
    QWidget window;
    auto *compound = new VelaLineEdit(&window);
    QLineEdit *field = compound->getLineEdit();
    field->setPlaceholderText(QStringLiteral("placeholder"));
    QCOMPARE(nameOf(field), QStringLiteral("placeholder"));
    compound->getPreLabel()->setText(QStringLiteral("<b>Text</b> before"));
    QCOMPARE(nameOf(field), QStringLiteral("Text before"));
    auto *label = new QLabel(QStringLiteral("&Buddy"), &window);
    label->setBuddy(compound);
    QCOMPARE(nameOf(field), QStringLiteral("Buddy"));
    compound->setAccessibleName(QStringLiteral("compound"));
    QCOMPARE(nameOf(field), QStringLiteral("compound"));
    field->setAccessibleName(QStringLiteral("field"));
    QCOMPARE(nameOf(field), QStringLiteral("field"));
}

void AccessibleFieldsTest::theTextBeforeAFieldMayBeItsBuddy()
{
    VelaLineEdit compound;
    compound.getPreLabel()->setText(QStringLiteral("&Quota"));
    compound.getPreLabel()->setBuddy(compound.getLineEdit());
    QCOMPARE(nameOf(compound.getLineEdit()), QStringLiteral("Quota"));
    QCOMPARE(number(spoken(compound.getPreLabel())->role()), number(QAccessible::StaticText));
}

void AccessibleFieldsTest::aCompoundFieldHandsTheFocusOn()
{
    QWidget window;
    auto *compound = new VelaLineEdit(&window);
    compound->setFocus();
    QCOMPARE(window.focusWidget(), compound->getLineEdit());
    QCOMPARE(compound->focusPolicy(), Qt::NoFocus); // the compound is no stop of its own
}

void AccessibleFieldsTest::aFieldThatLooksWrongSaysSo()
{
    VelaLineEdit compound;
    QLineEdit *field = compound.getLineEdit();
    field->setToolTip(QStringLiteral("Digits only"));
    QCOMPARE(descriptionOf(field), QStringLiteral("Digits only"));
    compound.setError(true);
    QCOMPARE(descriptionOf(field), QStringLiteral("Invalid entry, Digits only"));
    compound.setError(false);
    QCOMPARE(descriptionOf(field), QStringLiteral("Digits only"));
}

void AccessibleFieldsTest::thePromptNamesTheFieldOfAnInputSheet()
{
    QWidget window;
    VelaInputSheet sheet(QStringLiteral("Name of the <i>folder</i> &amp; disk"), &window);
    QCOMPARE(nameOf(sheet.getLineEdit()), QStringLiteral("Name of the folder & disk"));
    sheet.setText(QStringLiteral("Another name"));
    QCOMPARE(nameOf(sheet.getLineEdit()), QStringLiteral("Another name"));
    QCOMPARE(sheet.getLineEdit()->accessibleName(), QString());
}

void AccessibleFieldsTest::aComboBoxNamesItsField()
{
    QWidget window;
    auto *combo = new VelaComboBox(&window);
    combo->setEditable(true);
    QCOMPARE(nameOf(combo->lineEdit()), QString());
    auto *label = new QLabel(QStringLiteral("&Size"), &window);
    label->setBuddy(combo);
    QCOMPARE(nameOf(combo->lineEdit()), QStringLiteral("Size"));
    combo->setAccessibleName(QStringLiteral("Width"));
    QCOMPARE(nameOf(combo->lineEdit()), QStringLiteral("Width"));
}

void AccessibleFieldsTest::aFilterBarHasAName()
{
    VelaFilterBar bar;
    QCOMPARE(nameOf(&bar), QStringLiteral("Filter"));
    bar.setAccessibleName(QStringLiteral("Files"));
    QCOMPARE(nameOf(&bar), QStringLiteral("Files"));
}

void AccessibleFieldsTest::aPlaceholderIsTheNameOfAFilterBar()
{
    VelaFilterBar bar;
    bar.setPlaceholderText(QStringLiteral("Search files"));
    QCOMPARE(nameOf(&bar), QStringLiteral("Search files"));
    QCOMPARE(descriptionOf(&bar), QString()); // a description like the name would be said twice
    bar.setAccessibleName(QStringLiteral("Files"));
    QCOMPARE(descriptionOf(&bar), QStringLiteral("Search files"));
}

std::unique_ptr<QWidget> AccessibleFieldsTest::create(const QString &kind)
{
    if (kind == QLatin1String("VelaLineEdit")) {
        return std::make_unique<VelaLineEdit>();
    }
    if (kind == QLatin1String("VelaInputSheet")) {
        return std::make_unique<VelaInputSheet>();
    }
    return std::make_unique<VelaFilterBar>();
}

QLineEdit *AccessibleFieldsTest::fieldOf(QWidget *widget)
{
    auto *field = qobject_cast<QLineEdit *>(widget);
    return field ? field : widget->findChild<QLineEdit *>();
}

void AccessibleFieldsTest::everyFieldTellsItsText_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"VelaLineEdit", "VelaInputSheet", "VelaFilterBar"}) {
        QTest::newRow(kind) << QString::fromLatin1(kind);
    }
}

void AccessibleFieldsTest::everyFieldTellsItsText()
{
    QFETCH(QString, kind);
    const std::unique_ptr<QWidget> widget = create(kind);
    QLineEdit *field = fieldOf(widget.get());
    field->setText(QStringLiteral("some text"));
    QAccessibleInterface *interface = spoken(field);
    QCOMPARE(number(interface->role()), number(QAccessible::EditableText));
    QCOMPARE(interface->text(QAccessible::Value), QStringLiteral("some text"));
    QVERIFY(interface->state().editable);
    QVERIFY(interface->state().focusable);
    QVERIFY(!interface->state().invalid); // an invalid state would mean that there is no field any more
    QVERIFY(interface->textInterface());
    QVERIFY(interface->editableTextInterface());
    QCOMPARE(interface->textInterface()->characterCount(), 9);
}

void AccessibleFieldsTest::textIsReadInParts()
{
    VelaLineEdit compound;
    compound.getLineEdit()->setText(QStringLiteral("one two three"));
    const QAccessibleTextInterface *text = spoken(compound.getLineEdit())->textInterface();
    QCOMPARE(text->text(4, 7), QStringLiteral("two"));
    QCOMPARE(text->text(7, 4), QString());
    int start = -1;
    int end = -1;
    QCOMPARE(text->textAtOffset(5, QAccessible::WordBoundary, &start, &end), QStringLiteral("two"));
    QCOMPARE(start, 4);
    QCOMPARE(end, 7);
}

void AccessibleFieldsTest::theCursorAndTheSelectionAreMoved()
{
    VelaLineEdit compound;
    QLineEdit *field = compound.getLineEdit();
    field->setText(QStringLiteral("one two three"));
    QAccessibleTextInterface *text = spoken(field)->textInterface();
    text->setCursorPosition(3);
    QCOMPARE(text->cursorPosition(), 3);
    QCOMPARE(text->selectionCount(), 0);
    text->addSelection(4, 7);
    QCOMPARE(field->selectedText(), QStringLiteral("two"));
    QCOMPARE(text->selectionCount(), 1);
    int start = -1;
    int end = -1;
    text->selection(0, &start, &end);
    QCOMPARE(start, 4);
    QCOMPARE(end, 7);
    text->removeSelection(0);
    QVERIFY(!field->hasSelectedText());
}

void AccessibleFieldsTest::textIsChanged()
{
    VelaLineEdit compound;
    QLineEdit *field = compound.getLineEdit();
    field->setText(QStringLiteral("one two three"));
    QAccessibleEditableTextInterface *text = spoken(field)->editableTextInterface();
    text->deleteText(3, 7);
    QCOMPARE(field->text(), QStringLiteral("one three"));
    text->insertText(3, QStringLiteral(" or"));
    QCOMPARE(field->text(), QStringLiteral("one or three"));
    text->replaceText(0, 3, QStringLiteral("two"));
    QCOMPARE(field->text(), QStringLiteral("two or three"));
    spoken(field)->setText(QAccessible::Value, QStringLiteral("four"));
    QCOMPARE(field->text(), QStringLiteral("four"));
}

void AccessibleFieldsTest::aFieldThatIsReadOnlyIsNotChanged()
{
    VelaLineEdit compound;
    QLineEdit *field = compound.getLineEdit();
    field->setText(QStringLiteral("one"));
    field->setReadOnly(true);
    spoken(field)->editableTextInterface()->insertText(0, QStringLiteral("no"));
    spoken(field)->setText(QAccessible::Value, QStringLiteral("no"));
    QCOMPARE(field->text(), QStringLiteral("one"));
    QVERIFY(spoken(field)->state().readOnly);
    QVERIFY(!spoken(field)->state().editable);
}

void AccessibleFieldsTest::aValidatorIsAsked()
{
    VelaLineEdit compound;
    QLineEdit *field = compound.getLineEdit();
    field->setText(QStringLiteral("12"));
    const QIntValidator digits;
    field->setValidator(&digits);
    spoken(field)->editableTextInterface()->insertText(1, QStringLiteral("x"));
    QCOMPARE(field->text(), QStringLiteral("12"));
}

void AccessibleFieldsTest::aPasswordIsNotRead()
{
    VelaLineEdit compound;
    QLineEdit *field = compound.getLineEdit();
    field->setText(QStringLiteral("secret"));
    field->setEchoMode(QLineEdit::Password);
    QVERIFY(spoken(field)->state().passwordEdit);
    QVERIFY(!spoken(field)->text(QAccessible::Value).contains(QLatin1String("secret")));
    QVERIFY(!spoken(field)->textInterface()->text(0, 6).contains(QLatin1Char('s')));
    field->setEchoMode(QLineEdit::NoEcho);
    QCOMPARE(spoken(field)->textInterface()->characterCount(), 0);
}

void AccessibleFieldsTest::aCharacterIsFoundWhereItIsShown()
{
    VelaLineEdit compound;
    QLineEdit *field = compound.getLineEdit();
    field->setText(QStringLiteral("wide text"));
    compound.resize(300, 40);
    compound.show();
    QVERIFY(QTest::qWaitForWindowExposed(&compound));
    const QAccessibleTextInterface *text = spoken(field)->textInterface();
    for (int i = 0; i < text->characterCount(); ++i) {
        const QRect rect = text->characterRect(i);
        QVERIFY(!rect.isEmpty());
        const int found = text->offsetAtPoint(rect.center());
        QVERIFY2(found == i || found == i + 1, qPrintable(QStringLiteral("%1 for %2").arg(found).arg(i)));
    }
    QCOMPARE(text->offsetAtPoint(QPoint(-5000, -5000)), -1);
    QCOMPARE(text->characterRect(text->characterCount() + 1), QRect());
}

QTEST_MAIN(AccessibleFieldsTest)
#include "tst_accessible_fields.moc"
