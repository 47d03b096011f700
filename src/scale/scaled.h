// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "scale/truncated.h"
#include "style-manager/dpi-info.h"

/// @p logical pixels times the screen's scale (DPIinfo::getDPI()), truncated toward zero: how every metric of the
/// widgets is scaled, and what to use for sizes and margins beside them. A QApplication must exist.
inline int scaled(double logical)
{
    return truncated(logical * DPIinfo::getInstance()->getDPI());
}
