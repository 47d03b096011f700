// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// Stands in front of the C library in a program that exports its functions, and makes one of their calls fail, or all
// from one on, as on a system that is out of something or broken.

#include "faults.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstring>
#include <iterator>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

enum Outcome { Succeeds, Fails, IsShort };

// Who takes memory for pictures. What else the toolkit takes it needs to go on at all.
struct Taker
{
    const char *library;
    const char *function; // part of its name; empty for all that the library has
};

constexpr Taker Takers[] = {{"libQt5Gui", "QImageData"}, {"libpng", ""}};

std::atomic<bool> counts {false};
std::atomic<int> calls {0};
const char *failedCall = "";

Faults faults = {};

// What is to become of this call. Calls that cannot be short succeed in that case, and are not counted.
Outcome next(Faults::Kind kind, const char *name, bool canBeShort = false)
{
    const bool isShort = faults.error == Faults::Short;
    if (!counts || kind != faults.kind || (isShort && !canBeShort)) {
        return Succeeds;
    }
    const int number = ++calls;
    if (faults.at == 0 || (faults.lasts ? number < faults.at : number != faults.at)) {
        return Succeeds;
    }
    if (!*failedCall) {
        failedCall = name;
    }
    errno = isShort ? 0 : faults.error;
    return isShort ? IsShort : Fails;
}

// Whether a descriptor is a regular file or a folder, or else a socket.
bool isOf(Faults::Kind kind, int descriptor)
{
    struct stat status = {};
    const int error = errno;
    const bool isKnown = ::syscall(SYS_newfstatat, descriptor, "", &status, 0x1000 /* AT_EMPTY_PATH */) == 0;
    errno = error;
    return isKnown
        && (kind == Faults::Socket ? S_ISSOCK(status.st_mode) : S_ISREG(status.st_mode) || S_ISDIR(status.st_mode));
}

Outcome nextOn(int descriptor, const char *name, bool canBeShort = false)
{
    if (!counts) {
        return Succeeds;
    }
    return isOf(faults.kind, descriptor) ? next(faults.kind, name, canBeShort) : Succeeds;
}

size_t shortened(Outcome outcome, size_t size)
{
    return outcome == IsShort && size > 1 ? size / 2 : size;
}

template<typename Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

bool isOfPictures(const void *caller)
{
    Dl_info info = {};
    if (::dladdr(caller, &info) == 0 || !info.dli_fname) {
        return false;
    }
    const char *function = info.dli_sname ? info.dli_sname : "";
    return std::any_of(std::begin(Takers), std::end(Takers), [&info, function](const Taker &taker) {
        return std::strstr(info.dli_fname, taker.library) && std::strstr(function, taker.function);
    });
}

bool failsToAllocate(const char *name, const void *caller)
{
    return counts && faults.kind == Faults::Image && isOfPictures(caller) && next(Faults::Image, name) == Fails;
}

} // namespace

void beginFaults(const Faults *wanted)
{
    faults = *wanted;
    calls = 0;
    failedCall = "";
    counts = true;
}

int endFaults(const char **failed)
{
    counts = false;
    *failed = failedCall;
    return calls;
}

extern "C" {

#pragma GCC visibility push(default) // other libraries call them

// ---- memory

void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);

void *malloc(size_t size)
{
    return failsToAllocate("malloc", __builtin_return_address(0)) ? nullptr : __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    return failsToAllocate("calloc", __builtin_return_address(0)) ? nullptr : __libc_calloc(count, size);
}

void *realloc(void *memory, size_t size)
{
    return failsToAllocate("realloc", __builtin_return_address(0)) ? nullptr : __libc_realloc(memory, size);
}

// ---- files, by their names

#define VELA_FAIL_FILE(name) \
    if (next(Faults::File, name) == Fails) { \
        return -1; \
    }

