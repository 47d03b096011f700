// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-countdown-msg-box.h"

#include "style-manager/style-manager.h"
#include "utils/component-strings.h"

#include <QEvent>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

constexpr int Second = 1000; // milliseconds
constexpr int VisibleClick = 100; // milliseconds that the automatic click is seen

QString caption(const char *key)
{
    return ComponentStrings::getInstance()->getString(QString::fromLatin1(key));
}

} // namespace

VelaCountdownMessageBox::VelaCountdownMessageBox(int seconds, QWidget *parent) :
    QMessageBox(parent), m_remaining(seconds)
{
    connect(&m_timer, &QTimer::timeout, this, &VelaCountdownMessageBox::slotTick);
    connect(this, &QDialog::finished, this, [this] {
        m_isAnswered = true;
        m_isClickVoid = !m_clicked.isNull();
    });
    m_timer.setInterval(Second);
    setStyleSheet(
        getStyleSheet("component.info_message_box", false)); // before its buttons, which would be polished again
    setStandardButtons(QMessageBox::Ok | QMessageBox::Discard);
    button(QMessageBox::Ok)->setStyleSheet(getStyleSheet("component.apply_button", false));
    button(QMessageBox::Discard)->setStyleSheet(getStyleSheet("component.cancel_button", false));
    button(QMessageBox::Discard)->setText(caption("cancel"));
    setDefaultButton(QMessageBox::Ok);
    updateButtonText();
}

void VelaCountdownMessageBox::updateButtonText()
{
    if (QAbstractButton *ok = button(QMessageBox::Ok)) { // a client may have set other buttons
        ok->setText(caption("ok") + QLatin1Char('(') + QString::number(m_remaining) + QLatin1Char(')'));
    }
}

// The first step comes at once, so the first number seen is one less than the seconds that it takes.
void VelaCountdownMessageBox::showEvent(QShowEvent *event)
{
    QMessageBox::showEvent(event);
    m_isAnswered = false;
    slotTick();
    m_timer.start();
}

void VelaCountdownMessageBox::slotTick()
{
    --m_remaining;
    if (m_remaining >= 0) {
        updateButtonText();
        return;
    }
    m_timer.stop();
    if (QPushButton *answer = defaultButton(); answer && !m_isAnswered) {
        m_clicked = answer;
        m_isClickVoid = false;
        answer->installEventFilter(this);
        answer->animateClick(VisibleClick);
    }
}

// The button's own timer ends the visible click. Nobody else can stop it, so a click that comes too late is not heard.
bool VelaCountdownMessageBox::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Timer || watched != m_clicked) {
        return QMessageBox::eventFilter(watched, event);
    }
    m_clicked.clear();
    watched->removeEventFilter(this);
    if (!m_isClickVoid) {
        return false;
    }
    const QSignalBlocker blocker(watched);
    watched->event(event);
    return true;
}
