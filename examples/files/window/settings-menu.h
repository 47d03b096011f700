// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <VelaMenu>

class QActionGroup;

/// Theme and language to choose from, and switches of the window.
class SettingsMenu : public VelaMenu
{
    Q_OBJECT

public:
    /// @p switches are shown above.
    SettingsMenu(const QList<QAction *> &switches, QWidget *parent);
    ~SettingsMenu() override;

private:
    void createThemes();
    void createLanguages();
    void retranslate();

    QMenu *m_themeMenu;
    QMenu *m_languageMenu;
    QActionGroup *m_themes;
    QActionGroup *m_languages;
};
