// SPDX-License-Identifier: MIT
#include "install/modTS.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"

#include <algorithm>

namespace modTS {
namespace {

namespace path = host::path;

/// The name in a route's file, "" when there is none or the file cannot be read.
std::string routeName(host::GameFiles &files, const std::string &file)
{
    StfFile route(files);
    route.SetFileName(file);
    try {
        route.Load();
    } catch (const host::RuntimeError &) {
        return {}; // a route that cannot be read is still one to choose, by its folder
    }
    const StfNode block = route.FindNode("Tr_RouteFile");
    const StfNode nameBlock = block ? block.Child("Name") : StfNode();
    std::string name;
    for (int i = 0; nameBlock && i < nameBlock.NumParameters(); ++i)
        name += (i == 0 ? "" : " ") + nameBlock.Parameter(i);
    // The list's own separator within a name would make two routes of one.
    std::replace(name.begin(), name.end(), '|', ' ');
    return name;
}

} // namespace

StfNode AddNode(StfNodes nodes, std::string_view name)
{
    StfNode node = StfNode::Create();
    node.SetName(name);
    nodes.Add(node);
    return node;
}

StfNode AddNode(StfNodes nodes, std::string_view name, const std::vector<std::string> &values)
{
    StfNode node = AddNode(std::move(nodes), name);
    node.SetNumParameters(static_cast<int>(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i)
        node.SetParameter(static_cast<int>(i), values[i]);
    return node;
}

void NewDocumentTemplate(StfFile &file, std::string_view extension)
{
    if (!host::EqualsNoCase(extension, "con"))
        return;
    const StfNode train = AddNode(file.TopNodes(), "Train");
    const StfNode config = AddNode(train.Children(), "TrainCfg");
    AddNode(config.Children(), "Name", {"Unknown"});
    AddNode(config.Children(), "MaxVelocity", {"40.00000", "1.00000"});
    // Not the name under which the editor keeps its counter: it has always been spelled so here.
    AddNode(config.Children(), "NextWagonId", {"1"});
    AddNode(config.Children(), "Durability", {"1.0"});
}

std::string RoutesList(const install::Installation &installation, host::GameFiles &files,
                       bool withNames)
{
    const std::string routes = installation.PathOf("Routes");
    std::string list;
    for (const std::string &folder : files.ListFolders(routes)) {
        if (folder.find('.') != std::string::npos)
            continue;
        const std::string file = path::Join(path::Join(routes, folder), folder + ".trk");
        const std::string name = withNames ? routeName(files, file) : std::string();
        list += (list.empty() ? "" : "|") + folder;
        if (!name.empty())
            list += '(' + name + ')';
    }
    return list;
}

} // namespace modTS
