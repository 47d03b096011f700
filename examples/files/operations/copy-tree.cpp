// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "copy-tree.h"

#include "disk/native-path.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t BlockSize = 1024 * 1024;
constexpr mode_t Permissions = 0777; // without those that lend a program its owner's rights

class OpenFile
{
public:
    explicit OpenFile(int descriptor) : m_descriptor(descriptor) { }
    ~OpenFile()
    {
        if (*this) {
            close(m_descriptor);
        }
    }
    Q_DISABLE_COPY_MOVE(OpenFile)

    explicit operator bool() const { return m_descriptor != -1; }
    int descriptor() const { return m_descriptor; }

private:
    const int m_descriptor;
};

fs::path nativePath(const QString &path)
{
    return bytesFromPath(path).toStdString();
}

DiskError errorOf(const std::error_code &error, const QString &path)
{
    return {error.value(), path};
}

bool writeAll(int file, const char *bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = write(file, bytes, count);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes += std::max<ssize_t>(written, 0);
        count -= static_cast<std::size_t>(std::max<ssize_t>(written, 0));
    }
    return true;
}

DiskError copyBytes(const OpenFile &source, const OpenFile &target, const QString &sourcePath,
                    const QString &targetPath, Progress *progress)
{
    std::vector<char> block(BlockSize);
    for (;;) {
        if (progress->isStopped) {
            return {Stopped, sourcePath};
        }
        const ssize_t count = read(source.descriptor(), block.data(), block.size());
        if (count == 0) {
            // What the disk has no room for may only be told now.
            return fsync(target.descriptor()) == 0 ? DiskError() : DiskError::last(targetPath);
        }
        if (count < 0 && errno != EINTR) {
            return DiskError::last(sourcePath);
        }
        if (count > 0 && !writeAll(target.descriptor(), block.data(), static_cast<std::size_t>(count))) {
            return DiskError::last(targetPath);
        }
        progress->done += std::max<ssize_t>(count, 0);
    }
}

DiskError copyFile(const QString &source, const QString &target, const struct stat &status, Progress *progress)
{
    const OpenFile from(open(bytesFromPath(source).constData(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC));
    if (!from) {
        return DiskError::last(source);
    }
    const OpenFile to(
        open(bytesFromPath(target).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!to) {
        return DiskError::last(target);
    }
    const DiskError error = copyBytes(from, to, source, target, progress);
    if (!error) {
        // A file system without permissions or times is no reason not to have the copy.
        const timespec times[] = {status.st_atim, status.st_mtim};
        Q_UNUSED(fchmod(to.descriptor(), status.st_mode & Permissions))
        Q_UNUSED(futimens(to.descriptor(), times))
    }
    return error;
}

DiskError copyFolder(const QString &source, const QString &target, const struct stat &status, Progress *progress)
{
    if (mkdir(bytesFromPath(target).constData(), S_IRWXU) != 0) {
        return DiskError::last(target);
    }
    std::error_code error;
    for (fs::directory_iterator entry(nativePath(source), error), end; !error && entry != end; entry.increment(error)) {
        const QString name = pathFromBytes(QByteArray::fromStdString(entry->path().filename().native()));
        if (const DiskError failure = copyTree(joinedPath(source, name), joinedPath(target, name), progress)) {
            return failure;
        }
    }
    const timespec times[] = {status.st_atim, status.st_mtim};
    Q_UNUSED(utimensat(AT_FDCWD, bytesFromPath(target).constData(), times, 0))
    Q_UNUSED(chmod(bytesFromPath(target).constData(), status.st_mode & Permissions))
    return errorOf(error, source);
}

} // namespace

DiskError copyTree(const QString &source, const QString &target, Progress *progress)
{
    struct stat status = {};
    if (lstat(bytesFromPath(source).constData(), &status) != 0) {
        return DiskError::last(source);
    }
    if (S_ISDIR(status.st_mode)) {
        return copyFolder(source, target, status, progress);
    }
    if (S_ISLNK(status.st_mode)) {
        std::error_code error;
        fs::copy_symlink(nativePath(source), nativePath(target), error);
        return errorOf(error, target);
    }
    return S_ISREG(status.st_mode) ? copyFile(source, target, status, progress) : DiskError {NotCopyable, source};
}

DiskError removeTree(const QString &path)
{
    std::error_code error;
    fs::remove_all(nativePath(path), error);
    return errorOf(error, path);
}

void discardCopy(const QString &path)
{
    std::error_code error;
    fs::recursive_directory_iterator entry(nativePath(path), error);
    for (const fs::recursive_directory_iterator end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (entry->is_directory(ignored) && !entry->is_symlink(ignored)) {
            fs::permissions(entry->path(), fs::perms::owner_all, ignored);
        }
    }
    removeTree(path);
}

qint64 bytesOfTree(const QString &path, const Progress &progress)
{
    struct stat status = {};
    if (lstat(bytesFromPath(path).constData(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return S_ISREG(status.st_mode) ? status.st_size : 0;
    }
    qint64 bytes = 0;
    std::error_code error;
    fs::recursive_directory_iterator entry(nativePath(path), fs::directory_options::skip_permission_denied, error);
    for (const fs::recursive_directory_iterator end; !error && entry != end && !progress.isStopped;
         entry.increment(error)) {
        std::error_code gone;
        if (entry->is_regular_file(gone) && !entry->is_symlink(gone)) {
            bytes += static_cast<qint64>(entry->file_size(gone));
        }
    }
    return bytes;
}