#define VELA_OPEN(NAME) \
    int NAME(const char *path, int flags, ...) \
    { \
        va_list arguments; \
        va_start(arguments, flags); \
        const auto mode = va_arg(arguments, mode_t); \
        va_end(arguments); \
        VELA_FAIL_FILE(#NAME) \
        static const auto call = original<int (*)(const char *, int, ...)>(#NAME); \
        return call(path, flags, mode); \
    }
VELA_OPEN(open)
VELA_OPEN(open64)

#define VELA_OPENAT(NAME) \
    int NAME(int folder, const char *path, int flags, ...) \
    { \
        va_list arguments; \
        va_start(arguments, flags); \
        const auto mode = va_arg(arguments, mode_t); \
        va_end(arguments); \
        VELA_FAIL_FILE(#NAME) \
        static const auto call = original<int (*)(int, const char *, int, ...)>(#NAME); \
        return call(folder, path, flags, mode); \
    }
VELA_OPENAT(openat)
VELA_OPENAT(openat64)

#define VELA_BY_NAME(NAME, PARAMETERS, ...) \
    int NAME PARAMETERS \
    { \
        VELA_FAIL_FILE(#NAME) \
        static const auto call = original<int(*) PARAMETERS>(#NAME); \
        return call(__VA_ARGS__); \
    }
VELA_BY_NAME(stat, (const char *path, struct stat *status), path, status)
VELA_BY_NAME(stat64, (const char *path, struct stat64 *status), path, status)
VELA_BY_NAME(lstat, (const char *path, struct stat *status), path, status)
VELA_BY_NAME(lstat64, (const char *path, struct stat64 *status), path, status)
VELA_BY_NAME(statx, (int folder, const char *path, int flags, unsigned mask, struct statx *status), folder, path, flags,
             mask, status)
VELA_BY_NAME(access, (const char *path, int mode), path, mode)
VELA_BY_NAME(mkdir, (const char *path, mode_t mode), path, mode)
VELA_BY_NAME(chmod, (const char *path, mode_t mode), path, mode)
VELA_BY_NAME(unlink, (const char *path), path)
VELA_BY_NAME(rename, (const char *from, const char *to), from, to)
VELA_BY_NAME(inotify_init1, (int flags), flags)
VELA_BY_NAME(inotify_add_watch, (int descriptor, const char *path, unsigned mask), descriptor, path, mask)

// ---- files and sockets, by their descriptors

#define VELA_BY_DESCRIPTOR(NAME, PARAMETERS, DESCRIPTOR, ...) \
    int NAME PARAMETERS \
    { \
        if (nextOn(DESCRIPTOR, #NAME) == Fails) { \
            return -1; \
        } \
        static const auto call = original<int(*) PARAMETERS>(#NAME); \
        return call(__VA_ARGS__); \
    }
VELA_BY_DESCRIPTOR(fstat, (int descriptor, struct stat *status), descriptor, descriptor, status)
VELA_BY_DESCRIPTOR(fstat64, (int descriptor, struct stat64 *status), descriptor, descriptor, status)
VELA_BY_DESCRIPTOR(fsync, (int descriptor), descriptor, descriptor)
VELA_BY_DESCRIPTOR(fdatasync, (int descriptor), descriptor, descriptor)
VELA_BY_DESCRIPTOR(ftruncate64, (int descriptor, off64_t size), descriptor, descriptor, size)
VELA_BY_DESCRIPTOR(fchmod, (int descriptor, mode_t mode), descriptor, descriptor, mode)

off64_t lseek64(int descriptor, off64_t offset, int whence)
{
    if (nextOn(descriptor, "lseek64") == Fails) {
        return -1;
    }
    static const auto call = original<off64_t (*)(int, off64_t, int)>("lseek64");
    return call(descriptor, offset, whence);
}

// Record locks, which are no failure of the descriptor.
#define VELA_FCNTL(NAME) \
    int NAME(int descriptor, int command, ...) \
    { \
        va_list arguments; \
        va_start(arguments, command); \
        void *argument = va_arg(arguments, void *); \
        va_end(arguments); \
        const bool isLock = command == F_SETLK || command == F_SETLKW; \
        if (isLock && nextOn(descriptor, "fcntl") == Fails) { \
            return -1; \
        } \
        static const auto call = original<int (*)(int, int, ...)>(#NAME); \
        return call(descriptor, command, argument); \
    }
VELA_FCNTL(fcntl)
VELA_FCNTL(fcntl64)

void *mmap64(void *address, size_t size, int protection, int flags, int descriptor, off64_t offset)
{
    if (descriptor >= 0 && nextOn(descriptor, "mmap64") == Fails) {
        return MAP_FAILED;
    }
    static const auto call = original<void *(*)(void *, size_t, int, int, int, off64_t)>("mmap64");
    return call(address, size, protection, flags, descriptor, offset);
}

ssize_t read(int descriptor, void *buffer, size_t size)
{
    const Outcome outcome = nextOn(descriptor, "read", true);
    if (outcome == Fails) {
        return -1;
    }
    static const auto call = original<ssize_t (*)(int, void *, size_t)>("read");
    return call(descriptor, buffer, shortened(outcome, size));
}

ssize_t write(int descriptor, const void *buffer, size_t size)
{
    const Outcome outcome = nextOn(descriptor, "write", true);
    if (outcome == Fails) {
        return -1;
    }
    static const auto call = original<ssize_t (*)(int, const void *, size_t)>("write");
    return call(descriptor, buffer, shortened(outcome, size));
}

// ---- sockets

int socket(int domain, int type, int protocol)
{
    if (next(Faults::Socket, "socket") == Fails) {
        return -1;
    }
    static const auto call = original<int (*)(int, int, int)>("socket");
    return call(domain, type, protocol);
}

VELA_BY_DESCRIPTOR(connect, (int descriptor, const sockaddr *address, socklen_t size), descriptor, descriptor, address,
                   size)
VELA_BY_DESCRIPTOR(bind, (int descriptor, const sockaddr *address, socklen_t size), descriptor, descriptor, address,
                   size)
VELA_BY_DESCRIPTOR(listen, (int descriptor, int backlog), descriptor, descriptor, backlog)
VELA_BY_DESCRIPTOR(accept4, (int descriptor, sockaddr *address, socklen_t *size, int flags), descriptor, descriptor,
                   address, size, flags)
VELA_BY_DESCRIPTOR(accept, (int descriptor, sockaddr *address, socklen_t *size), descriptor, descriptor, address, size)
VELA_BY_DESCRIPTOR(getsockopt, (int descriptor, int level, int name, void *value, socklen_t *size), descriptor,
                   descriptor, level, name, value, size)
VELA_BY_DESCRIPTOR(setsockopt, (int descriptor, int level, int name, const void *value, socklen_t size), descriptor,
                   descriptor, level, name, value, size)
VELA_BY_DESCRIPTOR(getsockname, (int descriptor, sockaddr *address, socklen_t *size), descriptor, descriptor, address,
                   size)
VELA_BY_DESCRIPTOR(getpeername, (int descriptor, sockaddr *address, socklen_t *size), descriptor, descriptor, address,
                   size)

ssize_t send(int descriptor, const void *buffer, size_t size, int flags)
{
    const Outcome outcome = nextOn(descriptor, "send", true);
    if (outcome == Fails) {
        return -1;
    }
    static const auto call = original<ssize_t (*)(int, const void *, size_t, int)>("send");
    return call(descriptor, buffer, shortened(outcome, size), flags);
}

ssize_t recv(int descriptor, void *buffer, size_t size, int flags)
{
    const Outcome outcome = nextOn(descriptor, "recv", true);
    if (outcome == Fails) {
        return -1;
    }
    static const auto call = original<ssize_t (*)(int, void *, size_t, int)>("recv");
    return call(descriptor, buffer, shortened(outcome, size), flags);
}

ssize_t sendmsg(int descriptor, const msghdr *message, int flags)
{
    if (nextOn(descriptor, "sendmsg") == Fails) {
        return -1;
    }
    static const auto call = original<ssize_t (*)(int, const msghdr *, int)>("sendmsg");
    return call(descriptor, message, flags);
}

ssize_t recvmsg(int descriptor, msghdr *message, int flags)
{
    if (nextOn(descriptor, "recvmsg") == Fails) {
        return -1;
    }
    static const auto call = original<ssize_t (*)(int, msghdr *, int)>("recvmsg");
    return call(descriptor, message, flags);
}

#pragma GCC visibility pop

} // extern "C"
