// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
}
namespace install {
class Installation;
}

namespace document {

/// The folder that contains the consists, below the installation folder.
inline constexpr std::string_view kConsists = "Trains/Consists";

/// Returns the names of the installed consists that match the filter (host/Filter.h), in listing
/// order; none if the consist folder is missing.
std::vector<std::string> ListConsists(const install::Installation &installation,
                                      host::GameFiles &files, std::string_view filter);

/// Returns the folder of the installed consists as the disk spells it, in which file dialogs open;
/// "" if there is none.
std::string ConsistFolder(const install::Installation &installation, host::GameFiles &files);

/// What an empty list shows: why it has no names, and what the user can do.
struct EmptyListNote
{
    std::string text;
    bool concernsLocation = false; ///< another installation folder may help
};
EmptyListNote EmptyListHint(const install::Installation &installation, host::GameFiles &files,
                            std::string_view filter);

/// Returns the caption "Consist List 2", or "Consist List 2 (Filtered on GP*)" if the filter limits
/// the list.
std::string ConsistListCaption(int windowNumber, std::string_view filter);

} // namespace document
