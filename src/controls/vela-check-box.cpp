// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-check-box.h"

#include "look/look-change_p.h"
#include "look/look_p.h"

using namespace Vela;

class VelaCheckBoxPrivate
{
};

VelaCheckBox::VelaCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent)
{
    setStyleSheet(Look::sheet(Style::CheckBox));
}

VelaCheckBox::~VelaCheckBox() = default;

void VelaCheckBox::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::CheckBox);
    }
    QCheckBox::customEvent(event);
}

class VelaRadioButtonPrivate
{
};

VelaRadioButton::VelaRadioButton(const QString &text, QWidget *parent) : QRadioButton(text, parent)
{
    setStyleSheet(Look::sheet(Style::RadioButton));
}

VelaRadioButton::~VelaRadioButton() = default;

void VelaRadioButton::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::RadioButton);
    }
    QRadioButton::customEvent(event);
}
