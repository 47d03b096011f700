// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "look/keys_p.h"

#include <QString>
#include <QVector>

#include <functional>

class QWidget;

/// A text of the contract where a widget shows it.
struct ShownCaption
{
    Vela::Text text;
    const char *user; ///< as the contract names it
    QWidget *widget; ///< in which it stands
    QString caption; ///< what is to be seen there
    bool isCut;
};

/// Shows every widget that has a text of the contract, each in the least room that it has in an application, and calls
/// @p look while they are there. What that is given measures all captions, each time in the same order.
void showCaptions(const std::function<void(const std::function<QVector<ShownCaption>()> &measure)> &look);
