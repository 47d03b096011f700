// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QMenu>

#include <memory>

class VelaMenuPrivate;

/// Menu that moves away from the edges of its screen's available area each time it is shown. It has no style sheet of
/// its own; set "component.menu" or another.
///
/// One that reaches the area's last pixel at the right or at the bottom moves to end one pixel short of it. One that
/// begins left of the area or above it moves to the coordinate 0 of the whole desktop, which may lie outside the area
/// or on another screen.
class VELA_EXPORT VelaMenu : public QMenu
{
    Q_OBJECT

public:
    /// An empty menu.
    explicit VelaMenu(QWidget *parent = nullptr);
    ~VelaMenu() override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    const std::unique_ptr<VelaMenuPrivate> d;
};
