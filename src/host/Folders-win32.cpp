// SPDX-License-Identifier: MIT
#include "host/Folders.h"

#include "host/Disk-win32.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Windows-win32.h"

#include <cstdio>
#include <memory>
#include <mutex>

#include <knownfolders.h>
#include <objbase.h>
#include <shlobj.h>

namespace host {
namespace {

constexpr const char *kCommonTraceLog = "c:\\zelk.log";

std::string withoutEndSeparator(std::string path)
{
    while (path.size() > disk::RootLength(path) && IsSeparator(path.back()))
        path.pop_back();
    return path;
}

/// Returns the folder in a variable that the system sets for every user; if the variable is unset
/// or relative, the one that the system itself knows.
std::string folderFrom(const char *variable, const KNOWNFOLDERID &known)
{
    const std::string value = Environment(variable);
    if (disk::RootLength(value) >= 3)
        return withoutEndSeparator(value);
    wchar_t *text = nullptr;
    const HRESULT result = SHGetKnownFolderPath(known, KF_FLAG_DONT_VERIFY, nullptr, &text);
    const std::unique_ptr<wchar_t, void(WINAPI *)(void *)> owner(text, CoTaskMemFree);
    return SUCCEEDED(result) && text ? withoutEndSeparator(disk::Narrow(text))
                                     : std::string("C:\\");
}

/// Opens a log for appending, even if others have it open.
HANDLE openLog(const std::string &file)
{
    return CreateFileW(disk::SystemPath(file).c_str(), FILE_APPEND_DATA,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::string userTraceLog()
{
    return path::Join(StateFolder(), "zelk\\zelk.log");
}

std::string timeOfDay()
{
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d ", now.wHour % 24, now.wMinute % 60,
                  now.wSecond % 61);
    return text;
}

void append(HANDLE log, const std::string &line)
{
    DWORD written = 0;
    WriteFile(log, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

} // namespace

std::string Environment(const char *name)
{
    const std::wstring wide = disk::Wide(name);
    std::wstring value;
    DWORD length = GetEnvironmentVariableW(wide.c_str(), nullptr, 0);
    while (length > value.size()) { // another thread may have extended it
        value.resize(length);
        length = GetEnvironmentVariableW(wide.c_str(), value.data(), length);
    }
    value.resize(length);
    return disk::Narrow(value);
}

std::string HomeFolder()
{
    return folderFrom("USERPROFILE", FOLDERID_Profile);
}

std::string ConfigFolder()
{
    return folderFrom("APPDATA", FOLDERID_RoamingAppData);
}

std::string DataFolder()
{
    return folderFrom("LOCALAPPDATA", FOLDERID_LocalAppData);
}

std::string StateFolder()
{
    return DataFolder();
}

std::string CacheFolder()
{
    return DataFolder();
}

std::vector<std::string> ConfigFolders()
{
    return {ConfigFolder(), folderFrom("ProgramData", FOLDERID_ProgramData)};
}

std::string ExecutableFolder()
{
    std::wstring file(MAX_PATH, L'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()))) ==
           file.size())
        file.resize(2 * file.size());
    file.resize(length);
    return withoutEndSeparator(std::string(path::FolderWithSeparator(disk::Narrow(file))));
}

std::vector<Volume> Volumes()
{
    std::vector<Volume> volumes;
    const DWORD drives = GetLogicalDrives();
    for (int letter = 0; letter < 26; ++letter) {
        const std::string path = std::string(1, static_cast<char>('A' + letter)) + ":\\";
        if ((drives >> letter & 1) == 0)
            continue;
        const UINT type = GetDriveTypeW(disk::Wide(path).c_str());
        if (type != DRIVE_UNKNOWN && type != DRIVE_NO_ROOT_DIR)
            volumes.push_back({path, path});
    }
    return volumes;
}

std::string TraceLogFile()
{
    if (disk::KindOf(kCommonTraceLog) == disk::Kind::File) {
        const disk::Handle log(openLog(kCommonTraceLog));
        return log ? kCommonTraceLog : userTraceLog();
    }
    return disk::IsWritableFolder("c:\\") ? kCommonTraceLog : userTraceLog();
}

void AppendTraceLine(std::string_view text)
{
    static std::mutex mutex; // not every file system appends atomically
    const std::lock_guard lock(mutex);
    const std::string line = timeOfDay().append(text) + "\r\n";
    if (const disk::Handle common(openLog(kCommonTraceLog)); common) {
        append(common.Get(), line);
        return;
    }
    const std::string file = userTraceLog();
    if (disk::MakeFolders(std::string(path::FolderWithSeparator(file))))
        return;
    if (const disk::Handle log(openLog(file)); log)
        append(log.Get(), line);
}

} // namespace host
