// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QWidget>

#include <memory>

class VelaFootbarPrivate;

/// Bar at the bottom of a dialog: a group of widgets at its left, another at its right, free space between them.
///
/// First push the widgets, then call init() once. The bar owns them from then on, and not before.
class VELA_EXPORT VelaFootbar : public QWidget
{
    Q_OBJECT

public:
    /// A bar with an empty row.
    explicit VelaFootbar(QWidget *parent = nullptr);
    ~VelaFootbar() override;

    /// Adds a widget at the right end of the left group.
    void pushLeftWidget(QWidget *widget);
    /// Adds a widget at the right end of the right group.
    void pushRightWidget(QWidget *widget);
    /// Lays the widgets out with margins of 20, 8, 20 and 8 and a spacing of 10 logical pixels: set others afterwards.
    /// A second call adds the widgets and the space between the groups again. Of a widget that has been deleted by then
    /// only a warning of QLayout tells.
    void init();

    /// Margins around the row in logical pixels.
    void setMargins(int left, int top, int right, int bottom);
    /// Margins that were set last, by init() perhaps; null margins before.
    QMargins margins() const;
    /// Space between widgets in logical pixels.
    void setSpacing(int spacing);
    /// Space that was set last, by init() perhaps; -1, for the style's, before.
    int spacing() const;

private:
    const std::unique_ptr<VelaFootbarPrivate> d;
};
