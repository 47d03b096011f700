// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/countdown-button_p.h"

#include "accessible/plain-text_p.h"
#include "look/look_p.h"

#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

namespace Vela::Accessible {

namespace {

// The count in brackets at the end of a caption. What is spoken is what is shown.
QRegularExpressionMatch countIn(const QString &caption)
{
    static const QRegularExpression pattern(QStringLiteral("\\((\\d+)\\)$"));
    return pattern.match(caption);
}

} // namespace

QString CountdownButton::timeLeft(const QMessageBox *box)
{
    const QAbstractButton *ok = box->button(QMessageBox::Ok);
    const QString seconds = ok ? countIn(ok->text()).captured(1) : QString();
    return seconds.isEmpty() ? QString() : Look::spoken(SpokenText::SecondsLeft, seconds);
}

bool CountdownButton::isCounting() const
{
    const auto *box = qobject_cast<const QMessageBox *>(button()->window());
    return box && box->button(QMessageBox::Ok) == button();
}

QString CountdownButton::name() const
{
    const QString caption = button()->text();
    const QRegularExpressionMatch count = countIn(caption);
    return isCounting() && count.hasMatch() ? withoutAccessKey(caption.left(count.capturedStart())) : Button::name();
}

QString CountdownButton::description() const
{
    return isCounting() ? timeLeft(static_cast<const QMessageBox *>(button()->window())) : Button::description();
}

} // namespace Vela::Accessible
