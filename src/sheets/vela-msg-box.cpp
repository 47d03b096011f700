// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-msg-box.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"
#include "sheets/vela-mask.h"

#include <QPushButton>

using namespace Vela;

namespace {

// A kind of message where there is no window to show it in.
struct BoxLook
{
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    Style style;
};

const BoxLook InfoBox {QMessageBox::Information, QMessageBox::Ok, Style::InfoBox};
const BoxLook WarningBox {QMessageBox::Warning, QMessageBox::Ok, Style::WarningBox};
const BoxLook ConfirmBox {QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel, Style::ConfirmBox};
const BoxLook UpgradingBox {QMessageBox::Warning, QMessageBox::Ok, Style::UpgradingBox};

int runSheet(VelaMessageSheet &sheet, QWidget *parent)
{
    VelaMask::createMask(&sheet, parent->window(), Look::color(Color::Mask));
    sheet.button(QMessageBox::Ok)->setFixedHeight(scaled(Metric::ButtonHeight));
    return sheet.exec();
}

// A box that follows a change of the look while it is up.
class MessageBox : public QMessageBox
{
public:
    explicit MessageBox(Style style) : m_style(style)
    {
        setStyleSheet(Look::sheet(style)); // comes before its buttons, which would be polished again
    }

protected:
    void customEvent(QEvent *event) override
    {
        if (const auto *change = LookChange::of(event)) {
            change->restyle(this, m_style);
            renew(*change, button(QMessageBox::Ok), Style::ApplyButton, Text::Ok);
            renew(*change, button(QMessageBox::Cancel), Style::CancelButton, Text::Cancel);
        }
        QMessageBox::customEvent(event);
    }

private:
    static void renew(const LookChange &change, QAbstractButton *button, Style style, Text caption)
    {
        if (button) {
            change.restyle(button, style);
            change.renewText(button, caption);
        }
    }

    const Style m_style;
};

void setUpButton(QAbstractButton *button, const QString &customCaption, Text caption, Style style)
{
    if (button) {
        button->setText(Look::textOr(customCaption, caption));
        button->setStyleSheet(Look::sheet(style));
    }
}

int runBox(const BoxLook &look, const QString &title, const QString &text, const QString &informativeText = QString(),
           const MsgBoxCustomBtnText &captions = {QString(), QString()})
{
    MessageBox box(look.style);
    box.setIcon(look.icon);
    box.setWindowTitle(title);
    box.setText(text);
    box.setInformativeText(informativeText);
    box.setStandardButtons(look.buttons);
    setUpButton(box.button(QMessageBox::Ok), captions.okText, Text::Ok, Style::ApplyButton);
    setUpButton(box.button(QMessageBox::Cancel), captions.cancelText, Text::Cancel, Style::CancelButton);
    return box.exec();
}

} // namespace

void showInfoMsg(const QString &title, const QString &text, QWidget *parent)
{
    if (!parent) {
        runBox(InfoBox, title, text);
        return;
    }
    VelaMessageSheet sheet(VelaMessageSheet::InfoMessage, text, parent);
    runSheet(sheet, parent);
}

void showWarningMsg(const QString &title, const QString &text, QWidget *parent)
{
    if (!parent) {
        runBox(WarningBox, title, text);
        return;
    }
    VelaMessageSheet sheet(VelaMessageSheet::WarningMessage, text, parent);
    runSheet(sheet, parent);
}

void showWarningMsg(const QString &title, const QString &text, const QString &informativeText, QWidget *parent)
{
    if (!parent) {
        runBox(WarningBox, title, text, informativeText);
        return;
    }
    VelaMessageSheet sheet(VelaMessageSheet::WarningMessage, text, informativeText, parent);
    runSheet(sheet, parent);
}

int showConfirmMsg(const QString &title, const QString &text, QWidget *parent)
{
    return showConfirmMsgCustomBtn(title, text, MsgBoxCustomBtnText(QString(), QString()), parent);
}

int showConfirmMsgCustomBtn(const QString &title, const QString &text, const MsgBoxCustomBtnText &captions,
                            QWidget *parent)
{
    if (!parent) {
        return runBox(ConfirmBox, title, text, QString(), captions);
    }
    VelaMessageSheet sheet(VelaMessageSheet::QuestionMessage, text, captions, parent);
    return runSheet(sheet, parent);
}

void showUpgradingMsg(const QString &title, const QString &text, QWidget *parent)
{
    if (!parent) {
        runBox(UpgradingBox, title, text);
        return;
    }
    VelaMessageSheet sheet(VelaMessageSheet::UpgradeMessage, text, parent);
    runSheet(sheet, parent);
}
