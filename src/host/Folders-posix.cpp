// SPDX-License-Identifier: MIT
#include "host/Folders.h"

#include "host/Disk-posix.h"
#include "host/Disk.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

namespace host {
namespace {

constexpr std::uint64_t kMountsLimit = 16u << 20; ///< thousands of mounts take less than one MiB

std::string withoutEndSeparator(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

/// Returns the folder in a variable; a relative one counts as unset.
std::string folderFrom(const char *variable, const char *belowHome)
{
    const std::string value = Environment(variable);
    return value.starts_with('/') ? withoutEndSeparator(value)
                                  : path::Join(HomeFolder(), belowHome);
}

/// Decodes the blanks, tabs, line breaks and backslashes that are written as three octal digits.
std::string unescaped(std::string_view text)
{
    const auto isOctal = [](char c) { return c >= '0' && c <= '7'; };
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view digits = text.substr(i).substr(1, 3);
        if (text[i] == '\\' && digits.size() == 3 &&
            std::all_of(digits.begin(), digits.end(), isOctal)) {
            out +=
                static_cast<char>((digits[0] - '0') * 64 + (digits[1] - '0') * 8 + digits[2] - '0');
            i += 3;
        } else {
            out += text[i];
        }
    }
    return out;
}

/// True for file systems without files of the user: the kernel's own, memory, program packages.
bool isPseudo(std::string_view type)
{
    static constexpr std::array<std::string_view, 29> kPseudo = {
        "autofs",     "binfmt_misc", "bpf",           "cgroup",   "cgroup2",    "configfs",
        "debugfs",    "devfs",       "devpts",        "devtmpfs", "efivarfs",   "fuse.gvfsd-fuse",
        "fuse.lxcfs", "fuse.portal", "fuse.snapfuse", "fusectl",  "hugetlbfs",  "mqueue",
        "nsfs",       "proc",        "pstore",        "ramfs",    "rpc_pipefs", "securityfs",
        "selinuxfs",  "squashfs",    "sysfs",         "tmpfs",    "tracefs"};
    return std::find(kPseudo.begin(), kPseudo.end(), type) != kPseudo.end();
}

std::string timeOfDay()
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    char text[16];
    return {text, std::strftime(text, sizeof text, "%H:%M:%S ", &local)};
}

} // namespace

std::string Environment(const char *name)
{
    const char *const value = std::getenv(name);
    return value ? value : "";
}

std::string HomeFolder()
{
    const std::string home = Environment("HOME");
    if (!home.empty())
        return withoutEndSeparator(home);
    const passwd *const user = getpwuid(getuid());
    return user && user->pw_dir ? withoutEndSeparator(user->pw_dir) : "/";
}

std::string ConfigFolder()
{
    return folderFrom("XDG_CONFIG_HOME", ".config");
}
std::string DataFolder()
{
    return folderFrom("XDG_DATA_HOME", ".local/share");
}
std::string StateFolder()
{
    return folderFrom("XDG_STATE_HOME", ".local/state");
}
std::string CacheFolder()
{
    return folderFrom("XDG_CACHE_HOME", ".cache");
}

std::vector<std::string> ConfigFolders()
{
    std::vector<std::string> folders = {ConfigFolder()};
    const std::string others = Environment("XDG_CONFIG_DIRS");
    for (const std::string &folder : Split(others.empty() ? "/etc/xdg" : others, ':'))
        if (folder.starts_with('/'))
            folders.push_back(withoutEndSeparator(folder));
    return folders;
}

std::string ExecutableFolder()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).parent_path().native();
}

std::vector<Volume> VolumesFromMounts(std::string_view mounts)
{
    std::vector<Volume> volumes = {{"/", "/"}};
    for (const std::string &line : Split(mounts, '\n')) {
        const std::vector<std::string> fields = Split(line, ' '); // device, folder, type, options
        if (fields.size() < 3 || isPseudo(fields[2]))
            continue;
        const std::string path = unescaped(fields[1]);
        const bool known = std::any_of(volumes.begin(), volumes.end(),
                                       [&](const Volume &volume) { return volume.path == path; });
        if (path.starts_with('/') && !known)
            volumes.push_back({path, path});
    }
    return volumes;
}

std::vector<Volume> Volumes()
{
    std::string mounts;
    if (disk::Read("/proc/self/mounts", kMountsLimit, mounts))
        mounts.clear();
    std::vector<Volume> volumes = VolumesFromMounts(mounts);
    std::erase_if(volumes, [](const Volume &volume) { // containers mount single files too
        return disk::KindOf(volume.path) != disk::Kind::Folder;
    });
    return volumes;
}

std::string TraceLogFile()
{
    return path::Join(StateFolder(), "zelk/zelk.log");
}

void AppendTraceLine(std::string_view text)
{
    const std::string file = TraceLogFile();
    if (disk::MakeFolders(std::string(path::FolderWithSeparator(file))))
        return;
    const disk::Handle log(
        open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | O_NONBLOCK, 0666));
    if (!log)
        return;
    // In one write, so that lines of several threads and programs do not mix.
    const std::string line = timeOfDay().append(text) + '\n';
    if (write(log.Number(), line.data(), line.size()) < 0)
        return;
}

} // namespace host
