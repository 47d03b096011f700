// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "sheets/vela-mask.h"

#include "look/look-change_p.h"
#include "scale/scaled.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMargins>
#include <QPointer>

using namespace Vela;

class VelaMaskPrivate : public QObject
{
public:
    explicit VelaMaskPrivate(VelaMask *mask) : QObject(mask), q(mask) { }

    void follow();
    void rest();
    bool eventFilter(QObject *mask, QEvent *event) override;

    VelaMask *const q;
    QColor color {0, 0, 0, 20};
    QWidget *content = nullptr;
    QPointer<QWidget> covered;
    ParentEventFilterWidget *coveredFilter = nullptr;
    bool hasCustomMargins = false;
    QMargins margins; // logical pixels
};

void VelaMaskPrivate::follow()
{
    content->installEventFilter(q);
    if (covered) {
        covered->installEventFilter(coveredFilter);
        q->resize();
    }
}

// A window keeps all its masks; those that are empty leave it alone.
void VelaMaskPrivate::rest()
{
    content->removeEventFilter(q);
    if (covered) {
        covered->removeEventFilter(coveredFilter);
    }
    q->hide();
}

// Content that passes into another mask is not this one's any more.
bool VelaMaskPrivate::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::ChildAdded && static_cast<QChildEvent *>(event)->child() == content) {
        follow();
    } else if (event->type() == QEvent::ChildRemoved && static_cast<QChildEvent *>(event)->child() == content) {
        rest();
    }
    return false;
}

VelaMask::VelaMask(QWidget *widget, QWidget *parent, QColor color) : QFrame(parent), d(new VelaMaskPrivate(this))
{
    initialize(widget, parent, color);
}

VelaMask::VelaMask(QWidget *widget, QWidget *parent, QColor color, int left, int top, int right, int bottom) :
    QFrame(parent), d(new VelaMaskPrivate(this))
{
    d->hasCustomMargins = true;
    d->margins = QMargins(left, top, right, bottom);
    initialize(widget, parent, color);
}

VelaMask::~VelaMask() = default;

QWidget *VelaMask::createMask(QWidget *widget, QWidget *parent, QColor color)
{
    QWidget *covered = widget && !parent ? widget->parentWidget() : parent;
    if (!widget || !covered) {
        return nullptr;
    }
    new VelaMask(widget, covered, color);
    return widget;
}

QWidget *VelaMask::createMaskWithCustomizedMargin(QWidget *widget, QWidget *parent, QColor color, int left, int top,
                                                  int right, int bottom)
{
    QWidget *covered = widget && !parent ? widget->parentWidget() : parent;
    if (!widget || !covered) {
        return nullptr;
    }
    new VelaMask(widget, covered, color, left, top, right, bottom);
    return widget;
}

void VelaMask::fill(const QColor &color)
{
    d->color = color;
    QPalette filled = palette();
    filled.setColor(QPalette::Window, color);
    setPalette(filled);
}

void VelaMask::initialize(QWidget *widget, QWidget *parent, const QColor &color)
{
    auto *row = new QHBoxLayout(this);
    fill(color);
    setAutoFillBackground(true);

    d->content = widget;
    d->covered = parent;
    d->coveredFilter = new ParentEventFilterWidget(this, parent);
    d->coveredFilter->setParent(this);
    installEventFilter(d);
    row->addWidget(widget);
    if (d->hasCustomMargins) {
        row->setContentsMargins(scaled(d->margins.left()), scaled(d->margins.top()), scaled(d->margins.right()),
                                scaled(d->margins.bottom()));
    }

    // A widget that is destroyed while it is shown sends no HideToParent. The private part is still there when both are
    // destroyed.
    connect(widget, &QObject::destroyed, d, [mask = d] {
        mask->rest();
        mask->content = nullptr;
    });
}

void VelaMask::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        if (change->isOfEverything() && d->color == change->former(Color::Mask)) {
            fill(Look::color(Color::Mask));
        }
    }
    QFrame::customEvent(event);
}

void VelaMask::resize()
{
    setFixedSize(window()->size());
}

bool VelaMask::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == d->content) {
        if (event->type() == QEvent::ShowToParent) {
            show();
        } else if (event->type() == QEvent::HideToParent) {
            hide();
        }
    }
    return false;
}

class ParentEventFilterWidgetPrivate
{
public:
    const QPointer<VelaMask> mask;
    const QPointer<QWidget> parent;
};

ParentEventFilterWidget::ParentEventFilterWidget(VelaMask *mask, QWidget *parent) :
    d(new ParentEventFilterWidgetPrivate {mask, parent})
{
}

ParentEventFilterWidget::~ParentEventFilterWidget() = default;

bool ParentEventFilterWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (d->mask && watched == d->parent && event->type() == QEvent::Resize) {
        d->mask->resize();
    }
    return false;
}
