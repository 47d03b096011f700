// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What went wrong with a file; nothing, if the code is 0.
struct DiskError
{
    /// That of the last system call.
    static DiskError last(const QString &path);

    explicit operator bool() const { return code != 0; }

    int code = 0; ///< of errno.h
    QString path; ///< see native-path.h
};

/// No file: a folder was to be put into itself.
constexpr int IntoItself = -1;
/// A device, pipe or socket, whose content cannot be copied.
constexpr int NotCopyable = -2;
/// The wastebasket takes only files that the toolkit finds.
constexpr int NameNotKnown = -3;
/// The wastebasket has not taken it.
constexpr int NotTrashed = -4;

/// What went wrong, in the user's language, without the file's name.
QString reasonOf(const DiskError &error);
