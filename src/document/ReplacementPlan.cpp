// SPDX-License-Identifier: MIT
#include "document/ReplacementPlan.h"

#include "document/ConsistList.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "install/Route.h"

#include <algorithm>
#include <map>
#include <utility>

namespace document {
namespace {

constexpr std::string_view kConsistFiles = ".con", kActivityFiles = ".act";

std::vector<std::string> listed(host::GameFiles &files, const std::string &folder,
                                std::string_view extension, std::vector<std::string> &faults)
{
    if (files.IsClosed(folder))
        faults.push_back(folder + ": this folder cannot be listed");
    return files.ListFiles(folder, '*' + std::string(extension));
}

/// Returns "5 consists", "1 activity" or "5 consists and 1 activity".
std::string countedFiles(std::size_t consists, std::size_t activities)
{
    std::string text;
    if (consists > 0 || activities == 0)
        text = host::Counted(consists, "consist", "consists");
    if (activities > 0)
        text += (text.empty() ? "" : " and ") + host::Counted(activities, "activity", "activities");
    return text;
}

} // namespace

std::vector<SearchedFile> FilesToSearch(const install::Installation &installation,
                                        host::GameFiles &files, std::vector<std::string> &faults)
{
    std::vector<SearchedFile> found;
    const std::string consists = installation.PathOf(kConsists);
    for (const std::string &name : listed(files, consists, kConsistFiles, faults))
        found.push_back({host::path::Join(consists, name),
                         name.substr(0, name.size() - kConsistFiles.size()), false});
    const std::string routes = installation.PathOf(install::kRoutes);
    if (files.IsClosed(routes))
        faults.push_back(routes + ": this folder cannot be listed");
    for (const install::Route &route : install::InstalledRoutes(installation, files, false)) {
        const std::string folder =
            host::path::Join(host::path::Join(routes, route.folder), "Activities");
        for (const std::string &name : listed(files, folder, kActivityFiles, faults))
            found.push_back({host::path::Join(folder, name), route.folder + '/' + name, true});
    }
    return found;
}

std::size_t ReplacementPlan::File::ChosenUnits() const
{
    return static_cast<std::size_t>(std::count(chosen.begin(), chosen.end(), true));
}

ReplacementPlan::ReplacementPlan(install::StockItem from, const std::vector<SearchedFile> &searched,
                                 FoundInUse found)
    : m_from(std::move(from))
    , m_faults(std::move(found.faults))
{
    auto file = searched.begin();
    for (FileInUse &inUse : found.files) {
        while (file->path != inUse.path)
            ++file; // both lists have the same order
        std::vector<bool> chosen(inUse.units.size(), !file->isActivity);
        m_files.push_back({file->name, file->isActivity, std::move(inUse), std::move(chosen), {}});
        m_consists += file->isActivity ? 0 : 1;
    }
}

void ReplacementPlan::Choose(std::size_t file, std::size_t unit, bool chosen)
{
    if (m_files[file].blocked.empty())
        m_files[file].chosen[unit] = chosen;
}

void ReplacementPlan::Choose(std::size_t file, bool chosen)
{
    if (m_files[file].blocked.empty())
        m_files[file].chosen.assign(m_files[file].chosen.size(), chosen);
}

void ReplacementPlan::Block(std::size_t file, std::string reason)
{
    if (!reason.empty())
        Choose(file, false);
    m_files[file].blocked = std::move(reason);
}

void ReplacementPlan::ChooseAsIn(const ReplacementPlan &earlier)
{
    std::map<std::string, const File *> before;
    for (const File &file : earlier.m_files)
        before.emplace(file.found.path, &file);
    for (File &file : m_files) {
        const auto same = before.find(file.found.path);
        // Units that were blocked had not been unticked by the user.
        if (same == before.end() || !same->second->blocked.empty())
            continue;
        if (same->second->found.bytes == file.found.bytes)
            file.chosen = same->second->chosen;
        else
            file.chosen.assign(file.chosen.size(),
                               same->second->ChosenUnits() == same->second->chosen.size());
    }
}

std::size_t ReplacementPlan::ChosenUnits() const
{
    std::size_t count = 0;
    for (const File &file : m_files)
        count += file.ChosenUnits();
    return count;
}

std::string ReplacementPlan::Summary() const
{
    std::size_t units = 0, chosen = 0, consists = 0, activities = 0;
    for (const File &file : m_files) {
        const std::size_t inFile = file.ChosenUnits();
        units += file.found.units.size();
        chosen += inFile;
        if (inFile > 0)
            ++(file.isActivity ? activities : consists);
    }
    if (units == 0)
        return "No consist and no activity uses " + VehicleText(m_from) + '.';
    if (chosen == 0)
        return "None of " + host::Counted(units, "unit", "units") + " is ticked.";
    return (chosen < units ? std::to_string(chosen) + " of " : std::string()) +
           host::Counted(units, "unit", "units") + " in " + countedFiles(consists, activities) +
           " will change.";
}

std::vector<host::FileChange> ReplacementPlan::Changes(host::GameFiles &files,
                                                       const install::StockItem &to) const
{
    const StockReplacement replacement(files, m_from, to);
    std::vector<host::FileChange> changes;
    for (const File &file : m_files) {
        if (file.ChosenUnits() == 0)
            continue;
        host::FileChange change = replacement.ChangeOf(file.found, file.chosen);
        if (change.after != change.before)
            changes.push_back(std::move(change));
    }
    return changes;
}

std::string ReplacementTitle(const install::StockItem &from, const install::StockItem &to)
{
    return "Replace " + VehicleText(from) + " by " + VehicleText(to);
}

} // namespace document
