// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "settings-menu.h"

#include "look.h"
#include "start/appearance.h"
#include "texts/texts.h"

#include <QActionGroup>

namespace {

constexpr struct
{
    const char *name;
    const char *textKey;
} ThemeTexts[] = {
    {"light", "theme_light"},
    {"dark", "theme_dark"},
    {"high-contrast", "theme_high_contrast"},
};

void check(const QActionGroup *group, const QString &value)
{
    const QList<QAction *> actions = group->actions();
    for (QAction *action : actions) {
        action->setChecked(action->data().toString() == value);
    }
}

} // namespace

SettingsMenu::SettingsMenu(const QList<QAction *> &switches, QWidget *parent) :
    VelaMenu(parent),
    m_themeMenu(new VelaMenu(this)),
    m_languageMenu(new VelaMenu(this)),
    m_themes(new QActionGroup(this)),
    m_languages(new QActionGroup(this))
{
    addActions(switches);
    addSeparator();
    addMenu(m_themeMenu);
    addMenu(m_languageMenu);
    for (QMenu *menu : {static_cast<QMenu *>(this), m_themeMenu, m_languageMenu}) {
        followSections(menu, {QStringLiteral("component.menu")});
    }
    createThemes();
    createLanguages();
    followTheme(this, [this] { retranslate(); });
}

SettingsMenu::~SettingsMenu() = default;

void SettingsMenu::createThemes()
{
    for (const auto &theme : ThemeTexts) {
        QAction *action = m_themes->addAction(QString());
        action->setCheckable(true);
        action->setData(QString::fromLatin1(theme.name));
        m_themeMenu->addAction(action);
    }
    connect(m_themes, &QActionGroup::triggered, this,
            [](const QAction *action) { applyAppearance(action->data().toString(), languageInForce()); });
}

void SettingsMenu::createLanguages()
{
    const QStringList codes = languageCodes();
    for (const QString &code : codes) {
        QAction *action = m_languages->addAction(nameOfLanguage(code));
        action->setCheckable(true);
        action->setData(code);
        m_languageMenu->addAction(action);
    }
    connect(m_languages, &QActionGroup::triggered, this,
            [](const QAction *action) { applyAppearance(themeInForce(), action->data().toString()); });
}

void SettingsMenu::retranslate()
{
    m_themeMenu->setTitle(text("theme"));
    m_languageMenu->setTitle(text("language"));
    for (int i = 0; i < m_themes->actions().size(); ++i) {
        m_themes->actions().at(i)->setText(text(ThemeTexts[i].textKey));
    }
    check(m_themes, themeInForce());
    check(m_languages, languageInForce());
}
