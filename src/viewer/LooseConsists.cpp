// SPDX-License-Identifier: MIT
#include "viewer/LooseConsists.h"

#include "install/Train.h"

#include <cstdint>
#include <limits>

using host::ErrorNumber;
using host::RuntimeError;

namespace viewer {
namespace {

/// Returns the first block of the item's Train_Config; an empty node if there is none.
StfNode trainOf(const StfNode &item)
{
    const StfNode config = item.Child(install::kTrainConfig);
    return config ? config.Children().First() : StfNode();
}

} // namespace

std::vector<StfNode> ReadLooseConsists(host::GameFiles &files, const std::string &activity)
{
    const StfNodes items = StfFile::Read(files, activity)
                               .Require("Tr_Activity")
                               .Require("Tr_Activity_File")
                               .Require("ActivityObjects")
                               .Children();
    if (items.Count() > std::numeric_limits<std::int16_t>::max())
        throw RuntimeError(ErrorNumber::Overflow, activity + ": too many loose consists");
    std::vector<StfNode> trains;
    for (const StfNode item : items)
        trains.push_back(trainOf(item));
    return trains;
}

StfNode LooseConsistAt(host::GameFiles &files, const std::string &activity, int number)
{
    const std::vector<StfNode> trains = ReadLooseConsists(files, activity);
    if (number < 1 || static_cast<std::size_t>(number) > trains.size())
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange, activity + ": loose consist " +
                                                                 std::to_string(number) + " of " +
                                                                 std::to_string(trains.size()));
    const StfNode &train = trains[static_cast<std::size_t>(number - 1)];
    if (!train)
        throw RuntimeError(ErrorNumber::ObjectNotSet,
                           activity + ": there is no " + install::kTrainConfig + " block");
    return train;
}

} // namespace viewer
