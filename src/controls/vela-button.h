// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QPushButton>
#include <QToolButton>

#include <memory>

class VelaButtonPrivate;
class VelaIconButtonPrivate;

/// Flat text button whose look is one of six style sheets.
class VELA_EXPORT VelaButton : public QPushButton
{
    Q_OBJECT

public:
    /// What a button is for; each has a style key.
    enum Kind {
        ApplyButton = 0, ///< affirms: "component.apply_button"
        CancelButton = 1, ///< dismisses: "component.cancel_button"
        SelectPagingButton = 2, ///< highlighted page of a paging bar: "component.select_paging_button"
        NonselectPagingButton = 3, ///< any other page: "component.nonselect_paging_button"
        DefaultButton = 4, ///< no emphasis: "component.default_button"
        RedButton = 5, ///< destroys: "component.red_button"
    };
    Q_ENUM(Kind)

    /// A button of fixed size policy and without a parent: put it into a layout or give it one. A @p kind that is none
    /// of the above leaves it without a style sheet.
    explicit VelaButton(const QString &text, int kind = DefaultButton);
    /// The same under @p parent; one that is given it later is styled once more.
    VelaButton(const QString &text, int kind, QWidget *parent);
    /// A button of the default kind without a text, as forms make it.
    explicit VelaButton(QWidget *parent);
    ~VelaButton() override;

protected:
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaButtonPrivate> d;
};

/// Button of an image only, which follows the pointer, the mouse buttons and the enabled state with one of four icons.
///
/// The icons' size, and an icon set for a single state, show from the next event that calls for them. A button that has
/// the keyboard focus keeps its hover icon when the pointer leaves. A disabled button's icon is painted as it is, not
/// greyed: a name without a "_disable" image looks the same as on an enabled button.
class VELA_EXPORT VelaIconButton : public QToolButton
{
    Q_OBJECT

public:
    /// A button with the four images of @p imageName, see setAllIcon(); without a parent.
    explicit VelaIconButton(const QString &imageName);
    /// A button that shows @p pixmap in every state, see setDefaultIcon(); without a parent.
    explicit VelaIconButton(const QPixmap &pixmap);
    /// A button with the four images of @p imageName under @p parent; one that is given it later is styled once more.
    VelaIconButton(const QString &imageName, QWidget *parent);
    /// A button that shows @p pixmap in every state under @p parent.
    VelaIconButton(const QPixmap &pixmap, QWidget *parent);
    /// A button without images, as forms make it. It shows the icon of a form, in the size of the form, until it gets
    /// images of its own.
    explicit VelaIconButton(QWidget *parent);
    ~VelaIconButton() override;

    /// Takes the four images of @p imageName from getGlobalImage(), and the logical size of the normal one as the
    /// icons' size; shows the normal one at once, on a disabled button too. An unknown name gives empty icons of size 0
    /// by 0; ImageManager logs it.
    void setAllIcon(const QString &imageName);

    /// Takes @p pixmap for all four states, and its logical size as the icons' size; shows it at once.
    void setDefaultIcon(const QPixmap &pixmap);
    /// Replaces the icon shown while a mouse button is down.
    void setPressIcon(const QPixmap &pixmap);
    /// Replaces the icon shown under the pointer.
    void setHoverIcon(const QPixmap &pixmap);
    /// Replaces the icon shown while the button is disabled.
    void setDisableIcon(const QPixmap &pixmap);

    /// Sets style, size policy and popup mode; every constructor has called it.
    void initialize();

protected:
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaIconButtonPrivate> d;
};
