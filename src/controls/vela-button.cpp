// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-button.h"

#include "image-manager/image-manager.h"
#include "look/look_p.h"

#include <QEvent>

using namespace Vela;

namespace {

constexpr Style KindStyles[] = {
    Style::ApplyButton, // VelaButton::ApplyButton
    Style::CancelButton, // VelaButton::CancelButton
    Style::SelectPagingButton, // VelaButton::SelectPagingButton
    Style::NonselectPagingButton, // VelaButton::NonselectPagingButton
    Style::DefaultButton, // VelaButton::DefaultButton
    Style::RedButton, // VelaButton::RedButton
};
constexpr int KindCount = sizeof(KindStyles) / sizeof(KindStyles[0]);

// An icon that is painted as pixmap is on a disabled button too, where the toolkit would grey it.
QIcon iconOf(const QPixmap &pixmap)
{
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Disabled);
    return icon;
}

} // namespace

class VelaButtonPrivate
{
};

VelaButton::VelaButton(const QString &text, int kind)
{
    setText(text);
    setFlat(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (kind >= 0 && kind < KindCount) {
        Look::setFirstStyleSheet(this, Look::sheet(KindStyles[kind]));
    }
}

VelaButton::~VelaButton() = default;

class VelaIconButtonPrivate
{
public:
    explicit VelaIconButtonPrivate(VelaIconButton *button) : q(button) { }

    void show(const QIcon &icon);
    void showIdle();

    VelaIconButton *const q;
    QIcon defaultIcon;
    QIcon pressIcon;
    QIcon hoverIcon;
    QIcon disableIcon;
    QSize iconSize; // logical pixels
    bool isInitialized = false;
};

// Shows icon in the icons' own size, which is not applied before.
void VelaIconButtonPrivate::show(const QIcon &icon)
{
    q->setIcon(icon);
    q->setIconSize(iconSize);
}

void VelaIconButtonPrivate::showIdle()
{
    show(q->isEnabled() ? defaultIcon : disableIcon);
}

VelaIconButton::VelaIconButton(const QString &imageName) : d(std::make_unique<VelaIconButtonPrivate>(this))
{
    setAllIcon(imageName);
    initialize();
}

VelaIconButton::VelaIconButton(const QPixmap &pixmap) : d(std::make_unique<VelaIconButtonPrivate>(this))
{
    setDefaultIcon(pixmap);
    initialize();
}

VelaIconButton::~VelaIconButton() = default;

void VelaIconButton::setAllIcon(const QString &imageName)
{
    const QPixmap normal = getGlobalImage(imageName, ImageManager::IMAGE_NORMAL);
    d->defaultIcon = iconOf(normal);
    d->hoverIcon = iconOf(getGlobalImage(imageName, ImageManager::IMAGE_HOVER));
    d->pressIcon = iconOf(getGlobalImage(imageName, ImageManager::IMAGE_CLICK));
    d->disableIcon = iconOf(getGlobalImage(imageName, ImageManager::IMAGE_DISABLE));
    d->iconSize = Look::logicalSize(normal);
    setIcon(d->defaultIcon);
}

void VelaIconButton::setDefaultIcon(const QPixmap &pixmap)
{
    d->defaultIcon = iconOf(pixmap);
    d->pressIcon = d->defaultIcon;
    d->hoverIcon = d->defaultIcon;
    d->disableIcon = d->defaultIcon;
    d->iconSize = Look::logicalSize(pixmap);
    setIcon(d->defaultIcon);
}

void VelaIconButton::setPressIcon(const QPixmap &pixmap)
{
    d->pressIcon = iconOf(pixmap);
}

void VelaIconButton::setHoverIcon(const QPixmap &pixmap)
{
    d->hoverIcon = iconOf(pixmap);
}

void VelaIconButton::setDisableIcon(const QPixmap &pixmap)
{
    d->disableIcon = iconOf(pixmap);
}

void VelaIconButton::initialize()
{
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setStyleSheet(Look::sheet(Style::IconButton));
    setPopupMode(QToolButton::InstantPopup);
    d->isInitialized = true;
}

void VelaIconButton::enterEvent(QEvent *event)
{
    if (isEnabled()) {
        d->show(d->hoverIcon);
    }
    QToolButton::enterEvent(event);
}

void VelaIconButton::leaveEvent(QEvent *event)
{
    if (isEnabled() && !hasFocus()) {
        d->show(d->defaultIcon);
    }
    QToolButton::leaveEvent(event);
}

void VelaIconButton::mousePressEvent(QMouseEvent *event)
{
    if (isEnabled()) {
        d->show(d->pressIcon);
    }
    QToolButton::mousePressEvent(event);
}

void VelaIconButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (isEnabled()) {
        d->show(d->defaultIcon);
    }
    QToolButton::mouseReleaseEvent(event);
}

void VelaIconButton::showEvent(QShowEvent *event)
{
    d->showIdle();
    QWidget::showEvent(event);
}

// The first sheet is only kept: what the toolkit wants to know of it, it asks again when the button gets its parent.
void VelaIconButton::changeEvent(QEvent *event)
{
    if (!d->isInitialized) {
        return;
    }
    if (event->type() == QEvent::EnabledChange) {
        d->showIdle();
    }
    QToolButton::changeEvent(event);
}
