// SPDX-License-Identifier: MIT
#include "document/ConsistList.h"

#include "host/Filter.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/Installation.h"

namespace document {

std::vector<std::string> ListConsists(const install::Installation &installation,
                                      host::GameFiles &files, std::string_view filter)
{
    constexpr std::size_t kExtension = 4; // ".con"
    std::vector<std::string> names;
    for (std::string &name : files.ListFiles(installation.PathOf(kConsists), "*.con")) {
        name.resize(name.size() - kExtension);
        if (host::MatchesFilter(name, filter))
            names.push_back(std::move(name));
    }
    return names;
}

std::string ConsistFolder(const install::Installation &installation, host::GameFiles &files)
{
    const auto folder = files.FindFolder(installation.PathOf(kConsists));
    return folder ? host::path::FromDisk(*folder) : std::string();
}

EmptyListNote EmptyListHint(const install::Installation &installation, host::GameFiles &files,
                            std::string_view filter)
{
    if (installation.CurrentFolder().empty())
        return {"Where is Train Simulator?\n\nChoose the folder that holds its folders Trains and "
                "Routes.",
                true};
    const std::string folder = host::path::Normalise(installation.PathOf(kConsists));
    if (!files.FolderExists(folder))
        return {"No installation of Train Simulator was found: there is no folder\n" + folder,
                true};
    if (files.IsClosed(folder))
        return {"You may not read the folder\n" + folder, true};
    if (!host::MatchesEverything(filter))
        return {"No consist matches the filter " + std::string(filter) +
                    "\n\nView > Filter changes it.",
                false};
    return {"There are no consists in\n" + folder + "\n\nFile > New > Consist makes one.", true};
}

std::string ConsistListCaption(int windowNumber, std::string_view filter)
{
    std::string caption = "Consist List " + std::to_string(windowNumber);
    if (!filter.empty() && filter != "*")
        caption += " (Filtered on " + std::string(filter) + ')';
    return caption;
}

} // namespace document
