// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QComboBox>

#include <memory>

class VelaComboBoxPrivate;

/// Combo box in the look of "component.combobox" and "component.scrollbar".
///
/// In the former sheet `%1` stands for the padding at the left and right and `%2` for the border. The padding is 6
/// logical pixels and, unlike other lengths, not truncated when it is scaled.
class VELA_EXPORT VelaComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// An empty combo box.
    explicit VelaComboBox(QWidget *parent = nullptr);
    ~VelaComboBox() override;

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaComboBoxPrivate> d;
};
