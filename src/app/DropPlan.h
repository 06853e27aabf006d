// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace app {

/// What a drop of several files and folders leads to.
struct DropPlan
{
    std::string location;           ///< an installation folder to offer as the location, or ""
    std::vector<std::string> files; ///< to open, in the order of the drop
    std::string refusal;            ///< one message that names all the others, or ""
};

/// The first installation folder is the location; other folders are refused like unknown files.
DropPlan PlanDrop(const std::vector<std::string> &paths, host::GameFiles &files);

} // namespace app
