// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "disk-error.h"

#include "texts/texts.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

struct Reason
{
    int code;
    const char *textKey;
};

constexpr Reason Reasons[] = {
    {EACCES, "reason_no_permission"},
    {EPERM, "reason_no_permission"},
    {EROFS, "reason_read_only"},
    {ENOSPC, "reason_disk_full"},
    {EDQUOT, "reason_disk_full"},
    {EEXIST, "reason_exists"},
    {ENOTEMPTY, "reason_exists"},
    {ENOENT, "reason_gone"},
    {ENOTDIR, "reason_no_folder"},
    {ENAMETOOLONG, "reason_long_name"},
    {IntoItself, "reason_into_itself"},
    {NotCopyable, "reason_not_copyable"},
    {NameNotKnown, "reason_name_not_known"},
    {NotTrashed, "reason_not_trashed"},
};

} // namespace

DiskError DiskError::last(const QString &path)
{
    return {errno, path};
}

QString reasonOf(const DiskError &error)
{
    const auto *reason = std::find_if(std::begin(Reasons), std::end(Reasons),
                                      [&error](const Reason &known) { return known.code == error.code; });
    return reason == std::end(Reasons) ? QString::fromLocal8Bit(std::strerror(error.code)) : text(reason->textKey);
}
