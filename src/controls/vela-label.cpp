// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-label.h"

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

void VelaLabel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (wordWrap() && sizePolicy().verticalPolicy() == QSizePolicy::Minimum) {
        setMinimumHeight(0); // or the height asked for would never be less than the last one
        setMinimumHeight(qMax(0, heightForWidth(width()))); // a label without a text has none
    }
}
