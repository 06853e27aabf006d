// SPDX-License-Identifier: MIT
#include "install/Route.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/Installation.h"
#include "stavfile/StfFile.h"

#include <algorithm>

namespace install {
namespace {

namespace path = host::path;

std::string nameIn(host::GameFiles &files, const std::string &routeFile)
{
    std::string name;
    try {
        const StfNode block = StfFile::Read(files, routeFile).FindNode("Tr_RouteFile");
        name = stavfile::JoinedValues(stavfile::ChildOf(block, "Name"));
    } catch (const host::RuntimeError &) {
        return {}; // a route with an unreadable file can still be chosen by its folder
    }
    std::replace(name.begin(), name.end(), '|', ' ');
    return name;
}

} // namespace

std::vector<Route> InstalledRoutes(const Installation &installation, host::GameFiles &files,
                                   bool withNames)
{
    const std::string parent = installation.PathOf(kRoutes);
    std::vector<Route> routes;
    for (std::string &folder : files.ListFolders(parent)) {
        if (folder.find('.') != std::string::npos)
            continue;
        const std::string file = path::Join(path::Join(parent, folder), folder + ".trk");
        std::string name = withNames ? nameIn(files, file) : std::string();
        routes.push_back({std::move(folder), std::move(name)});
    }
    return routes;
}

std::string ListText(const Route &route)
{
    return route.name.empty() ? route.folder : route.folder + '(' + route.name + ')';
}

std::string ListText(const std::vector<Route> &routes)
{
    std::string list;
    for (const Route &route : routes)
        list += (list.empty() ? "" : "|") + ListText(route);
    return list;
}

} // namespace install
