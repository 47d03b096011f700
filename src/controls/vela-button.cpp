#include "controls/vela-button.h"

#include "image-manager/image-manager.h"
#include "style-manager/style-manager.h"

#include <QEvent>

namespace {

constexpr const char *StyleKeys[] = {
    "component.apply_button", // VelaButton::ApplyButton
    "component.cancel_button", // VelaButton::CancelButton
    "component.select_paging_button", // VelaButton::SelectPagingButton
    "component.nonselect_paging_button", // VelaButton::NonselectPagingButton
    "component.default_button", // VelaButton::DefaultButton
    "component.red_button", // VelaButton::RedButton
};
constexpr int KindCount = sizeof(StyleKeys) / sizeof(StyleKeys[0]);

/// Sets the style sheet of a button under construction. At its first sheet a button asks the style at once for its
/// margins in a layout, and Qt parses that sheet; the next one, before the button is polished, is only kept. Both are
/// parsed anew when the button gets its parent and when it is polished, so the first is one without rules.
void setFirstStyleSheet(QWidget *button, const QString &sheet)
{
    if (!sheet.isEmpty() && button->styleSheet().isEmpty()) {
        button->setStyleSheet(QStringLiteral(" "));
    }
    button->setStyleSheet(sheet);
}

/// An icon that is painted as @p pixmap is on a disabled button too, where the toolkit would grey it.
QIcon iconOf(const QPixmap &pixmap)
{
    QIcon icon(pixmap);
    icon.addPixmap(pixmap, QIcon::Disabled);
    return icon;
}

} // namespace

VelaButton::VelaButton(const QString &text, int kind)
{
    setText(text);
    setFlat(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (kind >= 0 && kind < KindCount) {
        setFirstStyleSheet(this, getStyleSheet(StyleKeys[kind], false));
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
};

/// Shows @p icon in the icons' own size, which is not applied before.
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
    d->iconSize = normal.size() / DPIinfo::getInstance()->getDPR();
    setIcon(d->defaultIcon);
}

void VelaIconButton::setDefaultIcon(const QPixmap &pixmap)
{
    d->defaultIcon = iconOf(pixmap);
    d->pressIcon = d->defaultIcon;
    d->hoverIcon = d->defaultIcon;
    d->disableIcon = d->defaultIcon;
    d->iconSize = pixmap.size() / DPIinfo::getInstance()->getDPR();
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
    setFirstStyleSheet(this, getStyleSheet("component.icon_button", false));
    setPopupMode(QToolButton::InstantPopup);
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

void VelaIconButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange) {
        d->showIdle();
    }
    QToolButton::changeEvent(event);
}
