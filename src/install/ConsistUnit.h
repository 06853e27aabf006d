// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>
#include <string_view>

namespace install {

/// A stock item by its three list columns.
struct StockItem
{
    std::string type; ///< "Engine" or "Wagon"; in a list of a consist "*" is appended when flipped
    std::string folder; ///< below Trains\Trainset
    std::string shape;  ///< base name of the .eng or .wag file

    friend bool operator==(const StockItem &, const StockItem &) = default;
};

/// The path of a stock item's file below an installation folder: its extension is the first three
/// letters of the type in lower case.
std::string StockPath(std::string_view installFolder, const StockItem &item);

/// The alternatives for FindChild that lead from unit to unit of a train.
inline constexpr const char *kUnitBlocks = "Engine|Wagon";

/// One unit of a train, as its block in TrainCfg says it.
struct ConsistUnit
{
    StockItem item;
    bool flipped = false;
};

/// Error 91 with the line when the block has no data block of its own name.
ConsistUnit UnitOf(const StfNode &entry);

} // namespace install
