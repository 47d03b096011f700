// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/button-captions_p.h"

#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QVector>

#include <utility>

namespace Vela::Private {

bool keepCaptions(QObject *watched, QEvent *event, QDialogButtonBox::StandardButtons kept)
{
    auto *box = event->type() == QEvent::LanguageChange ? qobject_cast<QDialogButtonBox *>(watched) : nullptr;
    if (!box) {
        return false;
    }
    QVector<std::pair<QPointer<QAbstractButton>, QString>> captions;
    const QList<QAbstractButton *> buttons = box->buttons();
    for (QAbstractButton *button : buttons) {
        if (kept.testFlag(box->standardButton(button))) {
            captions.append({button, button->text()});
        }
    }
    watched->event(event);
    for (const auto &[button, caption] : qAsConst(captions)) {
        if (button) {
            button->setText(caption);
        }
    }
    return true;
}

} // namespace Vela::Private
