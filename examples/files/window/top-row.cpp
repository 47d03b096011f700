// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "top-row.h"

#include "actions.h"
#include "look.h"
#include "path-bar.h"
#include "scale/scaled.h"
#include "settings-menu.h"
#include "texts/texts.h"

#include <VelaButton>

#include <QHBoxLayout>

namespace {

constexpr int Spacing = 8;

// An icon button alone takes no part in Tab.
VelaIconButton *createButton(const char *image)
{
    auto *button = new VelaIconButton(QString::fromLatin1(image));
    button->setFocusPolicy(Qt::StrongFocus);
    button->setObjectName(QString::fromLatin1(image));
    return button;
}

} // namespace

TopRow::TopRow(const Actions &actions, QWidget *parent) :
    QWidget(parent),
    m_up(createButton("bt_up")),
    m_settings(createButton("bt_settings")),
    m_help(createButton("bt_help")),
    m_path(new PathBar)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(Spacing));
    row->addWidget(m_up);
    row->addWidget(m_path, 1);
    row->addWidget(m_settings);
    row->addWidget(m_help);
    m_settings->setMenu(new SettingsMenu({actions[ActionId::ShowHidden]}, this));
    QAction *up = actions[ActionId::Up];
    connect(m_up, &VelaIconButton::clicked, up, &QAction::trigger);
    connect(up, &QAction::changed, m_up, [this, up] { m_up->setEnabled(up->isEnabled()); });
    connect(m_help, &VelaIconButton::clicked, actions[ActionId::Help], &QAction::trigger);
    followTheme(this, [this] { retranslate(); });
}

TopRow::~TopRow() = default;

PathBar *TopRow::path() const
{
    return m_path;
}

void TopRow::retranslate()
{
    const struct
    {
        VelaIconButton *button;
        const char *textKey;
    } buttons[] = {{m_up, "up"}, {m_settings, "settings"}, {m_help, "help"}};
    for (const auto &row : buttons) {
        row.button->setToolTip(text(row.textKey));
        row.button->setAccessibleName(text(row.textKey));
    }
}
