// SPDX-License-Identifier: MIT
#include "host/Disk-win32.h"

#include "host/OpenFolder.h"
#include "host/Path.h"
#include "host/ReadAll.h"
#include "host/Text.h"
#include "host/Windows-win32.h"

#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace host::disk {

const bool kIgnoresCase = true;

namespace {

/// Makes an empty drive an ordinary error, instead of a system dialog that waits for a disk.
[[maybe_unused]] const UINT kQuiet = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Disks without such a time give 0, which counts as 1970.
std::int64_t nanoseconds(const LARGE_INTEGER &time)
{
    constexpr std::int64_t k1970 = 116444736000000000; // in steps of 100 ns since 1601
    constexpr std::int64_t kLast = std::numeric_limits<std::int64_t>::max() / 100;
    return std::clamp<std::int64_t>(time.QuadPart - k1970, 0, kLast) * 100;
}

/// Opens a file or folder for queries, following links.
HANDLE openToAsk(const std::wstring &path)
{
    return CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

std::optional<Stamp> stampOf(HANDLE file)
{
    const std::optional<Marked> marked = MarkOf(file);
    return marked ? std::optional(marked->stamp) : std::nullopt;
}

/// Returns false for FAT, which does not mark a folder when the names in it change.
bool askWhetherFoldersAreMarked(HANDLE folder)
{
    wchar_t system[MAX_PATH + 1] = {};
    if (!GetVolumeInformationByHandleW(folder, nullptr, 0, nullptr, nullptr, nullptr, system,
                                       MAX_PATH + 1))
        return false;
    return ToUpper(Narrow(system)).find("FAT") == std::string::npos;
}

/// Like askWhetherFoldersAreMarked, but asks once for each volume.
bool marksFolders(HANDLE folder, std::uint64_t volume)
{
    static std::mutex mutex;
    static std::map<std::uint64_t, bool> known;
    const std::lock_guard lock(mutex);
    const auto found = known.find(volume);
    if (found != known.end())
        return found->second;
    return known[volume] = askWhetherFoldersAreMarked(folder);
}

Kind kindOf(DWORD attributes)
{
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return Kind::Folder;
    return attributes & FILE_ATTRIBUTE_DEVICE ? Kind::Other : Kind::File;
}

/// Only links count as links; other reparse points (cloud files, compressed files) count as
/// ordinary files.
Kind kindOf(const WIN32_FIND_DATAW &entry)
{
    const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) &&
                        IsReparseTagNameSurrogate(entry.dwReserved0);
    return isLink ? Kind::Link : kindOf(entry.dwFileAttributes);
}

/// Reads the attributes of a file or folder, following links; returns the error if that fails.
DWORD attributesOf(const std::wstring &path, DWORD &attributes)
{
    if (path.empty())
        return ERROR_INVALID_NAME;
    attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return GetLastError();
    if (!(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return ERROR_SUCCESS;
    const Handle file(openToAsk(path));
    BY_HANDLE_FILE_INFORMATION target = {};
    if (!file || !GetFileInformationByHandle(file.Get(), &target))
        return GetLastError();
    attributes = target.dwFileAttributes;
    return ERROR_SUCCESS;
}

bool isMissing(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return true;
    default:
        return false;
    }
}

std::string reasonOf(DWORD error)
{
    wchar_t text[512] = {};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                                            FORMAT_MESSAGE_MAX_WIDTH_MASK,
                                        nullptr, error, 0, text, 512, nullptr);
    std::string reason = Narrow({text, length});
    while (!reason.empty() && (reason.back() == ' ' || reason.back() == '.'))
        reason.pop_back();
    return reason.empty() ? "error " + std::to_string(error) + " of Windows" : reason;
}

std::optional<Failure> readSome(HANDLE file, char *to, std::size_t count, std::size_t &got)
{
    constexpr std::size_t kAtOnce = 1u << 30;
    DWORD done = 0;
    if (!ReadFile(file, to, static_cast<DWORD>(std::min(count, kAtOnce)), &done, nullptr))
        return FailureOf(GetLastError(), ErrorNumber::FileNotFound);
    got = done;
    return std::nullopt;
}

bool isLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// Newer versions of Windows treat some of these names as files, which older ones cannot delete.
bool isNameOfDevice(std::string_view name)
{
    std::string base = ToUpper(name.substr(0, name.find('.')));
    base.resize(base.find_last_not_of(' ') + 1);
    if (base.size() == 4 && (base.starts_with("COM") || base.starts_with("LPT")))
        return base[3] >= '1' && base[3] <= '9';
    return base == "CON" || base == "PRN" || base == "AUX" || base == "NUL";
}

constexpr const char *kNameOfDevice = "Windows keeps the name for a device: choose another one";

bool isTooLong(std::string_view name)
{
    constexpr std::size_t kLongestName = 255; // in UTF-16 code units
    return Wide(name).size() > kLongestName;
}

/// Returns the position after the next separator, or the end.
std::size_t afterStep(std::string_view path, std::size_t from)
{
    while (from < path.size() && !IsSeparator(path[from]))
        ++from;
    return std::min(from + 1, path.size());
}

} // namespace

