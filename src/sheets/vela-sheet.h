// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QFrame>

#include <memory>

class VelaSheetPrivate;

/// Base of the modal panels that are shown inside a window: a white body in a soft shadow.
///
/// The shadow is painted from the eight images "bg_tutorial_...". Place a sheet inside a VelaMask to dim the window
/// around it.
class VELA_EXPORT VelaSheet : public QFrame
{
    Q_OBJECT

public:
    /// An empty sheet.
    explicit VelaSheet(QWidget *parent = nullptr);
    ~VelaSheet() override;

    /// Puts @p widget in the middle of the sheet, in place of the layout that there is. The sheet owns it then; a
    /// widget set before stays a child, but is not laid out any more.
    void setWidget(QWidget *widget);

    /// Draws the shadow into the band around the body.
    void drawShadow(QPainter &painter);

    /// Shows the sheet without waiting for an answer.
    virtual void showSheet() = 0;

Q_SIGNALS:
    /// The sheet was closed with @p ret, a QMessageBox::StandardButton or what done() was called with.
    void finished(int ret);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void customEvent(QEvent *event) override;

private:
    friend class VelaMessageSheet;

    void reserveShadow();
    void reserveShadowForShow();

    const std::unique_ptr<VelaSheetPrivate> d;
};
