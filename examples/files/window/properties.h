// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What is known of a file, as rich text.
QString propertiesOf(const QString &path);
