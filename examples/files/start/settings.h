// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "listing/arrangement.h"

#include <QByteArray>
#include <QString>

/// What is kept from one start to the next.
struct Settings
{
    static Settings read();
    void write() const;

    QString theme; ///< name of its folder
    QString language; ///< code; empty for the system's
    QString folder;
    Order order;
    bool withHidden = false;
    QByteArray geometry;
    QByteArray split;
};
