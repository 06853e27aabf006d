// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>
#include <string_view>
#include <vector>

namespace host {
class GameFiles;
}

/// Units of trains on their way through the clipboard.
namespace document {

class ConsistTree;

/// Copied units in both forms.
struct CopiedUnits
{
    /// A structured file with a train of the whole blocks of the units, for UnitsInBlocks.
    std::string blocks;
    /// A line for each unit, for people and for UnitsInText: "Boxcars/box.wag", with ", flipped" if
    /// it is turned round.
    std::string text;
};

/// Copies the units of these rows, which count from 1 and must exist.
CopiedUnits CopyUnits(const ConsistTree &consist, const std::vector<int> &rows,
                      host::GameFiles &files);

/// Return the units in a form of CopiedUnits, ready for ConsistTree::Paste. Return nothing if any
/// part of the content is something else. Content may come from other programs.
std::vector<StfNode> UnitsInBlocks(std::string bytes, host::GameFiles &files);
std::vector<StfNode> UnitsInText(std::string_view text);

/// Returns a unit of this kind ("Engine" or "Wagon") with the blocks that Add writes.
StfNode NewUnit(const std::string &kind, const std::string &shape, const std::string &folder);

} // namespace document
