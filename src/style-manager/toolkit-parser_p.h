// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace Vela {

/// Whether the toolkit's own parser understands @p sheet, which it would otherwise refuse, with a warning, for each
/// widget anew. Needs a QApplication.
bool isUnderstood(const QString &sheet);

} // namespace Vela
