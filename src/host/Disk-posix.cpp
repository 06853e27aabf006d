// SPDX-License-Identifier: MIT
#include "host/Disk-posix.h"
#include "host/Disk.h"
#include "host/OpenFolder.h"
#include "host/ReadAll.h"

#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host::disk {

const bool kIgnoresCase = false;

namespace {

constexpr std::int64_t kSecond = 1000000000; // in nanoseconds

std::int64_t nanoseconds(const timespec &time)
{
    return static_cast<std::int64_t>(time.tv_sec) * kSecond + time.tv_nsec;
}

Kind kindOf(const struct stat &status)
{
    if (S_ISREG(status.st_mode))
        return Kind::File;
    return S_ISDIR(status.st_mode) ? Kind::Folder : Kind::Other;
}

Kind kindOf(const dirent &entry, int folder)
{
    switch (entry.d_type) {
    case DT_REG:
        return Kind::File;
    case DT_DIR:
        return Kind::Folder;
    case DT_LNK:
        return Kind::Link;
    case DT_UNKNOWN: {
        struct stat status = {};
        if (fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
            return Kind::Absent;
        return S_ISLNK(status.st_mode) ? Kind::Link : kindOf(status);
    }
    default:
        return Kind::Other;
    }
}

#ifdef O_PATH
constexpr int kToSearch = O_PATH; // needs no permission to list the folder
#else
constexpr int kToSearch = O_RDONLY;
#endif

std::optional<Failure> readSome(int file, char *to, std::size_t count, std::size_t &got)
{
    ssize_t result = -1;
    do
        result = read(file, to, count);
    while (result < 0 && errno == EINTR);
    if (result < 0)
        return FailureOf(errno, ErrorNumber::FileNotFound);
    got = static_cast<std::size_t>(result);
    return std::nullopt;
}

} // namespace

Stamp StampOf(const struct stat &status)
{
    return {status.st_dev, status.st_ino, nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
}

Failure FailureOf(int error, ErrorNumber whenMissing)
{
    const std::string reason = std::generic_category().message(error);
    switch (error) {
    case ENOENT:
        return {whenMissing, reason};
    case ENOTDIR:
        return {ErrorNumber::PathNotFound, reason};
    case EACCES:
    case EPERM:
    case EROFS:
        return {ErrorNumber::PermissionDenied, reason};
    case ENAMETOOLONG:
        return {ErrorNumber::PathFileAccess, kNameTooLong};
    default:
        return {ErrorNumber::PathFileAccess, reason};
    }
}

Handle::~Handle()
{
    Close();
}

int Handle::Close()
{
    return m_number < 0 ? 0 : close(std::exchange(m_number, -1));
}

struct OpenFolder::State
{
    /// Opens a file like open(2).
    int OpenFile(const std::string &file, int flags)
    {
        const std::size_t length = file.rfind('/') + 1; // npos + 1 is 0
        if (length == 0 || path != std::string_view(file).substr(0, length)) {
            path.assign(file, 0, length);
            folder.reset();
            return open(file.c_str(), flags);
        }
        if (!folder)
            folder.emplace(open(path.c_str(), kToSearch | O_DIRECTORY | O_CLOEXEC));
        return *folder ? openat(folder->Number(), file.c_str() + length, flags)
                       : open(file.c_str(), flags);
    }

    State *outer = nullptr;
    std::string path; ///< of the folder of the last file, with its separator
    std::optional<Handle> folder;
    static thread_local State *current;
};

thread_local OpenFolder::State *OpenFolder::State::current = nullptr;

OpenFolder::OpenFolder()
    : m_state(std::make_unique<State>())
{
    m_state->outer = std::exchange(State::current, m_state.get());
}

OpenFolder::~OpenFolder()
{
    State::current = m_state->outer;
}

int OpenFolder::OpenFile(const std::string &path, int flags)
{
    return State::current ? State::current->OpenFile(path, flags) : open(path.c_str(), flags);
}

Kind KindOf(const std::string &path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? kindOf(status) : Kind::Absent;
}

std::optional<Stamp> StampOf(const std::string &path)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return StampOf(status);
}

std::optional<Listing> VisitNames(const std::string &folder, const NameVisitor &visit)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> names(opendir(folder.c_str()), closedir);
    struct stat status = {};
    if (!names || fstat(dirfd(names.get()), &status) != 0)
        return std::nullopt;
    Listing listing;
    listing.stamp = StampOf(status);
    listing.marked = true;
    listing.settled = IsSettled(listing.stamp, Now());
    errno = 0;
    while (const dirent *entry = readdir(names.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..")
            visit(name, kindOf(*entry, dirfd(names.get())));
        errno = 0;
    }
    if (errno != 0) // an incomplete list would look complete
        return std::nullopt;
    return listing;
}

Failure WhyAbsent(const std::string &path)
{
    struct stat status = {};
    const int error = stat(path.c_str(), &status) == 0 ? ENOENT : errno;
    if (error == ENOENT || error == ENOTDIR)
        return {ErrorNumber::PathNotFound, "there is no such folder"};
    return FailureOf(error, ErrorNumber::PathNotFound);
}

namespace {

std::optional<Failure> readFile(const std::string &path, std::uint64_t limit, std::string &bytes,
                                Stamp *stamp)
{
    // Does not block: a pipe of that name would stop the program until another program writes into
    // it.
    constexpr int kFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    Handle file(OpenFolder::OpenFile(path, kFlags));
    struct stat status = {};
    if (!file || fstat(file.Number(), &status) != 0)
        return FailureOf(errno, ErrorNumber::FileNotFound);
    if (!S_ISREG(status.st_mode))
        return Failure{ErrorNumber::PathFileAccess, "it is not a file"};
    if (stamp)
        *stamp = StampOf(status);
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size > limit)
        return TooLarge(limit);
    return ReadAll(limit, static_cast<std::size_t>(size), bytes,
                   [&file](char *to, std::size_t count, std::size_t &got) {
                       return readSome(file.Number(), to, count, got);
                   });
}

} // namespace

