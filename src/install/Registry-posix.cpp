// SPDX-License-Identifier: MIT
#include "install/Registry.h"

#include "host/Disk.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/IniFile.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/WineRegistry.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <system_error>
#include <vector>

namespace Registry {
namespace {

namespace disk = host::disk;
namespace path = host::path;

constexpr std::string_view kSoftware = R"(SOFTWARE\)";
constexpr std::string_view kSoftware32 = R"(SOFTWARE\Wow6432Node\)";
constexpr std::uint64_t kStoreLimit = 256u << 20; ///< a registry of a large prefix has a few MiB

using Answer = std::optional<std::string>;
using Finder = Answer (*)(std::string_view text, std::string_view key, std::string_view value);

Answer findInIni(std::string_view text, std::string_view key, std::string_view value)
{
    return host::IniFile::FromText(text).Value(key, value);
}

/// Caches the values read from a file until the file changes. Building any path needs the folder of
/// Train Simulator.
class AnswerCache
{
public:
    Answer Ask(const std::string &file, Finder finder, const std::string &key,
               std::string_view value)
    {
        const std::optional<disk::Stamp> stamp = disk::StampOf(file);
        if (!stamp)
            return std::nullopt;
        const std::lock_guard lock(m_mutex);
        Known &known = m_files[file];
        if (!known.settled || known.stamp != *stamp)
            known = {*stamp, disk::IsSettled(*stamp, disk::Now()), {}};
        const std::string question = host::ToUpper(key) + '\n' + host::ToUpper(value);
        const auto found = known.answers.find(question);
        if (found != known.answers.end())
            return found->second;
        std::string text;
        if (disk::Read(file, kStoreLimit, text))
            return std::nullopt;
        return known.answers[question] = finder(text, key, value);
    }

private:
    struct Known
    {
        disk::Stamp stamp;
        bool settled = false;
        std::map<std::string, Answer> answers;
    };
    std::mutex m_mutex;
    std::map<std::string, Known> m_files;
};

/// Returns the key in the 32-bit view, then in the 64-bit view (or the only view of a machine).
std::vector<std::string> viewsOf(std::string_view key)
{
    std::vector<std::string> views = {std::string(key)};
    if (host::EqualsNoCase(key.substr(0, kSoftware.size()), kSoftware) &&
        !host::EqualsNoCase(key.substr(0, kSoftware32.size()), kSoftware32))
        views.insert(views.begin(), std::string(kSoftware32).append(key.substr(kSoftware.size())));
    return views;
}

std::vector<std::string> storeFiles()
{
    const std::string named = host::Environment("ZELK_REGISTRY");
    if (!named.empty()) {
        const bool isFolder = disk::KindOf(named) == disk::Kind::Folder;
        return {isFolder ? path::Join(named, "registry.ini") : named};
    }
    std::vector<std::string> files;
    for (const std::string &folder : host::ConfigFolders())
        files.push_back(path::Join(folder, "zelk/registry.ini"));
    return files;
}

std::string winePrefix()
{
    const std::string prefix = host::Environment("WINEPREFIX");
    return prefix.empty() ? path::Join(host::HomeFolder(), ".wine") : prefix;
}

/// Returns the first value that is not empty, cut at its first NUL; "" if there is none.
std::string ask(const std::string &file, Finder finder, std::string_view key,
                std::string_view value)
{
    static AnswerCache cache;
    for (const std::string &view : viewsOf(key)) {
        const std::string answer = cache.Ask(file, finder, view, value).value_or("");
        if (const std::size_t end = answer.find('\0'); end != 0 && !answer.empty())
            return answer.substr(0, end);
    }
    return {};
}

bool isOnDrive(std::string_view text)
{
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    return text.size() >= 2 && isLetter(text[0]) && text[1] == ':' &&
           (text.size() == 2 || text[2] == '\\' || text[2] == '/');
}

/// Returns the folder of a drive of the prefix, or "".
std::string driveFolder(char letter)
{
    const std::string drives = path::Join(winePrefix(), "dosdevices");
    const std::string link = path::Join(drives, host::ToLower(std::string(1, letter)) + ':');
    if (disk::KindOf(link) != disk::Kind::Folder)
        return {};
    std::error_code error;
    const std::filesystem::path target = std::filesystem::read_symlink(link, error);
    const std::string folder =
        path::Normalise(path::FromDisk(std::filesystem::path(drives) / target));
    return !error && disk::KindOf(folder) == disk::Kind::Folder ? folder : link;
}

} // namespace

std::string QueryValue(std::string_view key, std::string_view value)
{
    for (const std::string &file : storeFiles())
        if (std::string text = ask(file, findInIni, key, value); !text.empty())
            return text;
    const std::string wine = path::Join(winePrefix(), "system.reg");
    const std::string text = ask(wine, install::ValueInWineRegistry, key, value);
    // A command line with quoted paths is not a path.
    return text.find('"') == std::string::npos ? PathOnThisMachine(text) : text;
}

std::string PathOnThisMachine(std::string_view windowsPath)
{
    static host::GameFiles files;
    const std::string drive = isOnDrive(windowsPath) ? driveFolder(windowsPath[0]) : std::string();
    if (drive.empty())
        return std::string(windowsPath);
    std::string spelled = path::Join(drive, windowsPath.substr(2));
    if (const auto folder = files.FindFolder(spelled))
        return path::FromDisk(*folder);
    if (const auto file = files.FindFile(spelled))
        return path::FromDisk(*file);
    return spelled;
}

} // namespace Registry
