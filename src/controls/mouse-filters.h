// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QObject>

#include <memory>

class MouseButtonFilterPrivate;
class MouseReleaseFilterPrivate;

/// Event filter that lets no press, release or double-click of a mouse button through.
class VELA_EXPORT MouseButtonFilter : public QObject
{
    Q_OBJECT

public:
    MouseButtonFilter();
    ~MouseButtonFilter() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::unique_ptr<MouseButtonFilterPrivate> d;
};

/// Event filter that lets no release of a mouse button through.
class VELA_EXPORT MouseReleaseFilter : public QObject
{
    Q_OBJECT

public:
    MouseReleaseFilter();
    ~MouseReleaseFilter() override;

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::unique_ptr<MouseReleaseFilterPrivate> d;
};
