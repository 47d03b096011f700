#include "sheets/vela-msg-box.h"

#include "scale/scaled.h"
#include "sheets/vela-mask.h"
#include "style-manager/style-manager.h"
#include "utils/component-strings.h"

#include <QPushButton>

namespace {

constexpr int ButtonHeight = 32; // logical pixels
const QColor MaskColor(0, 0, 0, 20);

/// A kind of message where there is no window to show it in.
struct BoxLook
{
    QMessageBox::Icon icon;
    QMessageBox::StandardButtons buttons;
    const char *styleKey;
};

const BoxLook InfoBox {QMessageBox::Information, QMessageBox::Ok, "component.info_message_box"};
const BoxLook WarningBox {QMessageBox::Warning, QMessageBox::Ok, "component.warning_message_box"};
const BoxLook ConfirmBox {QMessageBox::Question, QMessageBox::Ok | QMessageBox::Cancel,
                          "component.confirm_message_box"};
const BoxLook UpgradingBox {QMessageBox::Warning, QMessageBox::Ok, "component.upgrading_message_box"};

int runSheet(VelaMessageSheet &sheet, QWidget *parent)
{
    VelaMask::createMask(&sheet, parent->window(), MaskColor);
    sheet.button(QMessageBox::Ok)->setFixedHeight(scaled(ButtonHeight));
    return sheet.exec();
}

void setUpButton(QAbstractButton *button, const QString &customCaption, const char *captionKey, const char *styleKey)
{
    if (button) {
        button->setText(customCaption.isEmpty()
                            ? ComponentStrings::getInstance()->getString(QString::fromLatin1(captionKey))
                            : customCaption);
        button->setStyleSheet(getStyleSheet(styleKey, false));
    }
}

int runBox(const BoxLook &look, const QString &title, const QString &text, const QString &informativeText = QString(),
           const MsgBoxCustomBtnText &captions = {QString(), QString()})
{
    QMessageBox box;
    box.setStyleSheet(getStyleSheet(look.styleKey, false)); // before its buttons, which would be polished again
    box.setIcon(look.icon);
    box.setWindowTitle(title);
    box.setText(text);
    box.setInformativeText(informativeText);
    box.setStandardButtons(look.buttons);
    setUpButton(box.button(QMessageBox::Ok), captions.okText, "ok", "component.apply_button");
    setUpButton(box.button(QMessageBox::Cancel), captions.cancelText, "cancel", "component.cancel_button");
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
