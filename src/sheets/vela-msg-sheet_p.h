// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "sheets/modal-sheet_p.h"
#include "sheets/vela-msg-sheet.h"

#include <QDialogButtonBox>
#include <QPointer>
#include <QVector>

class QMovie;

class VelaMessageSheetPrivate : public Vela::Private::ModalSheet
{
public:
    explicit VelaMessageSheetPrivate(VelaMessageSheet *sheet);

    void initialize(const MsgBoxCustomBtnText &captions = {QString(), QString()});
    void setText(const QString &newText);
    void setInformativeText(const QString &newText);
    void rememberFocusWidgets();
    void renew(const Vela::LookChange &change);

    MessageLabel *informativeLabel = nullptr; // label of the informative text, null without one
    QLabel *const iconLabel;
    QString text;
    QString informativeText;
    VelaMessageSheet::MessageType type = VelaMessageSheet::AppMessage;
    QPointer<QMovie> runningMovie; // movie that exec() has started
    QVector<QPointer<QWidget>> focusList; // widgets visible when the sheet was shown, null if deleted since
    QPointer<QWidget> firstFocusWidget;
    QPointer<QWidget> lastFocusWidget;

private:
    void setUpIcon(Vela::Image icon);
    void setUpButtonBox(QDialogButtonBox::StandardButtons buttons);
    void sizeButton(QMessageBox::StandardButton which, int minimumWidth);
    void setUpTexts();
    Vela::Style style() const;
    Vela::Text okCaption() const;
    void renewContent(const Vela::LookChange &change) override;
    void fill(QVBoxLayout *column) override;
    void fitToWidth() override;
    void started() override;
    bool hasIcon() const;

    VelaMessageSheet *const q;
};
