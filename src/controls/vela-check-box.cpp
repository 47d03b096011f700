// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-check-box.h"

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

class VelaRadioButtonPrivate
{
};

VelaRadioButton::VelaRadioButton(const QString &text, QWidget *parent) : QRadioButton(text, parent)
{
    setStyleSheet(Look::sheet(Style::RadioButton));
}

VelaRadioButton::~VelaRadioButton() = default;
