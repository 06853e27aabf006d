// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace viewer {

/// Returns the TrainCfg block of each loose consist of an activity file, in file order; an empty
/// node for a consist without one. Throws RuntimeError like StfFile::Load, 91 with the file's name
/// if the activity has no list of loose consists, 6 if 16 bits cannot count them.
std::vector<StfNode> ReadLooseConsists(host::GameFiles &files, const std::string &activity);

/// Returns one of them, counted from 1. Throws error 9 outside the list, 91 if it has no train.
StfNode LooseConsistAt(host::GameFiles &files, const std::string &activity, int number);

} // namespace viewer
