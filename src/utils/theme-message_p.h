// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QLoggingCategory>

/// Logging category for the authors of themes, named "vela.theme": what the library cannot read of sheets and images,
/// and what to do about it. It is off unless somebody asks for it, by QT_LOGGING_RULES="vela.theme=true" for instance,
/// and nothing is looked at while it is.
Q_DECLARE_LOGGING_CATEGORY(vela_theme)
