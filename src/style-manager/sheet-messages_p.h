// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <vector>

namespace Vela {

/// Logs each section of @p files that the toolkit refuses, with its file and line, to the category of themes. Reads the
/// files anew: it is only for while that category is on.
void tellRefusedSections(const std::vector<QString> &files);

} // namespace Vela
