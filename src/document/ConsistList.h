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

/// Where consists lie, below the installation folder.
inline constexpr std::string_view kConsists = "Trains/Consists";

/// Names of the installed consists that match the filter (host/Filter.h), in listing order. Empty
/// when there is no consist folder.
std::vector<std::string> ListConsists(const install::Installation &installation,
                                      host::GameFiles &files, std::string_view filter);

/// The folder of the installed consists as the disk spells it, where file dialogs open; "" when
/// there is none.
std::string ConsistFolder(const install::Installation &installation, host::GameFiles &files);

/// What to tell who sees the list without a name: why there is none, and what to do about it.
std::string EmptyListHint(const install::Installation &installation, host::GameFiles &files,
                          std::string_view filter);

/// "Consist List 2", or "Consist List 2 (Filtered on GP*)" when the filter limits the list.
std::string ConsistListCaption(int windowNumber, std::string_view filter);

} // namespace document
