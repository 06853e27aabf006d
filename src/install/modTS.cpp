// SPDX-License-Identifier: MIT
#include "install/modTS.h"

#include "host/Text.h"
#include "install/Route.h"
#include "install/Train.h"

namespace modTS {

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
    const StfNode train = AddNode(file.TopNodes(), install::kTrain);
    const StfNode config = AddNode(train.Children(), install::kTrainCfg);
    AddNode(config.Children(), "Name", {"Unknown"});
    AddNode(config.Children(), "MaxVelocity", {"40.00000", "1.00000"});
    // Deliberately not the name of the editor's counter (NextWagonUID): new files have always had
    // this one.
    AddNode(config.Children(), "NextWagonId", {"1"});
    AddNode(config.Children(), "Durability", {"1.0"});
}

std::string RoutesList(const install::Installation &installation, host::GameFiles &files,
                       bool withNames)
{
    return install::ListText(install::InstalledRoutes(installation, files, withNames));
}

} // namespace modTS
