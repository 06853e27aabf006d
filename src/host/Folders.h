// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The folders of this machine, as UTF-8 paths without a trailing separator.
namespace host {

/// Returns the value of an environment variable, "" if unset.
std::string Environment(const char *name);
std::string HomeFolder();
/// Return $XDG_CONFIG_HOME, $XDG_DATA_HOME, $XDG_STATE_HOME, $XDG_CACHE_HOME with their defaults
/// under the home folder.
std::string ConfigFolder();
std::string DataFolder();
std::string StateFolder();
std::string CacheFolder();
/// Returns the folders to search for the machine's configuration: ConfigFolder() first, then
/// $XDG_CONFIG_DIRS (default "/etc/xdg").
std::vector<std::string> ConfigFolders();

/// Returns the folder that holds the running executable.
std::string ExecutableFolder();
/// Returns the folder of the scratch consist, default log names and the association file: the
/// executable's folder if it is writable, else the user's data folder & "/zelk" (created if
/// missing).
std::string ProgramFolder();
/// Returns `preferred` if files can be created in it, else `otherwise` (created if missing).
std::string WritableFolder(const std::string &preferred, const std::string &otherwise);

/// A starting place for a folder dialog: a mounted volume (a drive on Windows).
struct Volume
{
    std::string path;  ///< "/", "/media/usb", "C:\"
    std::string label; ///< shown in the drive list
};
/// Returns the mounted volumes that hold files of the user, "/" first; leaves out pseudo file
/// systems.
std::vector<Volume> Volumes();
/// Returns the volumes in a table of mounts: lines of device, folder, type and more, with blanks
/// between them and octal escapes (\040) inside.
std::vector<Volume> VolumesFromMounts(std::string_view mounts);

/// Returns the trace log file: zelk.log in the user's state folder & "/zelk".
std::string TraceLogFile();
/// Appends one line, "hh:mm:ss " and the text. Opens and closes the file for every line. Ignores
/// failures to write.
void AppendTraceLine(std::string_view text);

} // namespace host
