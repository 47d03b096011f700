// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Makes a picture in @p output for each trap of the theme author's guide: what a sheet means beside what is shown.
/// Takes the theme "light" in @p themes. False where the two look alike, as nothing went wrong then.
bool makeTraps(const QString &themes, const QString &output);
