// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QString>

/// @p text, which is plain, as a tool tip that keeps its line breaks and runs of blanks and is not wrapped.
VELA_EXPORT QString getHtmlEscapedStringForToolTip(const QString &text);
