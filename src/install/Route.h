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

/// The folder that contains the routes, below the installation folder.
inline constexpr std::string_view kRoutes = "Routes";

/// An installed route.
struct Route
{
    std::string folder; ///< its name below Routes, which identifies it
    /// The name in its route file, with blanks in place of "|", which separates routes in a list
    /// text. "" if the file is missing, unreadable or nameless.
    std::string name;

    friend bool operator==(const Route &, const Route &) = default;
};

/// Returns the installed routes in listing order: the folders below Routes whose names have no ".".
/// Without names, reads no route file and leaves all names "".
std::vector<Route> InstalledRoutes(const Installation &installation, host::GameFiles &files,
                                   bool withNames);

/// Returns how a list shows a route: "folder(name)", or the folder if the route has no name.
std::string ListText(const Route &route);
/// Returns the list texts of the routes, separated by "|".
std::string ListText(const std::vector<Route> &routes);

} // namespace install
