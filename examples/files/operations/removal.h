// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include "outcome.h"

/// Both are for a thread of the background.

Outcome moveToTrash(const QStringList &paths, Progress *progress);
Outcome removeForGood(const QStringList &paths, Progress *progress);
