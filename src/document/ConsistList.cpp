// SPDX-License-Identifier: MIT
#include "document/ConsistList.h"

#include "host/Filter.h"
#include "host/GameFiles.h"
#include "install/Installation.h"

namespace document {

std::vector<std::string> ListConsists(const install::Installation &installation,
                                      host::GameFiles &files, std::string_view filter)
{
    constexpr std::size_t kExtension = 4; // ".con"
    std::vector<std::string> names;
    for (std::string &name : files.ListFiles(installation.PathOf("Trains/Consists"), "*.con")) {
        name.resize(name.size() - kExtension);
        if (host::MatchesFilter(name, filter))
            names.push_back(std::move(name));
    }
    return names;
}

std::string ConsistListCaption(int windowNumber, std::string_view filter)
{
    std::string caption = "Consist List " + std::to_string(windowNumber);
    if (!filter.empty() && filter != "*")
        caption += " (Filtered on " + std::string(filter) + ')';
    return caption;
}

} // namespace document
