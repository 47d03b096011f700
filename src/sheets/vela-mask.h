// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QColor>
#include <QFrame>

#include <memory>

class ParentEventFilterWidgetPrivate;
class VelaMaskPrivate;

/// Translucent layer that dims a window while something, a sheet usually, is shown over it.
///
/// The mask is as large as the window and visible exactly while its content is. It stays in the window when its content
/// is gone or has passed into another mask, hidden, empty and of the size that it had, until the window is destroyed.
class VELA_EXPORT VelaMask : public QFrame
{
    Q_OBJECT

public:
    /// A mask over @p parent, which owns it, filled with @p color; @p widget, its content, passes into it. A QSplitter
    /// as @p parent would take the mask for a pane. The functions of vela-msg-box.h use QColor(0, 0, 0, 20).
    VelaMask(QWidget *widget, QWidget *parent, QColor color);
    /// The same with margins around the content, in logical pixels, in place of the style's.
    VelaMask(QWidget *widget, QWidget *parent, QColor color, int left, int top, int right, int bottom);
    ~VelaMask() override;

    /// Makes a mask with @p widget as content over @p parent, or over the widget's parent if that is null. Returns
    /// @p widget, not the mask; null, and no mask is made, when there is no widget or no parent.
    static QWidget *createMask(QWidget *widget, QWidget *parent, QColor color);
    /// The same with margins around the content, in logical pixels.
    static QWidget *createMaskWithCustomizedMargin(QWidget *widget, QWidget *parent, QColor color, int left, int top,
                                                   int right, int bottom);

    using QFrame::resize;
    /// Makes the mask as large as its window.
    void resize();

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void customEvent(QEvent *event) override;

private:
    void initialize(QWidget *widget, QWidget *parent, const QColor &color);
    void fill(const QColor &color);

    VelaMaskPrivate *const d;
};

/// Resizes a mask whenever the widget that it covers is resized.
class VELA_EXPORT ParentEventFilterWidget : public QObject
{
    Q_OBJECT

public:
    /// Resizes @p mask with @p parent, until one of them is gone. It has no QObject parent and is to be installed on
    /// @p parent as event filter; a VelaMask does that itself.
    ParentEventFilterWidget(VelaMask *mask, QWidget *parent);
    ~ParentEventFilterWidget() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::unique_ptr<ParentEventFilterWidgetPrivate> d;
};
