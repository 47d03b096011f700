// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-countdown-msg-box.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "sheets/button-captions_p.h"
#include "utils/accessible-event_p.h"

#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <iterator>

using namespace Vela;

namespace {

constexpr int Second = 1000; // milliseconds
constexpr int VisibleClick = 100; // milliseconds that the automatic click is seen
constexpr qint64 AnnouncedCounts[] = {10, 0}; // besides the first; to hear all of them would be too much

} // namespace

class VelaCountdownMessageBoxPrivate
{
public:
    static void announceCount(VelaCountdownMessageBox *box);
    QString caption(const QString &text) const
    {
        return text + QLatin1Char('(') + QString::number(remaining) + QLatin1Char(')');
    }

    QTimer timer;
    qint64 remaining = 0; // seconds left, perhaps one less than the least int
    bool isAnswered = false; // whether it was answered since it was last shown
    QPointer<QPushButton> clicked; // button that clicks itself: seen pressed, its click still to come
    bool isClickVoid = false;
};

// A screen reader tells of a description that has changed where the focus is.
void VelaCountdownMessageBoxPrivate::announceCount(VelaCountdownMessageBox *box)
{
    tellScreenReaders(box, QAccessible::DescriptionChanged);
    if (QAbstractButton *ok = box->button(QMessageBox::Ok)) {
        tellScreenReaders(ok, QAccessible::DescriptionChanged);
    }
}

VelaCountdownMessageBox::VelaCountdownMessageBox(int seconds, QWidget *parent) :
    QMessageBox(parent), d(std::make_unique<VelaCountdownMessageBoxPrivate>())
{
    d->remaining = seconds;
    connect(&d->timer, &QTimer::timeout, this, &VelaCountdownMessageBox::slotTick);
    connect(this, &QDialog::finished, this, [this] {
        d->isAnswered = true;
        d->isClickVoid = !d->clicked.isNull();
    });
    d->timer.setInterval(Second);
    setStyleSheet(Look::sheet(Style::InfoBox)); // before its buttons, which would be polished again
    setStandardButtons(QMessageBox::Ok | QMessageBox::Discard);
    button(QMessageBox::Ok)->setStyleSheet(Look::sheet(Style::ApplyButton));
    button(QMessageBox::Discard)->setStyleSheet(Look::sheet(Style::CancelButton));
    button(QMessageBox::Discard)->setText(Look::text(Text::Cancel));
    setDefaultButton(QMessageBox::Ok);
    findChild<QDialogButtonBox *>()->installEventFilter(this);
    updateButtonText();
}

VelaCountdownMessageBox::~VelaCountdownMessageBox() = default;

void VelaCountdownMessageBox::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::InfoBox);
        if (QAbstractButton *ok = button(QMessageBox::Ok)) {
            change->restyle(ok, Style::ApplyButton);
            if (ok->text() == d->caption(change->former(Text::Ok))) {
                ok->setText(d->caption(change->now(Text::Ok)));
            }
        }
        if (QAbstractButton *cancel = button(QMessageBox::Discard)) {
            change->restyle(cancel, Style::CancelButton);
            change->renewText(cancel, Text::Cancel);
        }
    }
    QMessageBox::customEvent(event);
}

void VelaCountdownMessageBox::updateButtonText()
{
    // A client may have set other buttons.
    if (QAbstractButton *ok = button(QMessageBox::Ok)) {
        ok->setText(d->caption(Look::text(Text::Ok)));
    }
}

// The first step comes at once, so the first number seen is one less than the seconds that it takes.
void VelaCountdownMessageBox::showEvent(QShowEvent *event)
{
    QMessageBox::showEvent(event);
    d->isAnswered = false;
    slotTick();
    d->announceCount(this);
    d->timer.start();
}

void VelaCountdownMessageBox::slotTick()
{
    --d->remaining;
    if (d->remaining >= 0) {
        updateButtonText();
        if (std::find(std::begin(AnnouncedCounts), std::end(AnnouncedCounts), d->remaining)
            != std::end(AnnouncedCounts)) {
            d->announceCount(this);
        }
        return;
    }
    d->timer.stop();
    if (QPushButton *answer = defaultButton(); answer && !d->isAnswered) {
        d->clicked = answer;
        d->isClickVoid = false;
        answer->installEventFilter(this);
        answer->animateClick(VisibleClick);
    }
}

bool VelaCountdownMessageBox::eventFilter(QObject *watched, QEvent *event)
{
    if (Private::keepCaptions(watched, event, QDialogButtonBox::Ok | QDialogButtonBox::Discard)) {
        return true;
    }
    if (event->type() != QEvent::Timer || watched != d->clicked) {
        return QMessageBox::eventFilter(watched, event);
    }
    // The button's own timer ends the visible click. Nobody else can stop it, so a click that comes too late is not
    // heard.
    d->clicked.clear();
    watched->removeEventFilter(this);
    if (!d->isClickVoid) {
        return false;
    }
    const QSignalBlocker blocker(watched);
    watched->event(event);
    return true;
}
