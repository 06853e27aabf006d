// SPDX-License-Identifier: MIT
#include "host/Listings.h"

#include "host/Filter.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <cstdint>
#include <set>

namespace host {
namespace {

/// The texts of an entry, as positions: the memory may move while it grows.
struct Raw
{
    std::size_t onDisk, onDiskSize;
    std::size_t name, nameSize;
    std::size_t key, keySize;
    disk::Kind kind;
};

/// Adds an entry and the texts that differ from each other.
Raw add(std::string &text, std::string_view onDisk, disk::Kind kind)
{
    const std::size_t at = text.size();
    Raw raw{at, onDisk.size(), at, onDisk.size(), at, onDisk.size(), kind};
    text += onDisk;
    std::string shown;
    if (!IsValidUtf8(onDisk)) {
        shown = FromWindows1252(onDisk);
        raw.name = raw.key = text.size();
        raw.nameSize = raw.keySize = shown.size();
        text += shown;
        onDisk = shown;
    }
    const UpperText key(onDisk);
    if (key.View() != onDisk) {
        raw.key = text.size();
        raw.keySize = key.View().size();
        text += key.View();
    }
    return raw;
}

/// Sorts entries by key and then by name. Compares keys piece by piece, as numbers: most keys
/// differ from their neighbours in one piece only.
template <typename Entry> class Sorter
{
public:
    explicit Sorter(std::vector<Entry> &entries)
        : m_sorted(entries.size())
    {
        for (std::size_t i = 0; i < entries.size(); ++i)
            m_sorted[i].entry = &entries[i];
        sort(m_sorted.begin(), m_sorted.end(), 0);
        std::vector<Entry> ordered;
        ordered.reserve(entries.size());
        for (const Place &place : m_sorted)
            ordered.push_back(*place.entry);
        entries = std::move(ordered);
    }

private:
    struct Place
    {
        std::uint64_t piece = 0;
        const Entry *entry = nullptr;
    };
    using At = typename std::vector<Place>::iterator;

    /// Sorts entries whose keys are the same before `from`.
    void sort(At begin, At end, std::size_t from)
    {
        bool isLast = true;
        for (At at = begin; at != end; ++at) {
            const std::string_view key = at->entry->key;
            at->piece = CodeUnitPrefix(key.substr(std::min(from, key.size())));
            isLast = isLast && key.size() <= from;
        }
        if (isLast) {
            std::sort(begin, end,
                      [](const Place &a, const Place &b) { return a.entry->name < b.entry->name; });
            return;
        }
        std::sort(begin, end, [](const Place &a, const Place &b) { return a.piece < b.piece; });
        while (begin != end) {
            const At next = std::find_if(begin, end, [piece = begin->piece](const Place &place) {
                return place.piece != piece;
            });
            if (next - begin > 1)
                sort(begin, next, from + sizeof(std::uint64_t));
            begin = next;
        }
    }

    std::vector<Place> m_sorted;
};

template <typename Folder> std::shared_ptr<const Folder> read(const std::string &path)
{
    const auto folder = std::make_shared<Folder>();
    std::string &text = folder->text;
    std::vector<Raw> found;
    const std::optional<disk::Listing> listing =
        disk::VisitNames(path, [&](std::string_view name, disk::Kind kind) {
            found.push_back(add(text, name, kind));
        });
    if (!listing)
        return nullptr;
    folder->stamp = listing->stamp;
    folder->marked = listing->marked;
    folder->settled = listing->settled;
    folder->entries.reserve(found.size());
    const auto view = [&text](std::size_t at, std::size_t size) {
        return std::string_view(text).substr(at, size);
    };
    for (const Raw &raw : found)
        folder->entries.push_back(
            {view(raw.name, raw.nameSize), view(raw.key, raw.keySize),
             raw.name == raw.onDisk ? std::string_view() : view(raw.onDisk, raw.onDiskSize),
             raw.kind});
    Sorter sorter(folder->entries);
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
                                                      std::string_view name, disk::Kind kind)
{
    return MatchesIn(Get(folder).get(), folder, name, kind);
}

std::pair<GameFiles::Listings::Place, GameFiles::Listings::Place>
GameFiles::Listings::Named(const Folder &listing, std::string_view name)
{
    const UpperText upper(IsValidUtf8(name) ? name : FromWindows1252(name));
    const std::string_view key = upper.View();
    const auto first = std::lower_bound(listing.entries.begin(), listing.entries.end(), key,
                                        [](const Entry &left, std::string_view right) {
                                            return CompareCodeUnits(left.key, right) < 0;
                                        });
    return {first, std::find_if(first, listing.entries.end(),
                                [&](const Entry &entry) { return entry.key != key; })};
}

std::vector<std::string> GameFiles::Listings::MatchesIn(const Folder *listing,
                                                        const std::string &folder,
                                                        std::string_view name, disk::Kind kind)
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
    std::set<std::string_view> earlier,
        here; // upper-case names in earlier folders, and in this one
    for (const auto &[path, listing] : folders) {
        if (!listing)
            continue;
        names.reserve(names.size() + listing->entries.size());
        for (const Entry &entry : listing->entries) {
            if (!MatchesUpperDosPattern(entry.key, upperPattern) || KindOf(path, entry) != wanted ||
                earlier.contains(entry.key))
                continue;
            names.emplace_back(entry.name);
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
