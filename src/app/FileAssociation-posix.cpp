// SPDX-License-Identifier: MIT
#include "app/FileAssociation.h"

#include "app/DesktopFiles.h"
#include "host/Disk.h"
#include "host/Folders.h"
#include "host/IniFile.h"
#include "host/Replace.h"
#include "host/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char **environ;

namespace app {
namespace {

namespace disk = host::disk;
using host::ErrorNumber;
using host::RuntimeError;

constexpr char kInstalledEntry[] = "zelk.desktop";   ///< the package's
constexpr char kOwnEntry[] = "zelk-consist.desktop"; ///< ours, under a name that users hardly use
constexpr char kType[] = "application/x-msts-consist";
constexpr char kDefaults[] = "Default Applications";
constexpr char kDefaultsHead[] = "[Default Applications]\n";
constexpr std::uint64_t kLimit = 16u << 20; ///< desktops keep a few kilobytes in such files

std::string typeFile()
{
    return host::DataFolder() + "/mime/packages/zelk-consist.xml";
}
std::string entryFile()
{
    return host::DataFolder() + "/applications/" + kOwnEntry;
}
std::string defaultsFile()
{
    return host::ConfigFolder() + "/mimeapps.list";
}

void check(const std::string &file, const std::optional<disk::Failure> &failure)
{
    if (failure)
        throw RuntimeError(failure->number, file + ": " + failure->reason);
}

void write(const std::string &file, std::string_view text)
{
    check(file, disk::MakeFolders(file.substr(0, file.rfind('/'))));
    check(file, disk::Replace(file, text));
}

/// True if an operation failed only because the file does not exist.
bool isMissing(const std::optional<disk::Failure> &failure)
{
    return failure && (failure->number == ErrorNumber::FileNotFound ||
                       failure->number == ErrorNumber::PathNotFound);
}

/// Returns true if the file existed.
bool remove(const std::string &file)
{
    const auto failure = disk::Remove(file);
    if (isMissing(failure))
        return false;
    check(file, failure);
    return true;
}

/// Runs a tool of the desktop, which may be missing, and waits until it ends. Hides its output.
void runTool(std::string tool, std::string argument)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    const std::array<char *, 3> command = {tool.data(), argument.data(), nullptr};
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, tool.c_str(), &actions, nullptr, command.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error == ENOENT)
        return;
    int status = 0;
    while (error == 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (error != 0 || status != 0)
        throw RuntimeError(ErrorNumber::InvalidCall, tool + " does not take in " + argument);
}

/// Makes the desktop rebuild its caches of the files in these folders.
void tellDesktop()
{
    runTool("update-mime-database", host::DataFolder() + "/mime");
    runTool("update-desktop-database", host::DataFolder() + "/applications");
}

/// Returns the path as an argument in an entry's command line.
std::string asArgument(std::string_view program)
{
    std::string text = "\"";
    for (const char c : program) {
        if (c == '"' || c == '`' || c == '$')
            text += "\\\\"; // an escape in the argument, escaped again as in all texts of an entry
        else if (c == '\\')
            text += "\\\\\\";
        else if (c == '%')
            text += '%';
        text += c;
    }
    return text + '"';
}

/// Returns a text as an entry stores it.
std::string asText(std::string_view text)
{
    std::string out;
    for (const char c : text)
        out += c == '\\' ? std::string("\\\\") : std::string(1, c);
    return out;
}

/// Returns the share folder of a program in a "bin": "/opt/zelk/share" for "/opt/zelk/bin/zelk". A
/// "\" is not a separator here.
std::filesystem::path shareOf(const std::filesystem::path &program)
{
    return program.parent_path().parent_path() / "share";
}

/// True if the desktop finds the entry that was installed with this program.
bool isInstalled(const std::string &program)
{
    const std::filesystem::path share = shareOf(program);
    const std::string named = host::Environment("XDG_DATA_DIRS");
    const auto folders = host::Split(named.empty() ? "/usr/local/share:/usr/share" : named, ':');
    return std::any_of(folders.begin(), folders.end(), [&](const std::string &folder) {
        return std::filesystem::path(folder + '/').lexically_normal().parent_path() == share &&
               disk::KindOf(folder + "/applications/" + kInstalledEntry) == disk::Kind::File;
    });
}

std::string ownEntry(const std::string &program)
{
    static constexpr char kGroup[] = "Desktop Entry";
    host::IniFile entry = host::IniFile::FromText(kDesktopEntry);
    entry.SetValue(kGroup, "Exec", asArgument(program) + " %f");
    entry.SetValue(kGroup, "TryExec", asText(program));
    const std::filesystem::path icon = shareOf(program) / "icons/hicolor/256x256/apps/zelk.png";
    if (disk::KindOf(icon.native()) == disk::Kind::File)
        entry.SetValue(kGroup, "Icon", asText(icon.native()));
    entry.SetValue(kGroup, "NoDisplay", "true"); // the user has not asked for a menu entry
    return entry.ToText();
}

bool isOurs(const std::string &entry)
{
    return entry.empty() || entry == kInstalledEntry || entry == kOwnEntry;
}

/// Puts an entry before the user's own choices for consist files; with "", only removes ours.
void setDefault(const std::string &entry)
{
    const std::string file = defaultsFile();
    std::string text;
    if (const auto unread = disk::Read(file, kLimit, text); !isMissing(unread))
        check(file, unread); // so that the user's choices are kept
    host::IniFile defaults = host::IniFile::FromText(text);
    const std::string before = defaults.Value(kDefaults, kType).value_or("");
    std::vector<std::string> entries = host::Split(before, ';');
    std::erase_if(entries, isOurs);
    std::string value = entry;
    for (const std::string &other : entries)
        value += (value.empty() ? "" : ";") + other;
    if (value == before)
        return;
    if (value.empty())
        defaults.RemoveValue(kDefaults, kType);
    else
        defaults.SetValue(kDefaults, kType, value);
    if (const std::string now = defaults.ToText(); now == kDefaultsHead)
        remove(file);
    else
        write(file, now);
}

/// Throws for a path that cannot be in an entry; desktops interpret "=" as an environment setting.
void checkName(const std::string &program)
{
    const auto isBad = [](char c) { return c == '=' || (c >= 0 && c < ' '); };
    if (!program.starts_with('/') || std::any_of(program.begin(), program.end(), isBad) ||
        !host::IsValidUtf8(program))
        throw RuntimeError(ErrorNumber::InvalidCall,
                           program + ": desktops cannot start a program of this name");
}

/// Returns true if any file existed.
bool removeOwnFiles()
{
    const bool hadType = remove(typeFile());
    return remove(entryFile()) || hadType;
}

} // namespace

void AssociateConsistFiles(const std::string &program)
{
    checkName(program);
    const bool installed = isInstalled(program);
    if (!installed) {
        write(typeFile(), kConsistType);
        write(entryFile(), ownEntry(program));
    }
    if (!installed || removeOwnFiles())
        tellDesktop();
    setDefault(installed ? kInstalledEntry : kOwnEntry);
}

void DissociateConsistFiles()
{
    setDefault({});
    if (removeOwnFiles())
        tellDesktop();
}

} // namespace app
