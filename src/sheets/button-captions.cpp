// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/button-captions_p.h"

#include <QEvent>
#include <QKeySequence>
#include <QPushButton>

#include <memory>
#include <vector>

namespace Vela::Private {

namespace {

// Gives a button back what the box has taken, when it is told of the language itself: before it, or who watches it,
// says something else.
class Caption : public QObject
{
public:
    explicit Caption(QAbstractButton *button) : m_text(button->text()), m_shortcut(button->shortcut())
    {
        button->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::LanguageChange) {
            auto *button = static_cast<QAbstractButton *>(watched);
            button->setText(m_text);
            button->setShortcut(m_shortcut); // which a text takes along
        }
        return false;
    }

private:
    const QString m_text;
    const QKeySequence m_shortcut;
};

} // namespace

bool keepCaptions(QObject *watched, QEvent *event, QDialogButtonBox::StandardButtons kept)
{
    auto *box = event->type() == QEvent::LanguageChange ? qobject_cast<QDialogButtonBox *>(watched) : nullptr;
    if (!box) {
        return false;
    }
    std::vector<std::unique_ptr<Caption>> captions;
    const QList<QAbstractButton *> buttons = box->buttons();
    for (QAbstractButton *button : buttons) {
        if (kept.testFlag(box->standardButton(button))) {
            captions.push_back(std::make_unique<Caption>(button));
        }
    }
    watched->event(event);
    return true;
}

} // namespace Vela::Private
