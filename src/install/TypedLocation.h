// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace install {

/// The folder that a typed text means: "~" at its beginning is the user's home folder, and
/// separators at its end are dropped (except those of a root). Other text is taken as it is.
std::string FolderTyped(std::string_view typed);

/// True for an installation folder: it holds a folder "Trains".
bool HoldsTrains(host::GameFiles &files, std::string_view folder);

/// One sentence for the user: what is wrong with a typed location, or that nothing is.
std::string LocationHint(host::GameFiles &files, std::string_view typed);

} // namespace install
