// SPDX-License-Identifier: MIT
#include "install/TypedLocation.h"

#include "host/Disk.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"

namespace install {
namespace {

bool holds(host::GameFiles &files, std::string_view folder, const char *name)
{
    return files.FolderExists(host::path::Join(folder, name));
}

/// Returns the folder that a text would select as the location.
std::string folderMeant(std::string_view typed)
{
    Installation installation;
    installation.SetLocation(FolderTyped(typed));
    return installation.CurrentFolder();
}

} // namespace

std::string FolderTyped(std::string_view typed)
{
    std::string folder(typed);
    if (typed == "~" || (typed.starts_with('~') && host::IsSeparator(typed[1])))
        folder = host::HomeFolder().append(typed.substr(1));
    while (folder.size() > host::disk::RootLength(folder) && host::IsSeparator(folder.back()))
        folder.pop_back();
    return folder;
}

bool HoldsTrains(host::GameFiles &files, std::string_view folder)
{
    return holds(files, folder, "Trains");
}

std::string LocationHint(host::GameFiles &files, std::string_view typed)
{
    const std::string folder = folderMeant(typed);
    if (host::TrimBlanks(typed).empty() || folder.empty())
        return folder.empty() ? "No folder is chosen. Choose the one that holds Trains and Routes."
                              : "No folder is chosen. The registered one will be used.";
    if (!files.FolderExists(folder))
        return "This folder is not found.";
    if (HoldsTrains(files, folder))
        return holds(files, folder, "Routes") ? "This folder holds Trains and Routes, as it should."
                                              : "This folder holds Trains, but no Routes.";
    if (host::EqualsNoCase(host::path::FileName(folder), "Trains") ||
        holds(files, folder, "Trainset"))
        return "This is the Trains folder itself. Choose the folder above it.";
    return "There is no Trains in this folder. Choose the folder that holds Trains and Routes.";
}

} // namespace install
