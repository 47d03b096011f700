// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-msg-sheet_p.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"
#include "utils/util.h"

#include <QBoxLayout>
#include <QMovie>
#include <QPushButton>

#include <algorithm>
#include <iterator>

using namespace Vela;

namespace {

// Logical pixels.
constexpr int MaximumWidth = 540;
constexpr int TextBottomMargin = 4;
constexpr int InformativeTextSpacing = 6;
constexpr int IconSpacing = 20;
constexpr int ButtonSpacing = 20;
constexpr int OkMinimumWidth = 120;
constexpr int CancelMinimumWidth = 80;
constexpr int LineHeight = 24;
constexpr int InformativeLineHeight = 20;

// A parent of exactly 540 gives 480, though one of 539 gives 499: sheets have this width.
int widthIn(double parentWidth)
{
    if (parentWidth == MaximumWidth) {
        return Metric::SheetWidth;
    }
    const double width = parentWidth - Metric::SheetWindowMargin;
    return width > MaximumWidth ? MaximumWidth : static_cast<int>(width);
}

struct TypeLook
{
    Image icon; // icon to show, none for Image::Count
    QDialogButtonBox::StandardButtons buttons;
};

const TypeLook TypeLooks[] = {
    {Image::AppMessage, QDialogButtonBox::NoButton}, // AppMessage
    {Image::IconInformation, QDialogButtonBox::Ok}, // InfoMessage
    {Image::IconWarning, QDialogButtonBox::Ok}, // WarningMessage
    {Image::IconQuestion, QDialogButtonBox::Ok | QDialogButtonBox::Discard}, // QuestionMessage
    {Image::IconInformation, QDialogButtonBox::Ok | QDialogButtonBox::Discard}, // UpgradeMessage
    {Image::IconWarning, QDialogButtonBox::Ok | QDialogButtonBox::Discard}, // WarningQuestionMessage
};
constexpr int LookCount = sizeof(TypeLooks) / sizeof(TypeLooks[0]);

TypeLook lookOf(VelaMessageSheet::MessageType type)
{
    return type >= 0 && type < LookCount ? TypeLooks[type] : TypeLook {Image::Count, QDialogButtonBox::NoButton};
}

// Links have the palette's colour of the time when their text was set.
void renewLinks(QLabel *label)
{
    const QString text = label->text();
    if (text.contains(QLatin1String("<a "), Qt::CaseInsensitive)) {
        label->clear();
        label->setText(text);
    }
}

} // namespace

VelaMessageSheetPrivate::VelaMessageSheetPrivate(VelaMessageSheet *sheet) :
    ModalSheet(sheet, widthIn, ButtonSpacing), iconLabel(new QLabel(sheet)), q(sheet)
{
    addButtonBox();
}

void VelaMessageSheetPrivate::initialize(const MsgBoxCustomBtnText &captions)
{
    const TypeLook look = lookOf(type);
    setUpIcon(look.icon);
    ButtonLook ok;
    if (look.buttons.testFlag(QDialogButtonBox::Ok)) {
        ok = buttonLook(Style::ApplyButton, captions.okText, okCaption());
    }
    ButtonLook cancel;
    if (look.buttons.testFlag(QDialogButtonBox::Discard)) {
        cancel = buttonLook(Style::CancelButton, captions.cancelText, Text::Cancel);
    }
    // The sheet is styled before its buttons: styled children are polished again when an ancestor is given a sheet.
    q->setStyleSheet(Look::sheet(style()));
    setUpButtonBox(look.buttons);
    setUpButton(QMessageBox::Ok, ok);
    setUpButton(QMessageBox::Discard, cancel);
    sizeButton(QMessageBox::Ok, OkMinimumWidth);
    sizeButton(QMessageBox::Discard, CancelMinimumWidth);
    connect(buttonBox, &QDialogButtonBox::clicked, q, &VelaMessageSheet::buttonClick, Qt::UniqueConnection);
    setupLayout();
    setUpTexts();
}

Style VelaMessageSheetPrivate::style() const
{
    const bool isProcessing = type == VelaMessageSheet::AppMessage || type == VelaMessageSheet::ProcessingMessage;
    return isProcessing ? Style::SheetProcessing : Style::SheetOther;
}

Text VelaMessageSheetPrivate::okCaption() const
{
    return type == VelaMessageSheet::UpgradeMessage ? Text::UpgradeNow : Text::Ok;
}

void VelaMessageSheetPrivate::renew(const LookChange &change)
{
    ModalSheet::renew(change, style(), okCaption());
}

void VelaMessageSheetPrivate::renewContent(const LookChange &change)
{
    const QPixmap icon = iconLabel->pixmap(Qt::ReturnByValue);
    if (const std::optional<QPixmap> successor = change.successor(icon.cacheKey())) {
        iconLabel->setPixmap(*successor);
    }
    change.restyle(textLabel, Style::SheetText);
    if (informativeLabel) {
        change.restyle(informativeLabel, Style::SheetInformativeText);
    }
    if (change.isOfEverything()) {
        for (QLabel *label : {textLabel, informativeLabel}) {
            if (label) {
                renewLinks(label);
            }
        }
    }
}