std::optional<Failure> Read(const std::string &path, std::uint64_t limit, std::string &bytes,
                            Stamp *stamp)
{
    // Keeps the old content until then: enlarging a text from nothing would write all of it twice.
    std::optional<Failure> failure = readFile(path, limit, bytes, stamp);
    if (failure)
        bytes.clear();
    return failure;
}

std::optional<Failure> Remove(const std::string &path)
{
    struct stat status = {};
    if (lstat(path.c_str(), &status) != 0)
        return FailureOf(errno, ErrorNumber::FileNotFound);
    if (S_ISDIR(status.st_mode))
        return Failure{ErrorNumber::PathFileAccess, "it is a folder"};
    if (S_ISREG(status.st_mode) && !HasWritePermission(status.st_mode))
        return Failure{ErrorNumber::PermissionDenied, "the file is read-only"};
    if (unlink(path.c_str()) != 0)
        return FailureOf(errno, ErrorNumber::FileNotFound);
    return std::nullopt;
}

std::optional<Failure> MakeFolders(const std::string &folder)
{
    std::error_code error;
    if (!folder.empty() && KindOf(folder) != Kind::Folder)
        std::filesystem::create_directories(folder, error);
    if (error)
        return FailureOf(error.value(), ErrorNumber::PathNotFound);
    return std::nullopt;
}

bool IsWritableFolder(const std::string &folder)
{
    return KindOf(folder) == Kind::Folder &&
           faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string CurrentFolder()
{
    std::error_code error;
    return std::filesystem::current_path(error).native();
}

std::size_t RootLength(std::string_view path)
{
    return !path.empty() && (path[0] == '/' || path[0] == '\\') ? 1 : 0;
}

} // namespace host::disk
