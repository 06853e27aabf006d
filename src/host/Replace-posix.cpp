// SPDX-License-Identifier: MIT
#include "host/Replace.h"

#include "host/Disk-posix.h"
#include "host/Disk.h"
#include "host/Leftovers.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host::disk {
namespace {

using MaybeFailure = std::optional<Failure>;

MaybeFailure failed(int error)
{
    return FailureOf(error, ErrorNumber::PathNotFound);
}

/// Returns the end of a chain of links, which need not exist; the links themselves stay. In a loop,
/// returns the path of a link, which the caller then finds and reports.
std::string endOfLinks(const std::string &path)
{
    std::filesystem::path end = path;
    std::error_code error;
    for (int step = 0; step < 40 && std::filesystem::is_symlink(end, error); ++step) {
        const std::filesystem::path next = std::filesystem::read_symlink(end, error);
        if (error)
            break;
        end = end.parent_path() / next;
    }
    return end.native();
}

std::string folderOf(const std::string &path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

/// The target before it is replaced; `exists` is false if there is none.
struct Target
{
    struct stat status = {};
    bool exists = false;
};

MaybeFailure inspect(const std::string &path, Target &target)
{
    target.exists = stat(path.c_str(), &target.status) == 0;
    if (!target.exists)
        return errno == ENOENT ? std::nullopt : failed(errno);
    if (S_ISDIR(target.status.st_mode))
        return Failure{ErrorNumber::PathFileAccess, "it is a folder"};
    if (!S_ISREG(target.status.st_mode))
        return Failure{ErrorNumber::PathFileAccess, "it is not a file"};
    if (!HasWritePermission(target.status.st_mode))
        return Failure{ErrorNumber::PermissionDenied, "the file is read-only"};
    if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        return failed(errno);
    return std::nullopt;
}

/// The file that is written beside the target; deleted unless it becomes the target.
class TemporaryFile
{
public:
    TemporaryFile() = default;
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;
    ~TemporaryFile()
    {
        if (!m_path.empty())
            unlink(m_path.c_str());
    }

    MaybeFailure Create(const std::string &folder, mode_t mode)
    {
        static std::atomic<unsigned> counter = 0;
        const Writer writer = ThisProcess();
        do { // an existing name was left before the machine was restarted
            m_path = folder + TemporaryName(writer, counter++) + ".tmp";
            m_file.emplace(open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        } while (!*m_file && errno == EEXIST);
        if (*m_file)
            return std::nullopt;
        m_path.clear();
        return failed(errno);
    }

    MaybeFailure Write(std::string_view bytes)
    {
        while (!bytes.empty()) {
            const ssize_t written = write(m_file->Number(), bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR)
                continue;
            if (written <= 0)
                return failed(written < 0 ? errno : ENOSPC);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return std::nullopt;
    }

    /// Sets owner and permissions after writing, owner first: both writing and a new owner may
    /// clear permissions. An owner or group that cannot be set must not keep a user from saving.
    /// Nor must permissions that the file system does not store: the file then keeps those with
    /// which it was created.
    MaybeFailure TakeOwnerAndMode(const struct stat &status)
    {
        if (fchown(m_file->Number(), status.st_uid, status.st_gid) != 0 &&
            fchown(m_file->Number(), static_cast<uid_t>(-1), status.st_gid) != 0)
            errno = 0;
        if (fchmod(m_file->Number(), status.st_mode & 07777) != 0 && !isRefusal(errno))
            return failed(errno);
        return std::nullopt;
    }

    /// Lets the system begin to write the content to the disk, and closes the file: a process may
    /// not have thousands of them open.
    MaybeFailure Close()
    {
#ifdef SYNC_FILE_RANGE_WRITE
        if (sync_file_range(m_file->Number(), 0, 0, SYNC_FILE_RANGE_WRITE) != 0)
            errno = 0; // Flush does it all then
#endif
        return m_file->Close() == 0 ? std::nullopt : failed(errno);
    }

    MaybeFailure Flush() const
    {
        const Handle file(open(m_path.c_str(), O_WRONLY | O_CLOEXEC));
        // Some network file systems cannot flush and report that as EINVAL.
        if (!file || (fsync(file.Number()) != 0 && errno != EINVAL))
            return failed(errno);
        return std::nullopt;
    }

    MaybeFailure Become(const std::string &target)
    {
        if (rename(m_path.c_str(), target.c_str()) != 0)
            return failed(errno);
        m_path.clear();
        return std::nullopt;
    }

private:
    /// True for the errors of file systems that do not store permissions.
    static bool isRefusal(int error)
    {
        return error == EPERM || error == EACCES || error == ENOSYS || error == EOPNOTSUPP ||
               error == EINVAL;
    }

    std::string m_path;
    std::optional<Handle> m_file;
};

/// The folder of the target, locked: one writer after the other decides and renames. A folder that
/// cannot be opened or locked must not keep a user from saving.
class LockedFolder
{
public:
    explicit LockedFolder(const std::string &folder)
        : m_folder(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        using namespace std::chrono_literals;
        const auto patience = std::chrono::steady_clock::now() + 3s;
        while (m_folder && flock(m_folder.Number(), LOCK_EX | LOCK_NB) != 0 &&
               errno == EWOULDBLOCK && std::chrono::steady_clock::now() < patience)
            std::this_thread::sleep_for(1ms);
    }
    ~LockedFolder()
    {
        if (m_folder) // a child process may still have it open
            flock(m_folder.Number(), LOCK_UN);
    }
    LockedFolder(const LockedFolder &) = delete;
    LockedFolder &operator=(const LockedFolder &) = delete;

private:
    const Handle m_folder;
};

} // namespace

struct Replacement::Prepared
{
    std::string target;
    TemporaryFile file;
};

Replacement::Replacement() = default;
Replacement::~Replacement() = default;
Replacement::Replacement(Replacement &&) noexcept = default;
Replacement &Replacement::operator=(Replacement &&) noexcept = default;

std::optional<Failure> Replacement::Prepare(const std::string &path, std::string_view bytes)
{
    auto prepared = std::make_unique<Prepared>();
    prepared->target = endOfLinks(path);
    Target before;
    if (auto failure = inspect(prepared->target, before))
        return failure;
    TemporaryFile &file = prepared->file;
    const mode_t mode = before.exists ? before.status.st_mode & 0777 : 0666;
    if (auto failure = file.Create(folderOf(prepared->target), mode))
        return failure;
    if (auto failure = file.Write(bytes))
        return failure;
    if (before.exists)
        if (auto failure = file.TakeOwnerAndMode(before.status))
            return failure;
    if (auto failure = file.Close())
        return failure;
    m_prepared = std::move(prepared);
    return std::nullopt;
}

std::optional<Failure> Replacement::Flush()
{
    return m_prepared->file.Flush();
}

std::optional<Failure> Replacement::Commit(const std::function<bool()> &mayReplace)
{
    const LockedFolder locked(folderOf(m_prepared->target));
    if (mayReplace && !mayReplace())
        return Failure{ErrorNumber::PathFileAccess, kNotReplaced};
    return m_prepared->file.Become(m_prepared->target);
}

std::string FolderOfTarget(const std::string &path)
{
    return folderOf(endOfLinks(path));
}

/// The files already have their names, so a failure leaves nothing to undo or report.
void FlushNames(const std::string &folder)
{
    const Handle opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened)
        fsync(opened.Number());
}

std::optional<Failure> Rename(const std::string &from, const std::string &to)
{
    return rename(from.c_str(), to.c_str()) == 0 ? std::nullopt : failed(errno);
}

std::optional<Failure> Replace(const std::string &path, std::string_view bytes,
                               const std::function<bool()> &mayReplace)
{
    const std::string folder = FolderOfTarget(path);
    RemoveLeftovers(folder);
    Replacement file;
    if (auto failure = file.Prepare(path, bytes))
        return failure;
    if (auto failure = file.Flush())
        return failure;
    if (auto failure = file.Commit(mayReplace))
        return failure;
    FlushNames(folder);
    return std::nullopt;
}

} // namespace host::disk
