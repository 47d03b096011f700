// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Whether the toolkit's own parser understands a style sheet. Needs a QApplication.
bool isUnderstood(const QString &sheet);
