// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace app {

/// The file that a command line names, "" for none. The whole line, without the blanks around it,
/// is one path. Quotes around all of it are removed, unless a file has them in its name.
std::string FileGivenBy(std::string_view commandLine, host::GameFiles &files);

/// The command line without the options that the toolkit has taken out of argv; `given` is the
/// number of arguments that the program was started with.
std::string CommandLineAfterToolkit(int given, int argc, char **argv);

} // namespace app
