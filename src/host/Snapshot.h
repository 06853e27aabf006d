// SPDX-License-Identifier: MIT
#pragma once

#include "host/FileMark.h"
#include "host/GameFiles.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// What a folder path leads to in one Snapshot.
struct Place;

/// A Place as it can be compared with that of another Snapshot.
struct PlaceState
{
    struct Folder
    {
        std::string path;      ///< on the disk
        FileMark mark;         ///< taken before the names were read
        bool isMarked = false; ///< the mark changes when a name comes or goes
    };

    std::string path;              ///< absolute and resolved
    const Place *parent = nullptr; ///< null for a root
    std::vector<Folder> folders;   ///< those that count as one; none if there is no such folder
    std::uint64_t names = 0;       ///< a digest of the names in them, with their kinds
    bool isListed = true;          ///< false if the names in one of them cannot be read
    bool hasLinks = false;         ///< the kind of a name can change without a change of the mark
};

/// A consistent view of the folders for one long command. Each folder is listed once, on the first
/// search in it, and the listing is used as long as the snapshot lives. Finds what GameFiles finds,
/// but does not query the disk again for names that it has seen. What it is asked becomes part of
/// the Recording of the thread. Thread-safe.
class Snapshot
{
public:
    /// `files` must outlive the snapshot.
    explicit Snapshot(GameFiles &files);
    ~Snapshot();
    Snapshot(const Snapshot &) = delete;
    Snapshot &operator=(const Snapshot &) = delete;

    /// Like the members of GameFiles of these names, but FindFile returns a game path.
    std::optional<std::string> FindFile(std::string_view path);
    bool FileExists(std::string_view path);
    bool FolderExists(std::string_view path);
    /// True for an existing folder whose names cannot be read; it is searched as if it were empty.
    bool IsClosed(std::string_view folder);
    std::string ReadFile(std::string_view path);
    /// Like ReadFile, but returns nothing if there is no such file.
    std::optional<std::string> TryReadFile(std::string_view path);
    /// Like TryReadFile, but returns false if there is no such file, and uses the memory of
    /// `bytes`.
    bool ReadFileInto(std::string &bytes, std::string_view path);

    /// A folder in which many files are looked up: that costs less than by their whole paths.
    /// `folder` ends in a separator. The snapshot must outlive this object. Not thread-safe.
    class Folder
    {
    public:
        Folder(Snapshot &snapshot, std::string folder);
        const std::string &Path() const { return m_path; }
        /// Like Snapshot::FileExists(Path() + name).
        bool FileExists(std::string_view name);
        /// Like Snapshot::ReadFileInto(bytes, Path() + name).
        bool ReadFileInto(std::string &bytes, std::string_view name);

    private:
        /// Returns the place of a name that needs no whole path; null if it is not known.
        const Place *placeOf(std::string_view name);

        Snapshot &m_snapshot;
        std::string m_path;
        const Place *m_place = nullptr; ///< once a file was looked for in it
    };
    /// Returns the identity of a file, which is the same for every spelling of its path and valid
    /// as long as the snapshot lives; null for a file that does not exist or that no listing shows.
    const void *IdentityOf(std::string_view path);
    /// Reads the file on the disk that FindFile has returned.
    static std::optional<disk::Failure> ReadRecorded(const std::string &file, std::string &bytes);
    std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern);
    std::vector<std::string> ListFolders(std::string_view folder, std::string_view pattern = "*");

    /// Returns what a folder path leads to; null for text that is not a path. The place is valid as
    /// long as the snapshot lives. Neither of these is recorded.
    const Place *PlaceOf(std::string_view folder);
    static PlaceState StateOf(const Place &place);

    struct Listing;

private:
    class Places;
    GameFiles &m_files;
    std::unique_ptr<Places> m_places;
};

} // namespace host
