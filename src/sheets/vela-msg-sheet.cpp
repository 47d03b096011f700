// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-msg-sheet.h"

#include "look/look-change_p.h"
#include "scale/scaled.h"
#include "sheets/vela-msg-sheet_p.h"
#include "utils/accessible-event_p.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QMovie>
#include <QPushButton>

#include <algorithm>

using namespace Vela;

namespace {

constexpr int MovieSize = 32; // logical pixels

bool takesFocus(const QWidget *widget)
{
    return widget && widget->focusPolicy() != Qt::NoFocus;
}

} // namespace

MsgBoxCustomBtnText::MsgBoxCustomBtnText(QString ok, QString cancel) :
    okText(std::move(ok)), cancelText(std::move(cancel))
{
}

class MessageLabelPrivate
{
};

MessageLabel::MessageLabel(QWidget *parent) : QLabel(parent) { }

MessageLabel::~MessageLabel() = default;

void MessageLabel::resizeEvent(QResizeEvent *)
{
    // Otherwise the height asked for would never be less than the last one.
    setMinimumHeight(0);
    setFixedHeight(qMax(0, heightForWidth(width())));
}

class DialogButtonBoxStylePrivate
{
};

DialogButtonBoxStyle::DialogButtonBoxStyle() = default;

DialogButtonBoxStyle::~DialogButtonBoxStyle() = default;

int DialogButtonBoxStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                                    QStyleHintReturn *returnData) const
{
    if (hint == QStyle::SH_DialogButtonLayout) {
        return QDialogButtonBox::WinLayout;
    }
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

VelaMessageSheet::VelaMessageSheet(MessageType type, QWidget *parent) :
    VelaSheet(parent), d(new VelaMessageSheetPrivate(this))
{
    d->type = type;
    d->initialize();
}

VelaMessageSheet::VelaMessageSheet(MessageType type, const QString &text, QWidget *parent) :
    VelaMessageSheet(type, parent)
{
    setText(text);
}

VelaMessageSheet::VelaMessageSheet(MessageType type, const QString &text, const QString &informativeText,
                                   QWidget *parent) :
    VelaMessageSheet(type, text, parent)
{
    setInformativeText(informativeText);
}

VelaMessageSheet::VelaMessageSheet(MessageType type, const QString &text, const MsgBoxCustomBtnText &captions,
                                   QWidget *parent) :
    VelaSheet(parent), d(new VelaMessageSheetPrivate(this))
{
    d->type = type;
    d->initialize(captions);
    setText(text);
}

VelaMessageSheet::VelaMessageSheet(const QString &text, const QString &movieFile, QWidget *parent) :
    VelaMessageSheet(ProcessingMessage, parent)
{
    auto *movie = new QMovie(movieFile, QByteArray(), this);
    movie->setScaledSize(QSize(scaled(MovieSize), scaled(MovieSize)));
    d->iconLabel->setMovie(movie);
    setText(text);
}

VelaMessageSheet::~VelaMessageSheet() = default;

void VelaMessageSheet::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        d->renew(*change);
    }
    VelaSheet::customEvent(event);
}

void VelaMessageSheet::setText(const QString &text)
{
    d->setText(text);
}

QString VelaMessageSheet::text() const
{
    return d->text;
}

void VelaMessageSheet::setInformativeText(const QString &text)
{
    d->setInformativeText(text);
}

QString VelaMessageSheet::informativeText() const
{
    return d->informativeText;
}

void VelaMessageSheet::setIcon(const QPixmap &pixmap)
{
    d->iconLabel->setPixmap(pixmap);
    d->setupLayout();
}

void VelaMessageSheet::setMessageType(MessageType type)
{
    d->type = type;
    d->initialize();
}

VelaMessageSheet::MessageType VelaMessageSheet::messageType() const
{
    return d->type;
}

void VelaMessageSheet::setBlockWindowButton(bool block)
{
    d->run.setBlockWindowButton(block);
}

bool VelaMessageSheet::blocksWindowButton() const
{
    return d->run.blocksWindowButton();
}

QPushButton *VelaMessageSheet::button(QMessageBox::StandardButton which) const
{
    return d->button(which);
}

void VelaMessageSheet::setDefaultButton(QPushButton *button)
{
    if (button) {
        button->setDefault(true);
    }
}

void VelaMessageSheet::showSheet()
{
    reserveShadowForShow();
    show();
    d->run.watchWindow();
}

int VelaMessageSheet::exec()
{
    reserveShadowForShow();
    return d->exec();
}

void VelaMessageSheet::done(int ret)
{
    if (d->runningMovie) {
        d->runningMovie->stop();
    }
    d->run.end(ret);
}

void VelaMessageSheet::quit()
{
    done(0);
}

void VelaMessageSheet::buttonClick(QAbstractButton *which)
{
    done(d->buttonBox->standardButton(which));
}

void VelaMessageSheet::showEvent(QShowEvent *event)
{
    d->buttonBox->setFocusPolicy(Qt::NoFocus);
    for (QMessageBox::StandardButton which : {QMessageBox::Ok, QMessageBox::Discard}) {
        if (QPushButton *shown = button(which)) {
            shown->setFocusPolicy(Qt::StrongFocus);
        }
    }
    d->rememberFocusWidgets();
    markFirstFocusWidget();
    markLastFocusWidget();
    VelaSheet::showEvent(event);
    Vela::tellScreenReaders(this, QAccessible::Alert); // as of a message box
}

void VelaMessageSheet::markFirstFocusWidget()
{
    const auto first = std::find_if(d->focusList.cbegin(), d->focusList.cend(), takesFocus);
    d->firstFocusWidget = first == d->focusList.cend() ? nullptr : *first;
}

void VelaMessageSheet::markLastFocusWidget()
{
    const auto last = std::find_if(d->focusList.crbegin(), d->focusList.crend(), takesFocus);
    d->lastFocusWidget = last == d->focusList.crend() ? nullptr : *last;
}

bool VelaMessageSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (d->run.refusesClose(event)) {
        return true;
    }
    if (!d->isKeyOfWindow(watched, event) || !isVisible()) {
        return false;
    }
    auto *keyEvent = static_cast<QKeyEvent *>(event);
    if (keyEvent->key() == Qt::Key_Tab || keyEvent->key() == Qt::Key_Backtab) {
        restrictedFocus(watched, keyEvent);
    } else {
        d->answer(keyEvent->key());
    }
    // No key gets past the sheet.
    return true;
}

// The walk starts from the window, not from the widget that has the focus, so it does not step from widget to widget;
// the applications know it so.
void VelaMessageSheet::restrictedFocus(QObject *watched, QKeyEvent *event)
{
    auto *start = qobject_cast<QWidget *>(watched);
    if (!start) {
        return;
    }
    const bool forward = event->key() == Qt::Key_Tab;
    QWidget *widget = start;
    do {
        widget = forward ? widget->nextInFocusChain() : widget->previousInFocusChain();
    } while (widget != start && !takesFocus(widget));

    if (!d->focusList.contains(widget)) {
        widget = forward ? d->firstFocusWidget : d->lastFocusWidget;
    }
    if (widget) {
        widget->setFocus(Qt::TabFocusReason);
    }
}

// A Tab in a widget of the sheet is answered by that widget, before the window sees it, and asks here.
bool VelaMessageSheet::focusNextPrevChild(bool next)
{
    return d->run.moveFocus(next) || VelaSheet::focusNextPrevChild(next);
}
