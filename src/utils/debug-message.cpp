// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/debug-message.h"

Q_LOGGING_CATEGORY(debug_message, "debug.message")
