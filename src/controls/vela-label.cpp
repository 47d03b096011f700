// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-label.h"

#include "look/look-change_p.h"
#include "look/look_p.h"

using namespace Vela;

class VelaLabelPrivate
{
};

VelaLabel::VelaLabel(QWidget *parent, Qt::WindowFlags f) : QLabel(parent, f)
{
    setStyleSheet(Look::sheet(Style::Label));
}

VelaLabel::VelaLabel(const QString &text, QWidget *parent, Qt::WindowFlags f) : QLabel(text, parent, f)
{
    setStyleSheet(Look::sheet(Style::Label));
}

VelaLabel::~VelaLabel() = default;

void VelaLabel::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::Label);
    }
    QLabel::customEvent(event);
}

void VelaLabel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (wordWrap() && sizePolicy().verticalPolicy() == QSizePolicy::Minimum) {
        // Otherwise the height asked for would never be less than the last one.
        setMinimumHeight(0);
        // A label without a text has no height for a width.
        setMinimumHeight(qMax(0, heightForWidth(width())));
    }
}
