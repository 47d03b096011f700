#pragma once

#include "style-manager/dpi-info.h"

/// @p logical pixels times the screen's scale, truncated toward zero: the one place where a widget's metrics are scaled.
inline int scaled(double logical)
{
    return static_cast<int>(logical * DPIinfo::getInstance()->getDPI());
}
