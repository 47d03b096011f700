// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "component/mouse-filters.h"
#include "vela_export.h"

#include <QMessageBox>

#include <memory>

class VelaCountdownMessageBoxPrivate;

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
    /// A box that clicks Ok after @p seconds.
    explicit VelaCountdownMessageBox(int seconds, QWidget *parent = nullptr);
    ~VelaCountdownMessageBox() override;

    /// Writes the count into the caption of Ok.
    void updateButtonText();

    /// Lets the click that is seen take effect, unless the box was answered meanwhile.
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// One step of the countdown.
    void slotTick();

protected:
    void showEvent(QShowEvent *event) override;
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaCountdownMessageBoxPrivate> d;
};
