// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace install {

/// Returns the folder that a typed text means. A leading "~" is the user's home folder. Separators
/// at the end are dropped (except those of a root). Other text stays as it is.
std::string FolderTyped(std::string_view typed);

/// True for an installation folder, which contains a folder "Trains".
bool HoldsTrains(host::GameFiles &files, std::string_view folder);

/// Returns one sentence for the user: what is wrong with a typed location, or that it is correct.
std::string LocationHint(host::GameFiles &files, std::string_view typed);

} // namespace install
