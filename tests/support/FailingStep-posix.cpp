// SPDX-License-Identifier: MIT
#include "support/FailingStep-posix.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <string_view>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

struct State
{
    bool counting = false, ends = false, fillsDisk = false;
    int step = 0, error = 0, count = 0;
    const char *refused = "";
    std::vector<std::string> calls;
};
State state;
thread_local int namesRead = 0; ///< of the folder that this thread opened last

bool isRefused(const char *call)
{
    if (!state.counting)
        return false;
    state.calls.emplace_back(call);
    const int step = state.count++;
    if (state.fillsDisk ? step < state.step || call != std::string_view("write")
                        : step != state.step)
        return false;
    if (state.ends)
        _exit(support::FailingStep::kExitCode);
    state.refused = call;
    errno = state.error;
    return true;
}

} // namespace

namespace support {

FailingStep::FailingStep(int step, int error)
{
    state = {true, false, false, step, error, 0, "", {}};
}

FailingStep::FailingStep(int step, EndsProcess)
{
    state = {true, true, false, step, 0, 0, "", {}};
}

FailingStep::FailingStep(int step, FillsDisk)
{
    state = {true, false, true, step, ENOSPC, 0, "", {}};
}

FailingStep::~FailingStep()
{
    state.counting = false;
}

int FailingStep::Count() const
{
    return state.count;
}

const std::vector<std::string> &FailingStep::Calls() const
{
    return state.calls;
}

const char *FailingStep::Refused() const
{
    return state.refused;
}

} // namespace support

// The linker puts these functions in place of the system calls (option --wrap). It requires names
// of this form.
// NOLINTBEGIN(bugprone-reserved-identifier,bugprone-macro-parentheses,readability-identifier-naming)
#define ZELK_STEP(Result, call, failure, parameters, arguments)                                    \
    extern "C" Result __real_##call parameters;                                                    \
    extern "C" Result __wrap_##call parameters;                                                    \
    extern "C" Result __wrap_##call parameters                                                     \
    {                                                                                              \
        return isRefused(#call) ? failure : __real_##call arguments;                               \
    }

ZELK_STEP(ssize_t, read, -1, (int file, void *to, std::size_t count), (file, to, count))
ZELK_STEP(ssize_t, write, -1, (int file, const void *from, std::size_t count), (file, from, count))
ZELK_STEP(int, close, -1, (int file), (file))
ZELK_STEP(int, fsync, -1, (int file), (file))
ZELK_STEP(int, fchmod, -1, (int file, mode_t mode), (file, mode))
ZELK_STEP(int, fchown, -1, (int file, uid_t user, gid_t group), (file, user, group))
ZELK_STEP(int, rename, -1, (const char *from, const char *to), (from, to))
ZELK_STEP(int, unlink, -1, (const char *path), (path))
ZELK_STEP(int, stat, -1, (const char *path, struct stat *to), (path, to))
ZELK_STEP(int, lstat, -1, (const char *path, struct stat *to), (path, to))
ZELK_STEP(int, fstat, -1, (int file, struct stat *to), (file, to))
ZELK_STEP(int, faccessat, -1, (int folder, const char *path, int mode, int flags),
          (folder, path, mode, flags))
#undef ZELK_STEP

extern "C" DIR *__real_opendir(const char *path);
extern "C" DIR *__wrap_opendir(const char *path);
extern "C" DIR *__wrap_opendir(const char *path)
{
    namesRead = 0;
    return isRefused("opendir") ? nullptr : __real_opendir(path);
}

extern "C" dirent *__real_readdir(DIR *folder);
extern "C" dirent *__wrap_readdir(DIR *folder);
extern "C" dirent *__wrap_readdir(DIR *folder)
{
    return namesRead++ == 1 && isRefused("readdir") ? nullptr : __real_readdir(folder);
}

extern "C" int __real_open(const char *path, int flags, ...);
extern "C" int __wrap_open(const char *path, int flags, ...);
extern "C" int __wrap_open(const char *path, int flags, ...)
{
    if (isRefused("open"))
        return -1;
    std::va_list rest;
    va_start(rest, flags);
    const mode_t mode = flags & O_CREAT ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return __real_open(path, flags, mode);
}
// NOLINTEND(bugprone-reserved-identifier,bugprone-macro-parentheses,readability-identifier-naming)