std::optional<Marked> MarkOf(void *file)
{
    BY_HANDLE_FILE_INFORMATION who = {};
    FILE_BASIC_INFO when = {};
    if (!GetFileInformationByHandle(file, &who) ||
        !GetFileInformationByHandleEx(file, FileBasicInfo, &when, sizeof when))
        return std::nullopt;
    const std::uint64_t number = std::uint64_t{who.nFileIndexHigh} << 32 | who.nFileIndexLow;
    const std::uint64_t size = std::uint64_t{who.nFileSizeHigh} << 32 | who.nFileSizeLow;
    return Marked{{who.dwVolumeSerialNumber, number, nanoseconds(when.LastWriteTime),
                   nanoseconds(when.ChangeTime)},
                  size,
                  (who.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0};
}

std::wstring Wide(std::string_view text)
{
    const std::string utf8 = IsValidUtf8(text) ? std::string(text) : FromWindows1252(text);
    const int size = static_cast<int>(utf8.size());
    std::wstring out(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, out.data(), static_cast<int>(out.size()));
    return out;
}

std::string Narrow(std::wstring_view text)
{
    const int size = static_cast<int>(text.size());
    const int length =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, out.data(), length, nullptr, nullptr);
    return out;
}

std::wstring SystemPath(std::string_view path)
{
    constexpr std::string_view kNeverInNames(":*?\"<>|\0", 8);
    const std::size_t root = RootLength(path);
    if (path.empty() || path.substr(root).find_first_of(kNeverInNames) != path.npos)
        return {};
    std::wstring given = Wide(path);
    if (root == 2 && path.size() == 2)
        given += L'\\'; // a bare drive means its root, not its current folder
    std::wstring full(MAX_PATH, L'\0');
    DWORD length =
        GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
    if (length > full.size()) {
        full.resize(length);
        length = GetFullPathNameW(given.c_str(), length, full.data(), nullptr);
    }
    full.resize(std::min<std::size_t>(length, full.size()));
    if (full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\"))
        return full;
    if (full.starts_with(L"\\\\"))
        return L"\\\\?\\UNC\\" + full.substr(2);
    return full.empty() ? full : L"\\\\?\\" + full;
}

bool IsDevice(std::wstring_view systemPath)
{
    return systemPath.starts_with(L"\\\\.\\");
}

Failure FailureOf(unsigned long error, ErrorNumber whenMissing)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return {whenMissing, "there is no such file"};
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return {ErrorNumber::PermissionDenied, "another program has the file open"};
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
        return {ErrorNumber::PermissionDenied, reasonOf(error)};
    default:
        return {isMissing(error) ? ErrorNumber::PathNotFound : ErrorNumber::PathFileAccess,
                reasonOf(error)};
    }
}

