// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"
#include "host/GameFiles.h"

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace host {

/// The listings of folders, and look-ups in them that ignore letter case. Folders here are paths on
/// disk. The lock protects only the table; it is never held during disk access.
class GameFiles::Listings
{
public:
    /// The texts are in the folder's memory.
    struct Entry
    {
        std::string_view name;   ///< as shown
        std::string_view key;    ///< in upper case
        std::string_view onDisk; ///< the name's bytes, if they differ from `name`
        disk::Kind kind = disk::Kind::Absent;

        std::string_view DiskName() const { return onDisk.empty() ? name : onDisk; }
    };
    struct Folder
    {
        Folder() = default;
        Folder(const Folder &) = delete;
        Folder &operator=(const Folder &) = delete;

        disk::Stamp stamp;
        bool marked = false, settled = false; ///< as in disk::Listing
        std::vector<Entry> entries;           ///< in listing order
        std::string text;                     ///< all names and keys
    };

    /// Returns the current content of a folder; nothing if it cannot be listed.
    std::shared_ptr<const Folder> Get(const std::string &folder);
    /// Returns the paths of everything of this kind with this name in any letter case, the exact
    /// spelling first, then in listing order.
    std::vector<std::string> Matches(const std::string &folder, std::string_view name,
                                     disk::Kind kind);
    /// Like Matches, but in a given listing of the folder (null if it cannot be listed).
    static std::vector<std::string> MatchesIn(const Folder *listing, const std::string &folder,
                                              std::string_view name, disk::Kind kind);
    /// The entries of a name in any letter case.
    using Place = std::vector<Entry>::const_iterator;
    static std::pair<Place, Place> Named(const Folder &listing, std::string_view name);
    /// Returns the folders that these names, in any letter case, lead to from a root.
    std::vector<std::string> Folders(const std::string &root,
                                     const std::vector<std::string> &names);
    /// A folder's path and its listing, null if it cannot be listed.
    using Listed = std::pair<std::string, std::shared_ptr<const Folder>>;
    /// Returns the names in folders that count as one, for GameFiles::ListFiles and ListFolders.
    static std::vector<std::string> NamesIn(const std::vector<Listed> &folders,
                                            std::string_view pattern, disk::Kind wanted);
    void Forget(const std::string &folder);
    void Clear();

    /// Returns the current kind of a folder's entry, following links.
    static disk::Kind KindOf(const std::string &folder, const Entry &entry);

private:
    std::mutex m_mutex;
    std::unordered_map<std::string, std::shared_ptr<const Folder>> m_folders;
};

} // namespace host
