// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The folders and places of this machine, as UTF-8 paths without a trailing separator.
namespace host {

/// The value of an environment variable, "" when unset.
std::string Environment(const char *name);
std::string HomeFolder();
/// $XDG_CONFIG_HOME, $XDG_DATA_HOME, $XDG_STATE_HOME with their defaults under the home folder.
std::string ConfigFolder();
std::string DataFolder();
std::string StateFolder();
/// The folders in which the machine's configuration is looked for: ConfigFolder() first, then
/// $XDG_CONFIG_DIRS (default "/etc/xdg").
std::vector<std::string> ConfigFolders();

/// The folder that holds the running executable.
std::string ExecutableFolder();
/// Where the scratch consist, default log names and the association file go: the executable's
/// folder when it is writable, else the user's data folder & "/zelk" (made when missing).
std::string ProgramFolder();
/// `preferred` when files can be made in it, else `otherwise` (made when missing).
std::string WritableFolder(const std::string &preferred, const std::string &otherwise);

/// A place at which a folder dialog may start: a mounted volume (a drive on Windows).
struct Volume
{
    std::string path;  ///< "/", "/media/usb", "C:\"
    std::string label; ///< what the drive list shows
};
/// The mounted volumes that hold files of the user, "/" first; pseudo file systems are left out.
std::vector<Volume> Volumes();
/// The same from a table of mounts: lines of device, folder, type and more, with blanks between
/// and octal escapes (\040) within.
std::vector<Volume> VolumesFromMounts(std::string_view mounts);

/// The trace log file: zelk.log in the user's state folder & "/zelk".
std::string TraceLogFile();
/// Appends one line, "hh:mm:ss " and the text; opened and closed for every line. Failures to
/// write are swallowed.
void AppendTraceLine(std::string_view text);

} // namespace host
