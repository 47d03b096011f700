// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-input-sheet.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/scaled.h"
#include "sheets/modal-sheet_p.h"
#include "sheets/vela-msg-sheet.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Vela;

namespace {

// Logical pixels.
constexpr int LineEditSpacing = 8;
constexpr int ButtonSpacing = 24;
constexpr int LineHeight = 20;

int widthIn(double parentWidth)
{
    const bool isNarrow = parentWidth < Metric::SheetWidth + Metric::SheetWindowMargin;
    return isNarrow ? static_cast<int>(parentWidth - Metric::SheetWindowMargin) : Metric::SheetWidth;
}

} // namespace

class VelaInputSheetPrivate : public Private::ModalSheet
{
public:
    explicit VelaInputSheetPrivate(VelaInputSheet *sheet);

    void initialize();
    void setPrompt(const QString &text);
    void renew(const LookChange &change) { ModalSheet::renew(change, Style::SheetOther, Text::Ok); }

    QString prompt;
    QLineEdit *const lineEdit;

private:
    void renewContent(const LookChange &change) override;
    void fill(QVBoxLayout *column) override;
    void fitToWidth() override;
    void started() override;

    VelaInputSheet *const q;
};

VelaInputSheetPrivate::VelaInputSheetPrivate(VelaInputSheet *sheet) :
    ModalSheet(sheet, widthIn, ButtonSpacing), lineEdit(new QLineEdit(sheet)), q(sheet)
{
    addButtonBox();
}

void VelaInputSheetPrivate::initialize()
{
    const ButtonLook ok = buttonLook(Style::ApplyButton, QString(), Text::Ok);
    const ButtonLook cancel = buttonLook(Style::CancelButton, QString(), Text::Cancel);
    // The sheet is styled before its buttons: styled children are polished again when an ancestor is given a sheet.
    // A frame loses its margins, the shadow's room, when it is styled.
    const QMargins shadow = q->contentsMargins();
    q->setStyleSheet(Look::sheet(Style::SheetOther));
    q->ensurePolished();
    q->setContentsMargins(shadow);
    buttonBox->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Discard);
    setUpButton(QMessageBox::Ok, ok);
    setUpButton(QMessageBox::Discard, cancel);
    connect(buttonBox, &QDialogButtonBox::clicked, q, &VelaInputSheet::buttonClick);
    setupLayout();
}

void VelaInputSheetPrivate::setPrompt(const QString &text)
{
    prompt = text;
    setParagraph(textLabel, text, LineHeight);
    textLabel->setAlignment(Qt::AlignTop);
    wrapText(textLabel);
    setupLayout();
}

void VelaInputSheetPrivate::renewContent(const LookChange &change)
{
    change.restyle(lineEdit, Style::LineEdit);
}

void VelaInputSheetPrivate::fill(QVBoxLayout *column)
{
    lineEdit->setFixedHeight(scaled(Metric::FieldHeight));
    lineEdit->setStyleSheet(Look::sheet(Style::LineEdit));
    column->addWidget(textLabel);
    column->addSpacing(scaled(LineEditSpacing));
    column->addWidget(lineEdit);
}

void VelaInputSheetPrivate::fitToWidth()
{
    // The label takes this height when it gets its width; the sheet's own height, which comes first, counts on it. With
    // its former minimum the label would need no less than for the prompt or width that it had before.
    textLabel->setMinimumHeight(0);
    const int textWidth = q->contentsRect().width() - 2 * scaled(Metric::SheetMargin);
    textLabel->setFixedHeight(qMax(0, textLabel->heightForWidth(textWidth)));
}

void VelaInputSheetPrivate::started()
{
    q->setFocus(Qt::TabFocusReason);
    lineEdit->setFocus();
}

VelaInputSheet::VelaInputSheet(QWidget *parent) : VelaSheet(parent), d(new VelaInputSheetPrivate(this))
{
    d->initialize();
}

VelaInputSheet::VelaInputSheet(const QString &text, QWidget *parent) : VelaInputSheet(parent)
{
    setText(text);
}

VelaInputSheet::~VelaInputSheet() = default;

void VelaInputSheet::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        d->renew(*change);
    }
    VelaSheet::customEvent(event);
}

void VelaInputSheet::setText(const QString &text)
{
    d->setPrompt(text);
}

QString VelaInputSheet::text() const
{
    return d->prompt;
}

QLineEdit *VelaInputSheet::getLineEdit()
{
    return d->lineEdit;
}

QString VelaInputSheet::getContent()
{
    return d->lineEdit->text();
}

QPushButton *VelaInputSheet::button(QMessageBox::StandardButton which) const
{
    return d->button(which);
}

void VelaInputSheet::setDefaultButton(QPushButton *button)
{
    if (button) {
        button->setDefault(true);
    }
}

void VelaInputSheet::setBlockWindowButton(bool block)
{
    d->run.setBlockWindowButton(block);
}

bool VelaInputSheet::blocksWindowButton() const
{
    return d->run.blocksWindowButton();
}

void VelaInputSheet::showSheet()
{
    show();
    d->run.watchWindow();
    d->lineEdit->setFocus();
}

int VelaInputSheet::exec()
{
    return d->exec();
}

void VelaInputSheet::done(int ret)
{
    d->run.end(ret);
}

void VelaInputSheet::quit()
{
    done(0);
}

void VelaInputSheet::buttonClick(QAbstractButton *which)
{
    done(d->buttonBox->standardButton(which));
}

bool VelaInputSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (d->run.refusesClose(event)) {
        return true;
    }
    if (!d->isKeyOfWindow(watched, event)) {
        return false;
    }
    d->answer(static_cast<QKeyEvent *>(event)->key());
    // No key gets past the sheet.
    return true;
}

// A Tab in a widget of the sheet is answered by that widget, before the window sees it, and asks here.
bool VelaInputSheet::focusNextPrevChild(bool next)
{
    return d->run.moveFocus(next) || VelaSheet::focusNextPrevChild(next);
}
