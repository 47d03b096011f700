// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "scale/dpi-info.h"

#include "scale/length-scaling_p.h"

#include <QApplication>
#include <QDesktopWidget>

namespace {

constexpr double ReferenceDpi = 96.0; // logical dots per inch at which a logical pixel is one pixel

} // namespace

DPIinfo::DPIinfo() :
    dpi(QApplication::desktop()->logicalDpiX() / ReferenceDpi), dpr(QApplication::desktop()->devicePixelRatio())
{
}

DPIinfo *DPIinfo::getInstance()
{
    static DPIinfo instance;
    return &instance;
}

double DPIinfo::getDPI()
{
    return dpi;
}

double DPIinfo::getDPR()
{
    return dpr;
}

QString DPIinfo::getScaledStyleSheet(QString sheet)
{
    return scaleLengths(sheet, dpi);
}
