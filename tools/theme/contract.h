// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// All that the library asks a theme and a table of texts for, as JSON.
QByteArray contractAsJson();
/// The same as a page of the documentation.
QString contractAsMarkdown();
/// The names that an entry of the library's keys lists.
QStringList listOf(const char *names);
