// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outcome.h"

/// What is to be copied or moved, and into which folder.
struct TransferRequest
{
    QStringList sources; ///< paths
    QString folder;
    bool isMove = false;
};

/// Copies or moves, for a thread of the background. What has a name that is taken gets a number. A copy grows under a
/// name of its own and gets the final one when it is whole, and what is moved goes when its copy stands there; so of
/// what fails or is stopped nothing has changed. A full disk ends it all, anything else only the file that it happens
/// to.
Outcome transfer(const TransferRequest &request, Progress *progress);
