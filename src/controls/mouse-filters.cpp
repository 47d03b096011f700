// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "controls/mouse-filters.h"

#include <QEvent>

class MouseButtonFilterPrivate
{
};

MouseButtonFilter::MouseButtonFilter() = default;

MouseButtonFilter::~MouseButtonFilter() = default;

bool MouseButtonFilter::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

class MouseReleaseFilterPrivate
{
};

MouseReleaseFilter::MouseReleaseFilter() = default;

MouseReleaseFilter::~MouseReleaseFilter() = default;

bool MouseReleaseFilter::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::MouseButtonRelease || QObject::eventFilter(watched, event);
}
