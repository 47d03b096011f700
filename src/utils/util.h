// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "utils/accessibility.h"
#include "utils/debug-message.h"
#include "utils/tool-tip.h"
#include "utils/window-close-button.h"
