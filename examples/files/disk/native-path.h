// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// Names of files as texts that lose nothing: the disk has bytes, of which those that are no UTF-8 stand here as single
/// surrogates, U+DC80 to U+DCFF. Such a text is for handing on, shownName() is for reading.

QString pathFromBytes(const QByteArray &bytes);
QByteArray bytesFromPath(const QString &path);

/// On one line, in characters that can be seen and in their order on the disk.
QString shownName(const QString &name);

/// Whether the classes of the toolkit, which take names in the user's encoding, find the file of that path.
bool isKnownToToolkit(const QString &path);

QString joinedPath(const QString &folder, const QString &name);
QString nameOfPath(const QString &path);
/// The root of the root.
QString parentOfPath(const QString &path);
/// Whether @p path is @p folder or lies in it.
bool isWithin(const QString &path, const QString &folder);
