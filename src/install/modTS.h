// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
}
namespace install {
class Installation;
}

namespace modTS {

/// Creates a block of this name, appends it to the list and returns it.
StfNode AddNode(StfNodes nodes, std::string_view name);
/// Creates a block of this name with values, appends it to the list and returns it.
StfNode AddNode(StfNodes nodes, std::string_view name, const std::vector<std::string> &values);

/// Fills an empty document with the tree of a new file of this extension (letter case ignored).
/// Only "con" has such a tree; for other extensions the document stays empty.
void NewDocumentTemplate(StfFile &file, std::string_view extension);

/// Returns the list text (install/Route.h) of the installed routes: the folders or, with names,
/// "folder(name)", separated by "|".
std::string RoutesList(const install::Installation &installation, host::GameFiles &files,
                       bool withNames);

} // namespace modTS
