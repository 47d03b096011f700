// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-footbar.h"

#include "scale/scaled.h"

#include <QHBoxLayout>
#include <QPointer>

namespace {

// Logical pixels.
constexpr int SideMargin = 20;
constexpr int TopAndBottomMargin = 8;
constexpr int Spacing = 10;

} // namespace

class VelaFootbarPrivate
{
public:
    explicit VelaFootbarPrivate(QWidget *bar) : layout(new QHBoxLayout(bar)) { }

    void addToLayout(const QList<QPointer<QWidget>> &widgets);

    QHBoxLayout *const layout;
    QList<QPointer<QWidget>> leftWidgets;
    QList<QPointer<QWidget>> rightWidgets;
    QMargins margins; // logical pixels
    int spacing = -1; // logical pixels
};

void VelaFootbarPrivate::addToLayout(const QList<QPointer<QWidget>> &widgets)
{
    for (QWidget *widget : widgets) {
        layout->addWidget(widget, 0, Qt::AlignVCenter);
    }
}

VelaFootbar::VelaFootbar(QWidget *parent) : QWidget(parent), d(std::make_unique<VelaFootbarPrivate>(this)) { }

VelaFootbar::~VelaFootbar() = default;

void VelaFootbar::pushLeftWidget(QWidget *widget)
{
    d->leftWidgets.append(widget);
}

void VelaFootbar::pushRightWidget(QWidget *widget)
{
    d->rightWidgets.append(widget);
}

void VelaFootbar::init()
{
    setMargins(SideMargin, TopAndBottomMargin, SideMargin, TopAndBottomMargin);
    setSpacing(Spacing);
    d->layout->setAlignment(Qt::AlignLeft);
    d->addToLayout(d->leftWidgets);
    d->layout->addStretch(1);
    d->addToLayout(d->rightWidgets);
}

void VelaFootbar::setMargins(int left, int top, int right, int bottom)
{
    d->margins = QMargins(left, top, right, bottom);
    d->layout->setContentsMargins(scaled(left), scaled(top), scaled(right), scaled(bottom));
}

QMargins VelaFootbar::margins() const
{
    return d->margins;
}

void VelaFootbar::setSpacing(int spacing)
{
    d->spacing = spacing;
    d->layout->setSpacing(scaled(spacing));
}

int VelaFootbar::spacing() const
{
    return d->spacing;
}
