// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/vela-button.h"

#include "image-manager/image-manager.h"
#include "look/look-change_p.h"
#include "look/look_p.h"

#include <QEvent>

#include <algorithm>
#include <utility>

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
struct StateIcon
{
    StateIcon() = default;
    explicit StateIcon(const QPixmap &pixmap) : icon(pixmap), pixmapKey(pixmap.cacheKey())
    {
        icon.addPixmap(pixmap, QIcon::Disabled);
    }

    QIcon icon;
    qint64 pixmapKey = 0;
};

} // namespace

class VelaButtonPrivate
{
public:
    bool isKnown() const { return kind >= 0 && kind < KindCount; }
    Style style() const { return KindStyles[kind]; }

    const int kind;
};

VelaButton::VelaButton(const QString &text, int kind) : VelaButton(text, kind, nullptr) { }

VelaButton::VelaButton(const QString &text, int kind, QWidget *parent) :
    QPushButton(parent), d(new VelaButtonPrivate {kind})
{
    setText(text);
    setFlat(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (d->isKnown()) {
        Look::setFirstStyleSheet(this, Look::sheet(d->style()));
    }
}

VelaButton::VelaButton(QWidget *parent) : VelaButton(QString(), DefaultButton, parent) { }

VelaButton::~VelaButton() = default;

void VelaButton::customEvent(QEvent *event)
{
    const auto *change = LookChange::of(event);
    if (change && d->isKnown()) {
        change->restyle(this, d->style());
    }
    QPushButton::customEvent(event);
}

class VelaIconButtonPrivate
{
public:
    explicit VelaIconButtonPrivate(VelaIconButton *button) : q(button) { }

    bool hasIcons() const;
    void show(ImageManager::ImageType state);
    void showIdle();
    void renew(const LookChange &change);

    VelaIconButton *const q;
    QString imageName; // name in the catalogue, of icons that were not given as pixmaps
    StateIcon icons[ImageManager::ImageFile::VariantCount];
    QSize iconSize; // logical pixels
};

// Whether it has been given icons; until then the button shows what a form has given it.
bool VelaIconButtonPrivate::hasIcons() const
{
    return iconSize.isValid()
        || std::any_of(std::begin(icons), std::end(icons), [](const StateIcon &each) { return !each.icon.isNull(); });
}

// Shows the icon in the icons' own size, which is not applied before.
void VelaIconButtonPrivate::show(ImageManager::ImageType state)
{
    if (!hasIcons()) {
        return;
    }
    q->setIcon(icons[state].icon);
    q->setIconSize(iconSize);
}

void VelaIconButtonPrivate::showIdle()
{
    show(q->isEnabled() ? ImageManager::IMAGE_NORMAL : ImageManager::IMAGE_DISABLE);
}

// Icons that came from the catalogue, by name or as its pixmaps, come from it anew.
void VelaIconButtonPrivate::renew(const LookChange &change)
{
    const qint64 shown = q->icon().cacheKey();
    for (int i = 0; i < ImageManager::ImageFile::VariantCount; ++i) {
        const auto state = static_cast<ImageManager::ImageType>(i);
        const qint64 key = icons[i].pixmapKey;
        const std::optional<QPixmap> pixmap =
            imageName.isEmpty() ? change.successor(key) : change.successor(key, imageName, state);
        if (!pixmap) {
            continue;
        }
        const bool isShown = icons[i].icon.cacheKey() == shown;
        icons[i] = StateIcon(*pixmap);
        if (isShown) {
            q->setIcon(icons[i].icon);
        }
        if (state == ImageManager::IMAGE_NORMAL) {
            const QSize formerSize = std::exchange(iconSize, Look::logicalSize(*pixmap));
            q->setIconSize(q->iconSize() == formerSize ? iconSize : q->iconSize());
        }
    }
}

VelaIconButton::VelaIconButton(const QString &imageName) : VelaIconButton(imageName, nullptr) { }

VelaIconButton::VelaIconButton(const QPixmap &pixmap) : VelaIconButton(pixmap, nullptr) { }

VelaIconButton::VelaIconButton(const QString &imageName, QWidget *parent) :
    QToolButton(parent), d(std::make_unique<VelaIconButtonPrivate>(this))
{
    setAllIcon(imageName);
    initialize();
}

VelaIconButton::VelaIconButton(const QPixmap &pixmap, QWidget *parent) :
    QToolButton(parent), d(std::make_unique<VelaIconButtonPrivate>(this))
{
    setDefaultIcon(pixmap);
    initialize();
}

VelaIconButton::VelaIconButton(QWidget *parent) : QToolButton(parent), d(std::make_unique<VelaIconButtonPrivate>(this))
{
    initialize();
}

VelaIconButton::~VelaIconButton() = default;

void VelaIconButton::setAllIcon(const QString &imageName)
{
    const QPixmap normal = getGlobalImage(imageName, ImageManager::IMAGE_NORMAL);
    d->imageName = imageName;
    d->icons[ImageManager::IMAGE_NORMAL] = StateIcon(normal);
    for (auto state : {ImageManager::IMAGE_HOVER, ImageManager::IMAGE_CLICK, ImageManager::IMAGE_DISABLE}) {
        d->icons[state] = StateIcon(getGlobalImage(imageName, state));
    }
    d->iconSize = Look::logicalSize(normal);
    setIcon(d->icons[ImageManager::IMAGE_NORMAL].icon);
}

void VelaIconButton::setDefaultIcon(const QPixmap &pixmap)
{
    d->imageName.clear();
    std::fill(std::begin(d->icons), std::end(d->icons), StateIcon(pixmap));
    d->iconSize = Look::logicalSize(pixmap);
    setIcon(d->icons[ImageManager::IMAGE_NORMAL].icon);
}

void VelaIconButton::setPressIcon(const QPixmap &pixmap)
{
    d->icons[ImageManager::IMAGE_CLICK] = StateIcon(pixmap);
}

void VelaIconButton::setHoverIcon(const QPixmap &pixmap)
{
    d->icons[ImageManager::IMAGE_HOVER] = StateIcon(pixmap);
}

void VelaIconButton::setDisableIcon(const QPixmap &pixmap)
{
    d->icons[ImageManager::IMAGE_DISABLE] = StateIcon(pixmap);
}

void VelaIconButton::customEvent(QEvent *event)
{
    if (const auto *change = LookChange::of(event)) {
        change->restyle(this, Style::IconButton);
        d->renew(*change);
    }
    QToolButton::customEvent(event);
}

void VelaIconButton::initialize()
{
    setToolButtonStyle(Qt::ToolButtonIconOnly);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    Look::setFirstStyleSheet(this, Look::sheet(Style::IconButton));
    setPopupMode(QToolButton::InstantPopup);
}

void VelaIconButton::enterEvent(QEvent *event)
{
    if (isEnabled()) {
        d->show(ImageManager::IMAGE_HOVER);
    }
    QToolButton::enterEvent(event);
}

void VelaIconButton::leaveEvent(QEvent *event)
{
    if (isEnabled() && !hasFocus()) {
        d->show(ImageManager::IMAGE_NORMAL);
    }
    QToolButton::leaveEvent(event);
}

void VelaIconButton::mousePressEvent(QMouseEvent *event)
{
    if (isEnabled()) {
        d->show(ImageManager::IMAGE_CLICK);
    }
    QToolButton::mousePressEvent(event);
}

void VelaIconButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (isEnabled()) {
        d->show(ImageManager::IMAGE_NORMAL);
    }
    QToolButton::mouseReleaseEvent(event);
}

void VelaIconButton::showEvent(QShowEvent *event)
{
    d->showIdle();
    QWidget::showEvent(event);
}

void VelaIconButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange) {
        d->showIdle();
    }
    QToolButton::changeEvent(event);
}
