// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {
class GameFiles;
}

namespace app {

/// The outcome of dropping files and folders.
struct DropPlan
{
    std::string location;           ///< an installation folder to offer as the location, or ""
    std::vector<std::string> files; ///< to open, in the order of the drop
    std::string refusal;            ///< one message that names all other paths, or ""
};

/// Plans a drop. The first installation folder is the location; other folders are refused like
/// unknown files.
DropPlan PlanDrop(const std::vector<std::string> &paths, host::GameFiles &files);

} // namespace app
