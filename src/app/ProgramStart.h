// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace app {

/// How another program is started on this machine.
struct ProgramStart
{
    std::string program; ///< full path of what the system runs
    std::vector<std::string> arguments;
    std::string folder;     ///< in which it runs: that of the program meant
    std::string winePrefix; ///< for $WINEPREFIX; "" leaves the variable as it is
};

/// How to start a Windows program, given by its game path. Elsewhere than on Windows it is run by
/// Wine, in the prefix in which it lies (the nearest folder above it that has "dosdevices"), or in
/// the user's own when it lies in none; `program` is then "" where Wine is not installed.
/// RuntimeError 53 with the path when there is no such file.
ProgramStart StartOf(host::GameFiles &files, const std::string &path,
                     const std::vector<std::string> &arguments);

} // namespace app
