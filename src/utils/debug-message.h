// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QLoggingCategory>

/// Logging category of the library's warnings, named "debug.message".
///
/// All go through it but those for authors of themes, which go to "vela.theme" and are off at first. Each has the file,
/// line and function that log it. The toolkit prints these only where a message pattern asks for them:
/// `qSetMessagePattern("%{file}:%{line} %{function}: %{message}")`, or the variable QT_MESSAGE_PATTERN. Switch it with
/// `QLoggingCategory::setFilterRules()`, for instance `debug.message.warning=false`; while it is off nothing is
/// formatted.
VELA_EXPORT Q_DECLARE_LOGGING_CATEGORY(debug_message)
