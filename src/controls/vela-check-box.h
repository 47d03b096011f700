// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QCheckBox>
#include <QRadioButton>

#include <memory>

class VelaCheckBoxPrivate;
class VelaRadioButtonPrivate;

/// Check box in the look of "component.checkbox".
class VELA_EXPORT VelaCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    /// An unchecked box with @p text behind it; "&" marks the access key.
    explicit VelaCheckBox(const QString &text, QWidget *parent = nullptr);
    ~VelaCheckBox() override;

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaCheckBoxPrivate> d;
};

/// Radio button in the look of "component.radio_button".
class VELA_EXPORT VelaRadioButton : public QRadioButton
{
    Q_OBJECT

public:
    /// An unchecked button with @p text behind it; "&" marks the access key.
    explicit VelaRadioButton(const QString &text, QWidget *parent = nullptr);
    ~VelaRadioButton() override;

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaRadioButtonPrivate> d;
};
