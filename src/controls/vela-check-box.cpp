#include "controls/vela-check-box.h"

#include "style-manager/style-manager.h"

VelaCheckBox::VelaCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent)
{
    setStyleSheet(getStyleSheet("component.checkbox", false));
}

VelaRadioButton::VelaRadioButton(const QString &text, QWidget *parent) : QRadioButton(text, parent)
{
    setStyleSheet(getStyleSheet("component.radio_button", false));
}
