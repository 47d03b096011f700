// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

namespace Vela::Accessible {

/// Lets Qt ask this room about widgets, before it asks itself: an application object has to be there, whose factory is
/// the older one then. Done at the first use of the style manager, which comes before the first widget.
void install();

} // namespace Vela::Accessible
