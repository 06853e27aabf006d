// SPDX-License-Identifier: MIT
#include "host/Replace.h"

#include "host/Disk-win32.h"
#include "host/Leftovers.h"
#include "host/Text.h"
#include "host/Windows-win32.h"

#include <algorithm>
#include <atomic>

namespace host::disk {
namespace {

using MaybeFailure = std::optional<Failure>;

/// Attributes that must be set on the replacing file, because not every file system transfers them.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

MaybeFailure failed(DWORD error)
{
    return FailureOf(error, ErrorNumber::PathNotFound);
}

/// Returns the file that a link leads to, or the path itself; "" if the link leads nowhere.
std::wstring endOfLinks(const std::wstring &path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    const Handle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::wstring end(32768, L'\0'); // no path is longer
    end.resize(file ? std::min<std::size_t>(
                          GetFinalPathNameByHandleW(file.Get(), end.data(), 32768, 0), 32767)
                    : 0);
    return end;
}

/// Examines the target before it is replaced; its attributes are INVALID_FILE_ATTRIBUTES if there
/// is none.
MaybeFailure inspect(const std::wstring &path, DWORD &attributes)
{
    attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return GetLastError() == ERROR_FILE_NOT_FOUND ? std::nullopt : failed(GetLastError());
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return Failure{ErrorNumber::PathFileAccess, "it is a folder"};
    if (attributes & FILE_ATTRIBUTE_DEVICE)
        return Failure{ErrorNumber::PathFileAccess, "it is not a file"};
    if (attributes & FILE_ATTRIBUTE_READONLY)
        return Failure{ErrorNumber::PermissionDenied, "the file is read-only"};
    // If the user may not write to it, or it is in use, detect that before anything is written.
    const Handle file(CreateFileW(path.c_str(), GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr));
    return file ? std::nullopt : failed(GetLastError());
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
        m_file.reset();
        if (!m_path.empty())
            DeleteFileW(m_path.c_str());
    }

    MaybeFailure Create(const std::wstring &folder, DWORD attributes)
    {
        static std::atomic<unsigned> counter = 0;
        const Writer writer = ThisProcess();
        do { // an existing name was left before the machine was restarted
            m_start = folder + Wide(TemporaryName(writer, counter++));
            m_path = m_start + L".tmp";
            m_file.emplace(CreateFileW(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                       attributes, nullptr));
        } while (!*m_file && GetLastError() == ERROR_FILE_EXISTS);
        if (*m_file)
            return std::nullopt;
        const DWORD error = GetLastError();
        m_path.clear();
        return failed(error);
    }

    MaybeFailure Write(std::string_view bytes)
    {
        constexpr std::size_t kAtOnce = 1u << 26;
        while (!bytes.empty()) {
            const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kAtOnce));
            DWORD written = 0;
            if (!WriteFile(m_file->Get(), bytes.data(), wanted, &written, nullptr))
                return failed(GetLastError());
            if (written == 0)
                return failed(ERROR_DISK_FULL);
            bytes.remove_prefix(written);
        }
        const bool flushed = FlushFileBuffers(m_file->Get());
        const DWORD error = GetLastError();
        m_file->Close();
        // Some network file systems cannot flush.
        return flushed || error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED
                   ? std::nullopt
                   : failed(error);
    }

    MaybeFailure BecomeNew(const std::wstring &target)
    {
        if (!MoveFileExW(m_path.c_str(), target.c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return failed(GetLastError());
        m_path.clear();
        return std::nullopt;
    }

    /// Replaces a file and takes over its permissions, attributes and time of creation.
    MaybeFailure BecomeExisting(const std::wstring &target)
    {
        const std::wstring old = m_start + L".old";
        if (ReplaceFileW(target.c_str(), m_path.c_str(), old.c_str(),
                         REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)) {
            m_path.clear();
            DeleteFileW(old.c_str());
            return std::nullopt;
        }
        const DWORD error = GetLastError();
        if (error == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2) // the file still has its other name
            return restore(old, target);
        // Not every file system can replace; all can rename over a file.
        if (error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ||
            error == ERROR_INVALID_PARAMETER)
            return BecomeNew(target);
        return failed(error);
    }

private:
    static MaybeFailure restore(const std::wstring &old, const std::wstring &target)
    {
        if (MoveFileExW(old.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH))
            return failed(ERROR_UNABLE_TO_MOVE_REPLACEMENT);
        return Failure{ErrorNumber::PathFileAccess, "the old file is now " + Narrow(old)};
    }

    std::wstring m_path, m_start;
    std::optional<Handle> m_file;
};

/// The target's name, locked: one writer after the other looks at the target, decides and renames,
/// because no file has the name for a moment while ReplaceFile works. A lock that cannot be
/// created must not keep a user from saving.
class LockedName
{
public:
    explicit LockedName(const std::wstring &target)
        : m_mutex(
              CreateMutexW(nullptr, FALSE,
                           (L"Local\\zelk-save-" + Wide(MarkOf(ToUpper(Narrow(target))))).c_str()))
    {
        constexpr DWORD kPatience = 3000; // milliseconds
        const DWORD result =
            m_mutex ? WaitForSingleObject(m_mutex.Get(), kPatience) : DWORD{WAIT_FAILED};
        m_owned = result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
    }
    ~LockedName()
    {
        if (m_owned)
            ReleaseMutex(m_mutex.Get());
    }
    LockedName(const LockedName &) = delete;
    LockedName &operator=(const LockedName &) = delete;

private:
    const Handle m_mutex;
    bool m_owned = false;
};

std::wstring folderOf(const std::wstring &path)
{
    return path.substr(0, path.rfind(L'\\') + 1);
}

} // namespace

