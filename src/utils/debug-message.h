// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QLoggingCategory>

/// Logging category of the whole library, named "debug.message".
///
/// Every warning of the library goes through it, with the file, line and function that log it. The toolkit prints these
/// only where a message pattern asks for them: `qSetMessagePattern("%{file}:%{line} %{function}: %{message}")`, or the
/// variable QT_MESSAGE_PATTERN. Switch it with `QLoggingCategory::setFilterRules()`, for instance
/// `debug.message.warning=false`; while it is off nothing is formatted.
VELA_EXPORT Q_DECLARE_LOGGING_CATEGORY(debug_message)
