// SPDX-License-Identifier: MIT
#pragma once

#include "host/Filter.h"
#include "host/GameFiles.h"
#include "host/Path.h"

#include <string>
#include <string_view>
#include <vector>

namespace install {

/// The folder that contains the stock folders, below the installation folder.
inline constexpr std::string_view kTrainset = "Trains/Trainset";

/// Lists the stock folders: those in the trainset folder whose names have no dot and match the
/// user's filter. `Files` is host::GameFiles or host::Snapshot.
template <typename Files>
std::vector<std::string> StockFolders(Files &files, const std::string &trainset,
                                      std::string_view filter)
{
    std::vector<std::string> folders = files.ListFolders(trainset, "*.");
    std::erase_if(folders,
                  [&](const std::string &name) { return !host::MatchesFilter(name, filter); });
    return folders;
}

/// Lists the stock files of a stock folder: those whose extension has three characters and ends in
/// g.
template <typename Files>
std::vector<std::string> StockFiles(Files &files, const std::string &trainset,
                                    const std::string &folder)
{
    return files.ListFiles(host::path::Join(trainset, folder), "*.??g");
}

} // namespace install
