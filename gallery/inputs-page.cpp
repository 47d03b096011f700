// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "chrome.h"
#include "gallery-page.h"
#include "pages.h"
#include "scale/scaled.h"
#include "widget-states.h"

#include <DPIinfo>
#include <VelaCheckBox>
#include <VelaComboBox>
#include <VelaLabel>
#include <VelaLineEdit>

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

namespace {

constexpr int FieldWidth = 280;
constexpr int FieldSpacing = 8;
constexpr int ComboWidth = 140;
constexpr int LabelWidths[] = {160, 260, 420};

bool isNumber(const QString &text)
{
    bool isInteger = false;
    text.toInt(&isInteger);
    return isInteger;
}

VelaLineEdit *createField(GalleryPage *page, const QString &caption)
{
    auto *field = new VelaLineEdit;
    field->setFixedWidth(scaled(FieldWidth));
    field->setSpacing(FieldSpacing);
    page->logSignal(caption, field->getLineEdit(), &QLineEdit::textEdited);
    page->logSignal(caption, field->getLineEdit(), &QLineEdit::returnPressed);
    return field;
}

void addFields(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaLineEdit"),
                     QStringLiteral("A field with texts in front of it and behind it."));

    VelaLineEdit *plain = createField(page, QStringLiteral("Plain field"));
    plain->getLineEdit()->setPlaceholderText(QStringLiteral("Placeholder"));
    page->addExample(QStringLiteral("Plain"), QStringLiteral("component.lineedit"), {plain});

    VelaLineEdit *labelled = createField(page, QStringLiteral("Field with labels"));
    labelled->getPreLabel()->setText(QStringLiteral("Quota"));
    labelled->getPostLabel()->setText(QStringLiteral("GB"));
    labelled->getLineEdit()->setText(QStringLiteral("250"));
    page->addExample(QStringLiteral("With texts"), QStringLiteral("component.lineedit_label"), {labelled});

    VelaLineEdit *validated = createField(page, QStringLiteral("Validated field"));
    validated->setValidator(isNumber);
    validated->getLineEdit()->setText(QStringLiteral("twelve"));
    validated->setError(!validated->validate());
    QObject::connect(validated->getLineEdit(), &QLineEdit::textChanged, validated,
                     [validated] { validated->setError(!validated->validate()); });
    page->addExample(QStringLiteral("Whole numbers only"), QStringLiteral("setValidator(), setError()"), {validated});

    VelaLineEdit *password = createField(page, QStringLiteral("Password"));
    password->getLineEdit()->setEchoMode(QLineEdit::Password);
    password->getLineEdit()->setText(QStringLiteral("password"));
    page->addExample(QStringLiteral("Password"), QStringLiteral("getLineEdit()->setEchoMode()"), {password});

    VelaLineEdit *disabled = createField(page, QStringLiteral("Disabled field"));
    disabled->getPreLabel()->setText(QStringLiteral("Quota"));
    disabled->getLineEdit()->setText(QStringLiteral("250"));
    disabled->setEnabled(false);
    page->addExample(QStringLiteral("Disabled"), {}, {disabled});
}

template<typename Button>
Button *createChecked(GalleryPage *page, const QString &text, bool isChecked)
{
    auto *button = new Button(text);
    button->setAutoExclusive(false);
    button->setChecked(isChecked);
    page->logSignal(text, static_cast<QAbstractButton *>(button), &QAbstractButton::toggled);
    return button;
}

void addChoices(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaCheckBox and VelaRadioButton"),
                     QStringLiteral("component.checkbox, component.radio_button"), stateColumns());
    for (bool isChecked : {false, true}) {
        page->addExample(
            isChecked ? QStringLiteral("Checked box") : QStringLiteral("Unchecked box"), {},
            inAllStates([&] { return createChecked<VelaCheckBox>(page, QStringLiteral("Hidden files"), isChecked); }));
    }
    page->addExample(QStringLiteral("Partly checked box"), QStringLiteral("setTristate()"), inAllStates([&] {
                         auto *box = createChecked<VelaCheckBox>(page, QStringLiteral("All folders"), false);
                         box->setTristate();
                         box->setCheckState(Qt::PartiallyChecked);
                         return box;
                     }));
    for (bool isChecked : {false, true}) {
        page->addExample(
            isChecked ? QStringLiteral("Chosen button") : QStringLiteral("Other button"), {},
            inAllStates([&] { return createChecked<VelaRadioButton>(page, QStringLiteral("Daily"), isChecked); }));
    }

    auto *group = new QWidget;
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    for (const char *text : {"Daily", "Weekly", "Monthly"}) {
        auto *button = new VelaRadioButton(QString::fromLatin1(text));
        page->logSignal(button->text(), static_cast<QAbstractButton *>(button), &QAbstractButton::toggled);
        row->addWidget(button);
    }
    row->addStretch();
    page->addExample(QStringLiteral("One of a group"), QStringLiteral("radio buttons exclude each other"), {group});
}

VelaComboBox *createCombo(GalleryPage *page)
{
    auto *combo = new VelaComboBox;
    for (int i = 1; i <= 20; ++i) {
        combo->addItem(QStringLiteral("Every %1 days").arg(i));
    }
    combo->setItemText(0, QStringLiteral("Every day"));
    combo->setFixedWidth(scaled(ComboWidth));
    page->logSignal(QStringLiteral("Combo box"), static_cast<QComboBox *>(combo),
                    static_cast<void (QComboBox::*)(int)>(&QComboBox::activated));
    return combo;
}

void addCombos(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaComboBox"), QStringLiteral("component.combobox, component.scrollbar"),
                     stateColumns());
    page->addExample(QStringLiteral("List"), {}, inAllStates([&] { return createCombo(page); }));

    VelaComboBox *editable = createCombo(page);
    editable->setEditable(true);
    page->addExample(QStringLiteral("Editable"), QStringLiteral("setEditable()"), {editable});
}

void addLabels(GalleryPage *page)
{
    page->addSection(QStringLiteral("VelaLabel"),
                     QStringLiteral("A label that wraps is as high as its text needs at its width (component.label)."));
    for (int width : LabelWidths) {
        auto *label = new VelaLabel(QStringLiteral("The backup of this folder is kept for ninety days. After that the "
                                                   "oldest versions make room for new ones."));
        label->setWordWrap(true);
        label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Minimum);
        label->setFixedWidth(scaled(width));
        page->addExample(QStringLiteral("%1 pixels wide").arg(width), QStringLiteral("QSizePolicy::Minimum"), {label});
    }
}

} // namespace

GalleryPage *createInputsPage(const QString &title)
{
    auto *page = new GalleryPage(title, QStringLiteral("What a person fills in, and the labels beside it."));
    addFields(page);
    addChoices(page);
    addCombos(page);
    addLabels(page);
    return page;
}
