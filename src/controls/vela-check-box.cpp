#include "controls/vela-check-box.h"

#include "look/look_p.h"

using namespace Vela;

VelaCheckBox::VelaCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent)
{
    setStyleSheet(Look::sheet(Style::CheckBox));
}

VelaRadioButton::VelaRadioButton(const QString &text, QWidget *parent) : QRadioButton(text, parent)
{
    setStyleSheet(Look::sheet(Style::RadioButton));
}
