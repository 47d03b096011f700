// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "utils/theme-message_p.h"

Q_LOGGING_CATEGORY(vela_theme, "vela.theme", QtFatalMsg)
