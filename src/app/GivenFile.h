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

} // namespace app
