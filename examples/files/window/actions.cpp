// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "actions.h"

#include "look.h"
#include "texts/texts.h"

#include <VelaButton>

#include <QKeySequence>
#include <QWidget>

namespace {

struct ActionRow
{
    ActionId id;
    const char *textKey;
    const char *keys; // separated by ";"
};

constexpr ActionRow Rows[] = {
    {ActionId::Open, "open", ""}, // Return, which the rows have
    {ActionId::Up, "up", "Alt+Up;Backspace"},
    {ActionId::Refresh, "refresh", "F5;Ctrl+R"},
    {ActionId::NewFolder, "new_folder", "Ctrl+Shift+N"},
    {ActionId::Rename, "rename", "F2"},
    {ActionId::Copy, "copy", "Ctrl+C"},
    {ActionId::Cut, "cut", "Ctrl+X"},
    {ActionId::Paste, "paste", "Ctrl+V"},
    {ActionId::Trash, "trash", "Del"},
    {ActionId::Delete, "delete", "Shift+Del"},
    {ActionId::Properties, "properties", "Alt+Return"},
    {ActionId::Find, "find", "Ctrl+F"},
    {ActionId::GoTo, "go_to", "Ctrl+L"},
    {ActionId::ShowHidden, "show_hidden", "Ctrl+H"},
    {ActionId::Help, "help", "F1"},
    {ActionId::Quit, "quit", "Ctrl+Q"},
};

std::size_t placeOf(ActionId id)
{
    return static_cast<std::size_t>(id);
}

QList<QKeySequence> keysOf(const ActionRow &row)
{
    QList<QKeySequence> keys;
    const QStringList names = QString::fromLatin1(row.keys).split(u';', Qt::SkipEmptyParts);
    for (const QString &name : names) {
        keys.append(QKeySequence(name, QKeySequence::PortableText));
    }
    return keys;
}

} // namespace

Actions::Actions(QWidget *window) : QObject(window)
{
    for (const ActionRow &row : Rows) {
        auto *action = new QAction(this);
        action->setShortcuts(keysOf(row));
        action->setObjectName(QString::fromLatin1(row.textKey));
        window->addAction(action);
        m_actions[placeOf(row.id)] = action;
    }
    (*this)[ActionId::ShowHidden]->setCheckable(true);
    followTheme(this, [this] { retranslate(); });
}

Actions::~Actions() = default;

QAction *Actions::operator[](ActionId id) const
{
    return m_actions[placeOf(id)];
}

VelaButton *Actions::createButton(ActionId id, int kind) const
{
    QAction *action = (*this)[id];
    auto *button = new VelaButton(action->text(), kind);
    button->setObjectName(action->objectName());
    const auto follow = [button, action] {
        button->setText(action->text());
        button->setEnabled(action->isEnabled());
        const QString keys = action->shortcut().toString(QKeySequence::NativeText);
        button->setToolTip(keys.isEmpty() ? QString() : QString(action->text() + u" (" + keys + u')'));
    };
    follow();
    connect(action, &QAction::changed, button, follow);
    connect(button, &VelaButton::clicked, action, &QAction::trigger);
    return button;
}

void Actions::retranslate()
{
    for (const ActionRow &row : Rows) {
        (*this)[row.id]->setText(text(row.textKey));
    }
}
