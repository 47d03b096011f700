// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QLabel>

#include <memory>

class VelaLabelPrivate;

/// Label in the look of "component.label".
///
/// When it wraps words and its vertical size policy is QSizePolicy::Minimum, its minimum height follows the height that
/// the text needs at the label's width. It is computed at each resize, and only then, so that between two a minimum
/// height of the caller's holds: a new text counts at the next. setMinimumHeight(0) lets a label in a layout
/// shrink at once for a shorter text.
class VELA_EXPORT VelaLabel : public QLabel
{
    Q_OBJECT

public:
    /// An empty label.
    explicit VelaLabel(QWidget *parent = nullptr, Qt::WindowFlags f = {});
    /// A label with @p text, which may be rich.
    explicit VelaLabel(const QString &text, QWidget *parent = nullptr, Qt::WindowFlags f = {});
    ~VelaLabel() override;

protected:
    void resizeEvent(QResizeEvent *event) override;
    void customEvent(QEvent *event) override;

private:
    const std::unique_ptr<VelaLabelPrivate> d;
};
