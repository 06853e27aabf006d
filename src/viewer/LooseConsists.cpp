// SPDX-License-Identifier: MIT
#include "viewer/LooseConsists.h"

#include "stavfile/StfFile.h"

#include <cstdint>
#include <limits>

using host::ErrorNumber;
using host::RuntimeError;

namespace viewer {
namespace {

StfNode required(const StfNode &node, const char *name, const std::string &path)
{
    if (!node)
        throw RuntimeError(ErrorNumber::ObjectNotSet, path + ": there is no " + name + " block");
    return node;
}

/// Returns the first block of the item's Train_Config; an empty node if there is none.
StfNode trainOf(const StfNode &item)
{
    const StfNode config = item.Child("Train_Config");
    return config && config.Children().Count() > 0 ? config.Children().Item(1) : StfNode();
}

} // namespace

std::vector<StfNode> ReadLooseConsists(host::GameFiles &files, const std::string &activity)
{
    StfFile document(files);
    document.SetFileName(activity);
    document.Load();
    const StfNode top = required(document.FindNode("tr_activity"), "Tr_Activity", activity);
    const StfNode file = required(top.Child("Tr_Activity_File"), "Tr_Activity_File", activity);
    const StfNodes items =
        required(file.Child("ActivityObjects"), "ActivityObjects", activity).Children();
    if (items.Count() > std::numeric_limits<std::int16_t>::max())
        throw RuntimeError(ErrorNumber::Overflow, activity + ": too many loose consists");
    std::vector<StfNode> trains;
    for (int i = 1; i <= items.Count(); ++i)
        trains.push_back(trainOf(items.Item(i)));
    return trains;
}

StfNode LooseConsistAt(host::GameFiles &files, const std::string &activity, int number)
{
    const std::vector<StfNode> trains = ReadLooseConsists(files, activity);
    if (number < 1 || static_cast<std::size_t>(number) > trains.size())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange, activity + ": loose consist " +
                                                                 std::to_string(number) + " of " +
                                                                 std::to_string(trains.size()));
    return required(trains[static_cast<std::size_t>(number - 1)], "Train_Config", activity);
}

} // namespace viewer