std::optional<Failure> WhyNoName(std::string_view path)
{
    const std::string_view name = path::FileName(path);
    const std::wstring system = SystemPath(path);
    const auto refused = [](const char *reason) {
        return Failure{ErrorNumber::PathFileAccess, reason};
    };
    if (system.empty() || name.empty())
        return refused("the name has a character that Windows does not allow in names");
    if (IsDevice(system) || isNameOfDevice(name))
        return refused(kNameOfDevice);
    if (name.back() == ' ' || name.back() == '.')
        return refused("Windows cannot keep a name that ends in a blank or a dot");
    if (isTooLong(name))
        return refused(kNameTooLong);
    return std::nullopt;
}

Handle::operator bool() const
{
    return m_handle && m_handle != INVALID_HANDLE_VALUE;
}

void Handle::Close()
{
    if (*this)
        CloseHandle(std::exchange(m_handle, nullptr));
}

struct OpenFolder::State
{
};

OpenFolder::OpenFolder() = default;
OpenFolder::~OpenFolder() = default;

Kind KindOf(const std::string &path)
{
    const std::wstring system = SystemPath(path);
    if (IsDevice(system))
        return Kind::Other;
    DWORD attributes = 0;
    return attributesOf(system, attributes) == ERROR_SUCCESS ? kindOf(attributes) : Kind::Absent;
}

std::optional<Stamp> StampOf(const std::string &path)
{
    const std::wstring system = SystemPath(path);
    if (system.empty() || IsDevice(system))
        return std::nullopt;
    const Handle file(openToAsk(system));
    return file ? stampOf(file.Get()) : std::nullopt;
}

std::optional<Listing> VisitNames(const std::string &folder, const NameVisitor &visit)
{
    std::wstring system = SystemPath(folder);
    if (system.empty() || IsDevice(system))
        return std::nullopt;
    const Handle handle(openToAsk(system));
    const std::optional<Stamp> stamp = handle ? stampOf(handle.Get()) : std::nullopt;
    if (!stamp)
        return std::nullopt;
    Listing listing;
    listing.stamp = *stamp;
    listing.marked = marksFolders(handle.Get(), stamp->device);
    listing.settled = listing.marked && IsSettled(*stamp, Now());
    system += system.ends_with(L'\\') ? L"*" : L"\\*";
    WIN32_FIND_DATAW entry = {};
    const HANDLE search =
        FindFirstFileExW(system.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr,
                         FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) // an empty drive does not even have "."
        return GetLastError() == ERROR_FILE_NOT_FOUND ? std::optional(listing) : std::nullopt;
    const std::unique_ptr<void, BOOL(WINAPI *)(HANDLE)> closer(search, FindClose);
    do {
        const std::wstring_view name = entry.cFileName;
        if (name != L"." && name != L"..")
            visit(Narrow(name), kindOf(entry));
    } while (FindNextFileW(search, &entry));
    if (GetLastError() != ERROR_NO_MORE_FILES) // an incomplete list would look complete
        return std::nullopt;
    return listing;
}

Failure WhyAbsent(const std::string &path)
{
    const std::wstring system = SystemPath(path);
    const std::string_view name = path::FileName(path);
    if (IsDevice(system) || isNameOfDevice(name))
        return {ErrorNumber::PathFileAccess, kNameOfDevice};
    if (isTooLong(name))
        return {ErrorNumber::PathFileAccess, kNameTooLong};
    DWORD attributes = 0;
    const DWORD error = attributesOf(system, attributes);
    if (error == ERROR_SUCCESS || isMissing(error))
        return {ErrorNumber::PathNotFound, "there is no such folder"};
    return FailureOf(error, ErrorNumber::PathNotFound);
}

