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

/// Where routes are, below the installation folder.
inline constexpr std::string_view kRoutes = "Routes";

/// An installed route.
struct Route
{
    std::string folder; ///< its name below Routes, which identifies it
    /// From its route file, with blanks in place of "|", which separates routes in a list text. ""
    /// when the file is missing, unreadable or names nothing.
    std::string name;

    friend bool operator==(const Route &, const Route &) = default;
};

/// The installed routes in listing order: the folders below Routes whose names have no ".". Without
/// names, no route file is read and all names are "".
std::vector<Route> InstalledRoutes(const Installation &installation, host::GameFiles &files,
                                   bool withNames);

/// How a list shows a route: "folder(name)", or the folder of a route without a name.
std::string ListText(const Route &route);
/// All of them, separated by "|".
std::string ListText(const std::vector<Route> &routes);

} // namespace install
