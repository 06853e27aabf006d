// SPDX-License-Identifier: MIT
#include "host/Listings.h"

#include "host/Filter.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <set>

namespace host {
namespace {

template <typename Entry> Entry entryOf(disk::ListedName &&listed)
{
    Entry entry;
    entry.kind = listed.kind;
    entry.name = std::move(listed.name);
    if (!IsValidUtf8(entry.name)) {
        entry.onDisk = std::move(entry.name);
        entry.name = FromWindows1252(entry.onDisk);
    }
    entry.key = ToUpper(entry.name);
    return entry;
}

template <typename Folder> std::shared_ptr<const Folder> read(const std::string &path)
{
    using Entry = typename decltype(Folder::entries)::value_type;
    std::optional<disk::Listing> listing = disk::List(path);
    if (!listing)
        return nullptr;
    std::vector<Entry> entries;
    std::vector<std::pair<std::string_view, Entry *>> sorted; // entries are large to move
    entries.reserve(listing->names.size());
    sorted.reserve(listing->names.size());
    for (disk::ListedName &listed : listing->names) {
        Entry &entry = entries.emplace_back(entryOf<Entry>(std::move(listed)));
        sorted.emplace_back(entry.key, &entry);
    }
    std::sort(sorted.begin(), sorted.end(), [](const auto &a, const auto &b) {
        const int order = CompareCodeUnits(a.first, b.first);
        return order != 0 ? order < 0 : a.second->name < b.second->name;
    });
    auto folder = std::make_shared<Folder>();
    folder->stamp = listing->stamp;
    folder->marked = listing->marked;
    folder->settled = listing->settled;
    folder->entries.reserve(sorted.size());
    for (const auto &[key, entry] : sorted)
        folder->entries.push_back(std::move(*entry));
    return folder;
}

} // namespace

std::shared_ptr<const GameFiles::Listings::Folder>
GameFiles::Listings::Get(const std::string &folder)
{
    std::shared_ptr<const Folder> known;
    {
        const std::lock_guard lock(m_mutex);
        if (const auto found = m_folders.find(folder); found != m_folders.end())
            known = found->second;
    }
    if (known && known->settled && disk::StampOf(folder) == known->stamp)
        return known;
    std::shared_ptr<const Folder> fresh = read<Folder>(folder);
    const std::lock_guard lock(m_mutex);
    if (fresh)
        m_folders.insert_or_assign(folder, fresh);
    else
        m_folders.erase(folder);
    return fresh;
}

std::vector<std::string> GameFiles::Listings::Matches(const std::string &folder,
                                                      const std::string &name, disk::Kind kind)
{
    return MatchesIn(Get(folder).get(), folder, name, kind);
}

std::pair<GameFiles::Listings::Place, GameFiles::Listings::Place>
GameFiles::Listings::Named(const Folder &listing, const std::string &name)
{
    const std::string key = ToUpper(IsValidUtf8(name) ? name : FromWindows1252(name));
    const auto first = std::lower_bound(listing.entries.begin(), listing.entries.end(), key,
                                        [](const Entry &left, const std::string &right) {
                                            return CompareCodeUnits(left.key, right) < 0;
                                        });
    return {first, std::find_if(first, listing.entries.end(),
                                [&](const Entry &entry) { return entry.key != key; })};
}

std::vector<std::string> GameFiles::Listings::MatchesIn(const Folder *listing,
                                                        const std::string &folder,
                                                        const std::string &name, disk::Kind kind)
{
    std::vector<std::string> paths;
    if (!listing) { // a folder that cannot be listed may still open a known name
        std::string exact = disk::Join(folder, name);
        if (disk::KindOf(exact) == kind)
            paths.push_back(std::move(exact));
        return paths;
    }
    for (auto [entry, end] = Named(*listing, name); entry != end; ++entry) {
        if (KindOf(folder, *entry) != kind)
            continue;
        const bool exact = entry->DiskName() == name;
        paths.insert(exact ? paths.begin() : paths.end(), disk::Join(folder, entry->DiskName()));
    }
    return paths;
}

std::vector<std::string> GameFiles::Listings::Folders(const std::string &root,
                                                      const std::vector<std::string> &names)
{
    std::vector<std::string> folders = {root};
    if (disk::kIgnoresCase) { // one query instead of one for each component
        for (const std::string &name : names)
            folders.front() = disk::Join(folders.front(), name);
        if (disk::KindOf(folders.front()) != disk::Kind::Folder)
            folders.clear();
        return folders;
    }
    for (const std::string &name : names) {
        std::vector<std::string> next;
        for (const std::string &folder : folders)
            for (std::string &match : Matches(folder, name, disk::Kind::Folder))
                next.push_back(std::move(match));
        folders = std::move(next);
    }
    return folders;
}

std::vector<std::string> GameFiles::Listings::NamesIn(const std::vector<Listed> &folders,
                                                      std::string_view pattern, disk::Kind wanted)
{
    std::vector<std::string> names;
    const std::string upperPattern = ToUpper(pattern);
    std::set<std::string> earlier, here; // upper-case names in earlier folders, and in this one
    for (const auto &[path, listing] : folders) {
        if (!listing)
            continue;
        for (const Entry &entry : listing->entries) {
            if (!MatchesUpperDosPattern(entry.key, upperPattern) || KindOf(path, entry) != wanted ||
                earlier.contains(entry.key))
                continue;
            names.push_back(entry.name);
            if (folders.size() > 1)
                here.insert(entry.key);
        }
        earlier.merge(here);
        here.clear();
    }
    if (folders.size() > 1)
        std::sort(names.begin(), names.end(), ListsBefore);
    return names;
}

void GameFiles::Listings::Forget(const std::string &folder)
{
    const std::lock_guard lock(m_mutex);
    m_folders.erase(folder);
}

void GameFiles::Listings::Clear()
{
    const std::lock_guard lock(m_mutex);
    m_folders.clear();
}

disk::Kind GameFiles::Listings::KindOf(const std::string &folder, const Entry &entry)
{
    if (entry.kind != disk::Kind::Link)
        return entry.kind;
    return disk::KindOf(disk::Join(folder, entry.DiskName()));
}

} // namespace host
