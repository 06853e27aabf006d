// SPDX-License-Identifier: MIT
#include "app/DropPlan.h"

#include "app/OpenRules.h"
#include "host/GameFiles.h"
#include "install/TypedLocation.h"

#include <map>
#include <string_view>

namespace app {
namespace {

constexpr std::size_t kNamed = 20; ///< paths listed in a message, so that it fits on a screen

std::string paragraph(const std::string &refusal, const std::vector<std::string> &paths)
{
    std::string text = refusal + "\n";
    for (std::size_t i = 0; i < paths.size() && i < kNamed; ++i)
        text += "\n" + paths[i];
    if (paths.size() > kNamed)
        text += "\nand " + std::to_string(paths.size() - kNamed) + " more";
    return text;
}

} // namespace

DropPlan PlanDrop(const std::vector<std::string> &paths, host::GameFiles &files)
{
    DropPlan plan;
    std::map<std::string, std::vector<std::string>> refused; // by reason
    for (const std::string &path : paths) {
        const bool isFolder = files.FolderExists(path);
        const OpenKind kind = isFolder ? OpenKind::Unsupported : KindOf(path);
        if (isFolder && plan.location.empty() && install::HoldsTrains(files, path))
            plan.location = install::FolderTyped(path);
        else if (const std::string refusal = RefusalOf(kind); !refusal.empty())
            refused[refusal].push_back(path);
        else
            plan.files.push_back(path);
    }
    for (const auto &[refusal, names] : refused)
        plan.refusal += (plan.refusal.empty() ? "" : "\n\n") + paragraph(refusal, names);
    return plan;
}

} // namespace app
