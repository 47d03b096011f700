// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "themes.h"

#include <VelaTheme>

#include <QWidget>

#include <vector>

class VelaCheckBox;
class VelaComboBox;

/// Changes theme, language and direction of the application at once, and asks for another scale.
class Switches : public QWidget
{
    Q_OBJECT

public:
    explicit Switches(const std::vector<ThemeEntry> &themes);

Q_SIGNALS:
    /// What VelaTheme has found after a choice, which may be nothing.
    void chosen(const VelaTheme::Problems &problems);
    void scaleChosen(double scale);

protected:
    void changeEvent(QEvent *event) override;

private:
    VelaComboBox *createComboBox(const QString &label, const QString &objectName);
    void showWhatIsInForce();
    void showScale();

    VelaComboBox *m_theme;
    VelaComboBox *m_language;
    VelaComboBox *m_scale;
    VelaCheckBox *m_rightToLeft;
};
