#pragma once

#include "vela_export.h"

#include <QCheckBox>
#include <QRadioButton>

/// Check box in the look of "component.checkbox".
class VELA_EXPORT VelaCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit VelaCheckBox(const QString &text, QWidget *parent = nullptr);
};

/// Radio button in the look of "component.radio_button".
class VELA_EXPORT VelaRadioButton : public QRadioButton
{
    Q_OBJECT

public:
    explicit VelaRadioButton(const QString &text, QWidget *parent = nullptr);
};