std::optional<Failure> Read(const std::string &path, std::uint64_t limit, std::string &bytes,
                            Stamp *stamp)
{
    bytes.clear();
    const std::wstring system = SystemPath(path);
    DWORD attributes = 0;
    if (IsDevice(system)) // opening a console may wait for input
        return Failure{ErrorNumber::PathFileAccess, "it is not a file"};
    if (const DWORD error = attributesOf(system, attributes); error != ERROR_SUCCESS)
        return FailureOf(error, ErrorNumber::FileNotFound);
    if (kindOf(attributes) != Kind::File)
        return Failure{ErrorNumber::PathFileAccess, "it is not a file"};
    const Handle file(CreateFileW(system.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size = {};
    if (!file || !GetFileSizeEx(file.Get(), &size))
        return FailureOf(GetLastError(), ErrorNumber::FileNotFound);
    if (stamp)
        *stamp = stampOf(file.Get()).value_or(Stamp{});
    const auto expected = static_cast<std::uint64_t>(size.QuadPart);
    if (expected > limit)
        return TooLarge(limit);
    return ReadAll(limit, static_cast<std::size_t>(expected), bytes,
                   [&file](char *to, std::size_t count, std::size_t &got) {
                       return readSome(file.Get(), to, count, got);
                   });
}

std::optional<Failure> Remove(const std::string &path)
{
    const std::wstring system = SystemPath(path);
    if (system.empty() || IsDevice(system))
        return Failure{ErrorNumber::PathFileAccess, "it is not a file"};
    const DWORD attributes = GetFileAttributesW(system.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FailureOf(GetLastError(), ErrorNumber::FileNotFound);
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return Failure{ErrorNumber::PathFileAccess, "it is a folder"};
    if (attributes & FILE_ATTRIBUTE_READONLY)
        return Failure{ErrorNumber::PermissionDenied, "the file is read-only"};
    if (!DeleteFileW(system.c_str()))
        return FailureOf(GetLastError(), ErrorNumber::FileNotFound);
    return std::nullopt;
}

std::optional<Failure> MakeFolders(const std::string &folder)
{
    std::string_view text = folder;
    const std::size_t root = RootLength(text);
    while (text.size() > root && IsSeparator(text.back()))
        text.remove_suffix(1);
    const std::string path(text);
    if (path.size() == root || KindOf(path) == Kind::Folder)
        return std::nullopt;
    if (const auto failure = WhyNoName(path))
        return failure;
    if (const auto failure = MakeFolders(std::string(path::FolderWithSeparator(path))))
        return failure;
    // Another program may have created it a moment ago.
    if (CreateDirectoryW(SystemPath(path).c_str(), nullptr) || KindOf(path) == Kind::Folder)
        return std::nullopt;
    const DWORD error = GetLastError();
    if (KindOf(path) != Kind::Absent)
        return Failure{ErrorNumber::PathNotFound, "a file has the name of a folder"};
    return FailureOf(error, ErrorNumber::PathNotFound);
}

bool IsWritableFolder(const std::string &folder)
{
    // Only an attempt to write can show this: permissions, privileges of the process and the disk
    // itself all matter.
    const std::wstring probe =
        SystemPath(Join(folder, ".zelk-" + std::to_string(GetCurrentProcessId()) + '-' +
                                    std::to_string(GetCurrentThreadId()) + ".try"));
    if (folder.empty() || probe.empty())
        return false;
    const Handle file(CreateFileW(probe.c_str(), GENERIC_WRITE | DELETE, kShareAll, nullptr,
                                  CREATE_NEW, FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE,
                                  nullptr));
    return static_cast<bool>(file);
}

std::string CurrentFolder()
{
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return Narrow(folder);
}

std::size_t RootLength(std::string_view path)
{
    if (path.size() >= 2 && isLetter(path[0]) && path[1] == ':') {
        if (path.size() == 2)
            return 2;
        return IsSeparator(path[2]) ? 3 : 0; // "C:x" is not accepted: it depends on hidden state
    }
    if (path.empty() || !IsSeparator(path[0]))
        return 0;
    if (path.size() < 3 || !IsSeparator(path[1]) || IsSeparator(path[2]))
        return 1;
    const bool isVerbatim = path.size() > 3 && path[2] == '?' && IsSeparator(path[3]);
    const std::size_t first = isVerbatim ? 4 : afterStep(path, 2); // after "\\?\" or the server
    const bool isShare = !isVerbatim || EqualsNoCase(path.substr(first, 4), "UNC\\");
    const std::size_t server = isVerbatim && isShare ? afterStep(path, first + 4) : first;
    return afterStep(path, server);
}

} // namespace host::disk