void VelaMessageSheetPrivate::setUpIcon(Image icon)
{
    if (icon != Image::Count) {
        iconLabel->setPixmap(Look::image(icon));
    } else if (!iconLabel->movie()) {
        iconLabel->clear();
    }
}

void VelaMessageSheetPrivate::setUpButtonBox(QDialogButtonBox::StandardButtons buttons)
{
    // The sheet owns the styles, since setStyle() does not take ownership, and keeps the former ones: the box's
    // children may still refer to them.
    auto *style = new DialogButtonBoxStyle;
    style->setParent(q);
    buttonBox->setStyle(style);
    buttonBox->setStandardButtons(buttons);
}

void VelaMessageSheetPrivate::sizeButton(QMessageBox::StandardButton which, int minimumWidth)
{
    if (QPushButton *sized = button(which)) {
        sized->setFixedHeight(scaled(Metric::ButtonHeight));
        sized->setMinimumWidth(scaled(minimumWidth));
        sized->installEventFilter(q);
    }
}

void VelaMessageSheetPrivate::setUpTexts()
{
    textLabel->installEventFilter(q);
    textLabel->setStyleSheet(Look::sheet(Style::SheetText));
    if (informativeLabel) {
        informativeLabel->installEventFilter(q);
        informativeLabel->setStyleSheet(Look::sheet(Style::SheetInformativeText));
    }
}

void VelaMessageSheetPrivate::setText(const QString &newText)
{
    text = newText;
    setParagraph(textLabel, text, LineHeight);
    textLabel->setAlignment(Qt::AlignTop);
    textLabel->setFocusPolicy(Qt::StrongFocus);
    wrapText(textLabel);
    setupLayout();
}

void VelaMessageSheetPrivate::setInformativeText(const QString &newText)
{
    informativeText = newText;
    if (newText.isEmpty()) {
        if (informativeLabel) {
            informativeLabel->hide();
            informativeLabel->deleteLater();
            informativeLabel = nullptr;
        }
    } else {
        if (!informativeLabel) {
            informativeLabel = new MessageLabel(q);
            informativeLabel->setTextInteractionFlags(Qt::TextInteractionFlags(
                q->style()->styleHint(QStyle::SH_MessageBox_TextInteractionFlags, nullptr, q)));
            informativeLabel->setAlignment(Qt::AlignTop | Qt::AlignLeft);
            informativeLabel->setOpenExternalLinks(true);
            informativeLabel->setFocusPolicy(Qt::StrongFocus);
            wrapText(informativeLabel);
        }
        setParagraph(informativeLabel, newText, InformativeLineHeight);
    }
    setupLayout();
}

bool VelaMessageSheetPrivate::hasIcon() const
{
    return !iconLabel->pixmap(Qt::ReturnByValue).isNull() || iconLabel->movie();
}

void VelaMessageSheetPrivate::fill(QVBoxLayout *column)
{
    for (MessageLabel *label : {textLabel, informativeLabel}) {
        // The label would keep the height of the text or width that it had before.
        if (label) {
            label->setMinimumHeight(0);
            label->setMaximumHeight(QWIDGETSIZE_MAX);
        }
    }
    auto *texts = new QVBoxLayout;
    texts->setContentsMargins(0, 0, 0, scaled(TextBottomMargin));
    texts->setSpacing(0);
    texts->addWidget(textLabel);
    if (informativeLabel) {
        texts->addSpacing(scaled(InformativeTextSpacing));
        texts->addWidget(informativeLabel);
    }

    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    iconLabel->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
    if (hasIcon()) {
        row->addWidget(iconLabel, 0, Qt::AlignTop);
        row->addSpacing(scaled(IconSpacing));
    }
    row->addLayout(texts);
    column->addLayout(row);
}

void VelaMessageSheetPrivate::fitToWidth()
{
    // An empty box would lie over the texts and take their clicks.
    buttonBox->setVisible(!buttonBox->buttons().isEmpty());
}

void VelaMessageSheetPrivate::started()
{
    textLabel->setFocus(Qt::TabFocusReason);
    QMovie *movie = iconLabel->movie();
    if (type == VelaMessageSheet::ProcessingMessage && movie && movie->isValid()) {
        runningMovie = movie;
        movie->start();
    }
}

void VelaMessageSheetPrivate::rememberFocusWidgets()
{
    focusList.clear();
    const QList<QWidget *> visible = accessibleList(q, AccessibleFilter({q}, Qt::NoFocus));
    std::copy(visible.cbegin(), visible.cend(), std::back_inserter(focusList));
}
