// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace app {

/// How to start another program on this machine.
struct ProgramStart
{
    std::string program; ///< full path of the executable that the system runs
    std::vector<std::string> arguments;
    std::string folder;     ///< working directory: the folder of the program to start
    std::string winePrefix; ///< for $WINEPREFIX; "" leaves the variable as it is
};

/// Returns how to start a Windows program, given by its game path. On systems other than Windows,
/// Wine runs it. The prefix is the nearest folder above the program that has "dosdevices", or else
/// the user's own prefix. `program` is "" if Wine is needed and not installed. Throws RuntimeError
/// 53 with the path if there is no such file.
ProgramStart StartOf(host::GameFiles &files, const std::string &path,
                     const std::vector<std::string> &arguments);

} // namespace app
