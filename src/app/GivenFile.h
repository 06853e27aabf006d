// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace app {

/// Returns the file that a command line names, or "". The whole line, without the blanks around it,
/// is one path. Quotes around the whole path are removed, unless a file has them in its name.
std::string FileGivenBy(std::string_view commandLine, host::GameFiles &files);

} // namespace app
