// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/button-captions_p.h"

#include <QEvent>
#include <QKeySequence>
#include <QPointer>
#include <QPushButton>
#include <QVector>

namespace Vela::Private {

bool keepCaptions(QObject *watched, QEvent *event, QDialogButtonBox::StandardButtons kept)
{
    auto *box = event->type() == QEvent::LanguageChange ? qobject_cast<QDialogButtonBox *>(watched) : nullptr;
    if (!box) {
        return false;
    }
    struct Caption
    {
        QPointer<QAbstractButton> button;
        QString text;
        QKeySequence shortcut; // which a text takes along
    };
    QVector<Caption> captions;
    const QList<QAbstractButton *> buttons = box->buttons();
    for (QAbstractButton *button : buttons) {
        if (kept.testFlag(box->standardButton(button))) {
            captions.append({button, button->text(), button->shortcut()});
        }
    }
    watched->event(event);
    for (const Caption &caption : qAsConst(captions)) {
        if (caption.button) {
            caption.button->setText(caption.text);
            caption.button->setShortcut(caption.shortcut);
        }
    }
    return true;
}

} // namespace Vela::Private
