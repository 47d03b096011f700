// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// Runs @p program in the place of this process, with @p arguments, the first of which is its name, at @p scale, which
/// a process reads but once. To be called when the application object is gone. Returns only when that fails.
void restart(const QString &program, const QStringList &arguments, double scale);
