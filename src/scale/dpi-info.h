// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "vela_export.h"

#include <QString>

/// The screen's scale, read once and never refreshed.
///
/// A QApplication must exist at the first getInstance(). GUI thread only.
class VELA_EXPORT DPIinfo
{
public:
    /// The one instance, created on first use.
    static DPIinfo *getInstance();

    /// The factor by which logical pixels are multiplied: the logical DPI divided by 96, so 1.0 at 96 DPI and 1.25 at
    /// 120 DPI. Widgets truncate the product toward zero.
    double getDPI();

    /// Device pixels per pixel of a widget, cut to a whole number: 1 at a ratio of 1.5, where images are enlarged.
    double getDPR();

    /// @p sheet with every pixel length (digits, perhaps a point and more digits, then "px") multiplied by getDPI() and
    /// truncated: at 1.25, "padding: 0px 12px" becomes "padding: 0px 15px". Fractions are lost.
    ///
    /// Lengths are scaled wherever they stand, in a file's name too. A length may have at most three characters before
    /// "px": the tail of a longer one is taken for a length of its own, and from there on numbers and text are out of
    /// step ("a{width: 1000px;}" becomes "a{width: 1000px;}0px"). Numbers beyond the range of an int become its lowest
    /// value, numbers in digits other than 0 to 9 become 0.
    QString getScaledStyleSheet(QString sheet);

private:
    DPIinfo();
    ~DPIinfo() = default;
    Q_DISABLE_COPY_MOVE(DPIinfo)

    double dpi;
    double dpr;
};