struct Replacement::Prepared
{
    std::wstring target;
    TemporaryFile file;
};

Replacement::Replacement() = default;
Replacement::~Replacement() = default;
Replacement::Replacement(Replacement &&) noexcept = default;
Replacement &Replacement::operator=(Replacement &&) noexcept = default;

std::optional<Failure> Replacement::Prepare(const std::string &path, std::string_view bytes)
{
    if (auto failure = WhyNoName(path))
        return failure;
    auto prepared = std::make_unique<Prepared>();
    prepared->target = endOfLinks(SystemPath(path));
    if (prepared->target.empty())
        return Failure{ErrorNumber::PathFileAccess, "the link does not lead to a file"};
    DWORD before = 0;
    {
        const LockedName locked(prepared->target);
        if (auto failure = inspect(prepared->target, before))
            return failure;
    }
    const bool exists = before != INVALID_FILE_ATTRIBUTES;
    const DWORD kept = exists ? before & kKeptAttributes : FILE_ATTRIBUTE_NORMAL;
    if (auto failure = prepared->file.Create(folderOf(prepared->target), kept))
        return failure;
    if (auto failure = prepared->file.Write(bytes))
        return failure;
    m_prepared = std::move(prepared);
    return std::nullopt;
}

/// Prepare has flushed the file, because only its writer's handle can do that.
std::optional<Failure> Replacement::Flush()
{
    return std::nullopt;
}

std::optional<Failure> Replacement::Commit(const std::function<bool()> &mayReplace)
{
    const std::wstring &target = m_prepared->target;
    const LockedName locked(target);
    if (mayReplace && !mayReplace())
        return Failure{ErrorNumber::PathFileAccess, kNotReplaced};
    const bool exists = GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES;
    return exists ? m_prepared->file.BecomeExisting(target) : m_prepared->file.BecomeNew(target);
}

std::string FolderOfTarget(const std::string &path)
{
    return Narrow(folderOf(endOfLinks(SystemPath(path))));
}

/// Renaming with MOVEFILE_WRITE_THROUGH waits for the disk, and folders cannot be flushed.
void FlushNames(const std::string &) {}

std::optional<Failure> Rename(const std::string &from, const std::string &to)
{
    if (MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return std::nullopt;
    return failed(GetLastError());
}

std::optional<Failure> Replace(const std::string &path, std::string_view bytes,
                               const std::function<bool()> &mayReplace)
{
    if (auto failure = WhyNoName(path)) // before a link of that name is followed
        return failure;
    if (const std::string folder = FolderOfTarget(path); !folder.empty())
        RemoveLeftovers(folder);
    Replacement file;
    if (auto failure = file.Prepare(path, bytes))
        return failure;
    return file.Commit(mayReplace);
}

} // namespace host::disk
