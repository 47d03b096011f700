// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <functional>

class QObject;
class QWidget;

/// Calls @p renew now, and whenever the theme or its language has changed while @p owner lives: for what the library's
/// widgets do not renew themselves, the application's texts above all.
void followTheme(QObject *owner, const std::function<void()> &renew);

/// Gives @p widget these sections of the style sheets, of each theme anew.
void followSections(QWidget *widget, const QStringList &keys);
