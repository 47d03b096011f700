// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/modal-sheet_p.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "look/metrics_p.h"
#include "scale/dpi-info.h"
#include "scale/scaled.h"
#include "sheets/button-captions_p.h"
#include "sheets/vela-msg-sheet.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QPushButton>
#include <QStyle>
#include <QStyleOption>
#include <QVBoxLayout>

#include <algorithm>

namespace Vela::Private {

ModalSheet::ModalSheet(VelaSheet *sheet, WidthRule widthRule, int buttonSpacing) :
    QObject(sheet),
    textLabel(new MessageLabel(sheet)),
    run(sheet),
    m_sheet(sheet),
    m_parent(sheet->parentWidget()),
    m_widthRule(widthRule),
    m_buttonSpacing(buttonSpacing)
{
    sheet->installEventFilter(this);
}

void ModalSheet::addButtonBox()
{
    buttonBox = new QDialogButtonBox(m_sheet);
    buttonBox->installEventFilter(this);
}

// A sheet that comes to another parent, its mask, is polished with all that is in it. Its button box would hand the
// style that the buttons have already on to them again, polish each for that twice, and lay them out as they lie.
bool ModalSheet::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_sheet && event->type() == QEvent::ParentChange) {
        m_parent = m_sheet->parentWidget();
    } else if (watched == buttonBox && event->type() == QEvent::StyleChange) {
        const BoxLayout former = std::exchange(m_boxLayout, boxLayout());
        return m_sheet->parentWidget() != m_parent && m_boxLayout == former && buttonsHaveStyleOfBox();
    }
    return keepCaptions(watched, event, QDialogButtonBox::Ok | QDialogButtonBox::Discard);
}

ModalSheet::BoxLayout ModalSheet::boxLayout() const
{
    const QStyle *style = buttonBox->style();
    QStyleOption box;
    box.initFrom(buttonBox);
    box.rect = QRect(0, 0, QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    return {style->styleHint(QStyle::SH_DialogButtonLayout, nullptr, buttonBox),
            style->subElementRect(QStyle::SE_PushButtonLayoutItem, &box, buttonBox)};
}

bool ModalSheet::buttonsHaveStyleOfBox() const
{
    const QList<QAbstractButton *> buttons = buttonBox->buttons();
    return std::all_of(buttons.cbegin(), buttons.cend(),
                       [this](const QAbstractButton *button) { return button->style() == buttonBox->style(); });
}

ModalSheet::ButtonLook ModalSheet::buttonLook(Style style, const QString &customCaption, Text caption)
{
    return {Look::textOr(customCaption, caption), Look::sheet(style)};
}

void ModalSheet::setUpButton(QMessageBox::StandardButton which, const ButtonLook &look)
{
    QPushButton *known = button(which);
    if (!known) {
        return;
    }
    known->setText(look.caption);
    if (which == QMessageBox::Ok) {
        known->setDefault(true);
    }
    known->setStyleSheet(look.sheet);
}

void ModalSheet::renew(const LookChange &change, Style style, Text okCaption)
{
    const QMargins shadow = m_sheet->contentsMargins(); // which a frame loses when it is styled
    const QFont formerFont = textLabel->font();
    change.restyle(m_sheet, style);
    m_sheet->setContentsMargins(shadow);
    renewContent(change);
    if (QPushButton *ok = button(QMessageBox::Ok)) {
        change.restyle(ok, Style::ApplyButton);
        change.renewText(ok, okCaption);
    }
    if (QPushButton *cancel = button(QMessageBox::Discard)) {
        change.restyle(cancel, Style::CancelButton);
        change.renewText(cancel, Text::Cancel);
    }
    if (textLabel->font() != formerFont) {
        setupLayout();
    }
}

QPushButton *ModalSheet::button(QMessageBox::StandardButton which) const
{
    return buttonBox->button(static_cast<QDialogButtonBox::StandardButton>(which));
}

void ModalSheet::setParagraph(QLabel *label, const QString &text, int lineHeight)
{
    const QString paragraph = QStringLiteral("<p style='line-height: %1px;'>%2</p>").arg(lineHeight).arg(text);
    label->setText(DPIinfo::getInstance()->getScaledStyleSheet(paragraph));
}

void ModalSheet::wrapText(QLabel *label)
{
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
}

int ModalSheet::preferredWidth() const
{
    const QWidget *parent = m_sheet->parentWidget();
    return parent ? m_widthRule(parent->width() / DPIinfo::getInstance()->getDPI()) : Metric::SheetWidth;
}

void ModalSheet::setupLayout()
{
    delete m_sheet->layout();
    auto *column = new QVBoxLayout(m_sheet);
    const int margin = scaled(Metric::SheetMargin);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    fill(column);
    if (!buttonBox->buttons().isEmpty()) {
        column->addSpacing(scaled(m_buttonSpacing));
        column->addWidget(buttonBox);
    }

    m_sheet->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Maximum);
    m_sheet->setFixedWidth(scaled(preferredWidth()));
    fitToWidth();
    m_sheet->updateGeometry();
    m_sheet->adjustSize();
}

int ModalSheet::exec()
{
    if (run.state() == SheetRun::State::Waiting) {
        return 0;
    }
    return run.exec([this] { started(); });
}

bool ModalSheet::isKeyOfWindow(const QObject *watched, const QEvent *event) const
{
    return watched == m_sheet->window() && event->type() == QEvent::KeyPress;
}

void ModalSheet::answer(int key)
{
    QPushButton *meant = nullptr;
    switch (key) {
    case Qt::Key_Escape:
        meant = button(QMessageBox::Discard);
        break;
    case Qt::Key_Enter:
    case Qt::Key_Return:
    case Qt::Key_Space:
        meant = button(QMessageBox::Ok);
        break;
    default:
        break;
    }
    if (meant) {
        meant->click();
    }
}

} // namespace Vela::Private
