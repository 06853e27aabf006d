// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace viewer {

/// The loose consists of an activity file, in file order: the TrainCfg block of each, no object for
/// one that has none. RuntimeError as StfFile::Load; 91 with the file's name when the activity has
/// no list of them; 6 for more than 16 bits can count.
std::vector<StfNode> ReadLooseConsists(host::GameFiles &files, const std::string &activity);

/// One of them, counted from 1; error 9 when there are not so many, 91 when it has no train.
StfNode LooseConsistAt(host::GameFiles &files, const std::string &activity, int number);

} // namespace viewer
