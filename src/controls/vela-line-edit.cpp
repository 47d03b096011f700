// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-line-edit.h"

#include "look/look-change_p.h"
#include "look/look_p.h"
#include "scale/scaled.h"
#include "utils/accessible-event_p.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>

using namespace Vela;

namespace {

QLabel *createText(QWidget *parent)
{
    auto *label = new QLabel;
    Look::adopt(label, parent, Look::sheet(Style::LineEditLabel));
    // A label that never had a text takes the room of a letter, one whose text is empty takes none.
    label->setText(QStringLiteral(" "));
    label->setText(QString());
    return label;
}

} // namespace

class VelaLineEditPrivate
{
public:
    QHBoxLayout *layout = nullptr;
    QLabel *preLabel = nullptr;
    QLabel *postLabel = nullptr;
    QLineEdit *lineEdit = nullptr;
    bool (*validator)(const QString &) = nullptr;
    QMargins margins; // logical pixels
    int spacing = 0; // logical pixels
};

VelaLineEdit::VelaLineEdit(QWidget *parent) : QWidget(parent), d(std::make_unique<VelaLineEditPrivate>())
{
    d->layout = new QHBoxLayout(this);
    d->preLabel = createText(this);
    d->lineEdit = new QLineEdit;
    Look::adopt(d->lineEdit, this, Look::sheet(Style::LineEdit));
    d->postLabel = createText(this);

    d->layout->setAlignment(Qt::AlignLeft);
    setSpacing(0);
    setMargins(0, 0, 0, 0);
    d->layout->addWidget(d->preLabel);
    d->layout->addWidget(d->lineEdit);
    d->layout->addWidget(d->postLabel);
    setFocusProxy(d->lineEdit);
}

VelaLineEdit::~VelaLineEdit() = default;

void VelaLineEdit::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(d->preLabel, Style::LineEditLabel);
        change->restyle(d->lineEdit, Style::LineEdit);
        change->restyle(d->postLabel, Style::LineEditLabel);
    }
    QWidget::customEvent(event);
}

void VelaLineEdit::setMargins(int left, int top, int right, int bottom)
{
    d->margins = QMargins(left, top, right, bottom);
    d->layout->setContentsMargins(scaled(left), scaled(top), scaled(right), scaled(bottom));
}

QMargins VelaLineEdit::margins() const
{
    return d->margins;
}

void VelaLineEdit::setSpacing(int spacing)
{
    d->spacing = spacing;
    d->layout->setSpacing(scaled(spacing));
}

int VelaLineEdit::spacing() const
{
    return d->spacing;
}

void VelaLineEdit::setValidator(bool (*validator)(const QString &))
{
    d->validator = validator;
}

bool VelaLineEdit::validate()
{
    return !d->validator || d->validator(getEditText());
}

void VelaLineEdit::setError(bool error)
{
    d->lineEdit->setProperty("error", error);
    d->lineEdit->style()->polish(d->lineEdit);
    d->lineEdit->update();
    tellScreenReaders(d->lineEdit, QAccessible::DescriptionChanged);
}

bool VelaLineEdit::hasError() const
{
    return d->lineEdit->property("error").toBool();
}

QLabel *VelaLineEdit::getPreLabel()
{
    return d->preLabel;
}

QLabel *VelaLineEdit::getPostLabel()
{
    return d->postLabel;
}

QLineEdit *VelaLineEdit::getLineEdit()
{
    return d->lineEdit;
}

QString VelaLineEdit::getEditText() const
{
    return d->lineEdit->text();
}
