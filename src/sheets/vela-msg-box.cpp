// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-msg-box.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"
#include "sheets/button-captions_p.h"
#include "sheets/vela-mask.h"

#include <QPushButton>

using namespace Vela;

namespace {

// A kind of message: its sheet, and its box where there is no window to show a sheet in.
struct Kind
{
    VelaMessageSheet::MessageType sheet;
    QMessageBox::Icon boxIcon;
    QMessageBox::StandardButtons boxButtons;
    Style boxStyle;
};

const Kind Info {VelaMessageSheet::InfoMessage, QMessageBox::Information, QMessageBox::Ok, Style::InfoBox};
const Kind Warning {VelaMessageSheet::WarningMessage, QMessageBox::Warning, QMessageBox::Ok, Style::WarningBox};
const Kind Confirm {VelaMessageSheet::QuestionMessage, QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel,
                    Style::ConfirmBox};
const Kind Upgrading {VelaMessageSheet::UpgradeMessage, QMessageBox::Warning, QMessageBox::Ok, Style::UpgradingBox};

// A box that follows a change of the look while it is up.
class MessageBox : public QMessageBox
{
public:
    explicit MessageBox(Style style) : m_style(style)
    {
        setStyleSheet(Look::sheet(style)); // comes before its buttons, which would be polished again
        findChild<QDialogButtonBox *>()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return Private::keepCaptions(watched, event, QDialogButtonBox::Ok | QDialogButtonBox::Cancel)
            || QMessageBox::eventFilter(watched, event);
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

int runBox(const Kind &kind, const QString &title, const QString &text, const QString &informativeText = QString(),
           const MsgBoxCustomBtnText &captions = {QString(), QString()})
{
    MessageBox box(kind.boxStyle);
    box.setIcon(kind.boxIcon);
    box.setWindowTitle(title);
    box.setText(text);
    box.setInformativeText(informativeText);
    box.setStandardButtons(kind.boxButtons);
    setUpButton(box.button(QMessageBox::Ok), captions.okText, Text::Ok, Style::ApplyButton);
    setUpButton(box.button(QMessageBox::Cancel), captions.cancelText, Text::Cancel, Style::CancelButton);
    return box.exec();
}

int runBox(const Kind &kind, const QString &title, const QString &text, const MsgBoxCustomBtnText &captions)
{
    return runBox(kind, title, text, QString(), captions);
}

// A title stands on boxes only. What comes behind the text is an informative text or captions, or nothing.
template<typename... Rest>
int run(const Kind &kind, QWidget *parent, const QString &title, const QString &text, const Rest &...rest)
{
    if (!parent) {
        return runBox(kind, title, text, rest...);
    }
    VelaMessageSheet sheet(kind.sheet, text, rest..., parent);
    VelaMask::createMask(&sheet, parent->window(), Look::color(Color::Mask));
    sheet.button(QMessageBox::Ok)->setFixedHeight(scaled(Metric::ButtonHeight));
    return sheet.exec();
}

} // namespace

void showInfoMsg(const QString &title, const QString &text, QWidget *parent)
{
    run(Info, parent, title, text);
}

void showWarningMsg(const QString &title, const QString &text, QWidget *parent)
{
    run(Warning, parent, title, text);
}

void showWarningMsg(const QString &title, const QString &text, const QString &informativeText, QWidget *parent)
{
    run(Warning, parent, title, text, informativeText);
}

int showConfirmMsg(const QString &title, const QString &text, QWidget *parent)
{
    return showConfirmMsgCustomBtn(title, text, MsgBoxCustomBtnText(QString(), QString()), parent);
}

int showConfirmMsgCustomBtn(const QString &title, const QString &text, const MsgBoxCustomBtnText &captions,
                            QWidget *parent)
{
    return run(Confirm, parent, title, text, captions);
}

void showUpgradingMsg(const QString &title, const QString &text, QWidget *parent)
{
    run(Upgrading, parent, title, text);
}
