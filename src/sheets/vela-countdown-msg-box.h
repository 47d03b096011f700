// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/mouse-filters.h"
#include "vela_export.h"

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

/// Message box whose Ok button counts down seconds and clicks itself at the end.
///
/// Title, text and icon are the caller's to set. The caption shows the whole count before the box is shown and one less
/// from then on; the click comes as many seconds after the box is shown as were given. Results are QMessageBox::Ok and,
/// for the button with the cancel caption, QMessageBox::Discard. Once it is answered nothing clicks itself, unless the
/// box is shown again.
///
/// Escape and the window's close button are ignored, since QMessageBox finds no button for them among these two, unless
/// setEscapeButton() has named one before the box is shown.
class VELA_EXPORT VelaCountdownMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    explicit VelaCountdownMessageBox(int seconds, QWidget *parent = nullptr);

    /// Writes the count into the caption of Ok.
    void updateButtonText();

    /// Lets the click that is seen take effect, unless the box was answered meanwhile.
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// One step of the countdown.
    void slotTick();

protected:
    void showEvent(QShowEvent *event) override;

private:
    QTimer m_timer;
    qint64 m_remaining; // seconds; counted down from any int
    bool m_isAnswered = false; // since it was last shown
    QPointer<QPushButton> m_clicked; // by itself: it is seen pressed and its click is still to come
    bool m_isClickVoid = false;
};
