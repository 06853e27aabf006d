// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class FileState;
class OldContent;
struct GamePath;

/// The only class that converts a game path to a path on disk.
///
/// A game path is UTF-8 text with "\" or "/" between its components, in any letter case. On a
/// case-sensitive disk every component is resolved ignoring case, the exact spelling first; two
/// folders that differ only in case are both searched. ".." and "." are resolved in the text before
/// any disk access. A name on the disk that is not UTF-8 is shown, and found, as Windows-1252. A
/// search for a file ignores a folder of that name, and a search for a folder ignores a file.
///
/// Listings are kept and checked against the folder's time stamp at every use, so that they stay
/// correct when files appear or disappear; Refresh drops them all. Thread-safe.
class GameFiles
{
public:
    GameFiles();
    ~GameFiles();
    GameFiles(const GameFiles &) = delete;
    GameFiles &operator=(const GameFiles &) = delete;

    /// Returns the disk path of an existing file (not a folder), or nothing. It is spelled as on
    /// the disk; on Windows, as requested.
    std::optional<std::filesystem::path> FindFile(std::string_view path);
    /// Returns the disk path of an existing folder, or nothing. Of several that differ in case,
    /// prefers the exact spelling, else the first in listing order.
    std::optional<std::filesystem::path> FindFolder(std::string_view path);
    bool FileExists(std::string_view path) { return FindFile(path).has_value(); }
    bool FolderExists(std::string_view path) { return FindFolder(path).has_value(); }

    /// Returns the absolute path of an existing file or folder in UTF-8, with every name spelled as
    /// on the disk; nothing if there is none. Does not follow links. Works on Windows too, where it
    /// costs a listing for each folder of the path.
    std::optional<std::string> SpellingOf(std::string_view path);

    /// Returns the text under which this object finds the file with this byte name on disk
    /// (path::ToText). Returns the bytes themselves if that text finds another file, as with a name
    /// in an old encoding beside the same name in UTF-8.
    std::string TextOf(std::string_view bytes);

    /// Returns the path on disk of an existing or new file: the existing file of that name in any
    /// letter case, else the name as given in the resolved parent folder. Nothing if there is no
    /// parent folder.
    std::optional<std::filesystem::path> TargetOf(std::string_view path);

    /// Return the names of the files (or folders) in a folder that match a DOS pattern
    /// (host/Filter.h), in listing order: by upper case, on every machine. Empty if there is no
    /// such folder. "." and ".." are never listed. Folders that differ only in case are listed
    /// together; a name that is in several of them is listed once.
    std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern);
    std::vector<std::string> ListFolders(std::string_view folder, std::string_view pattern = "*");
    /// True for an existing folder whose names cannot be read, so that the lists above lack them.
    /// False if there is no such folder.
    bool IsClosed(std::string_view folder);

    /// Returns the whole content of a file. Throws RuntimeError 53 if there is no such file, 76 if
    /// there is no such folder, 70 or 75 if it cannot be read or no file can have this name, 5 if
    /// it is larger than `limit` bytes. The detail names the path as given and the reason.
    std::string ReadFile(std::string_view path, std::uint64_t limit = kReadLimit);

    /// Writes a file whole or not at all: writes and flushes a temporary file beside the target,
    /// and renames it to the target. An existing file keeps its permissions, and its spelling if
    /// only letter case differs; a read-only one is refused. Throws RuntimeError 70, 75 or 76 with
    /// the whole path and the reason; the old file is then unchanged and no temporary file is left.
    void WriteFile(std::string_view path, std::string_view bytes);
    /// Like WriteFile, but throws FileChanged instead of overwriting the file if its content is no
    /// longer `before`. Compares at the last moment: disk::Replace describes what can still happen
    /// after that.
    void WriteFile(std::string_view path, std::string_view bytes, const FileState &before);

    /// Deletes a file. Throws RuntimeError 53 if there is none, 70 or 75 if it cannot be deleted.
    void RemoveFile(std::string_view path);
    /// Like RemoveFile, but moves the file to OldContent's folder. Throws also if that folder
    /// cannot be written; the file then stays.
    OldContent MoveAside(std::string_view path);
    /// OldContent::PutBack.
    void PutBack(OldContent &content);

    /// Forgets every listing.
    void Refresh();

    static constexpr std::uint64_t kReadLimit = 1ull << 30; ///< 1 GiB: no content file is larger

private:
    class Listings;
    friend class Snapshot;

    void write(std::string_view path, std::string_view bytes,
               const std::function<bool()> &mayReplace);
    std::optional<std::filesystem::path> find(const GamePath &path);
    /// Returns the files that a path leads to; sets `folders` to those that were searched.
    std::vector<std::string> filesAt(const GamePath &path, std::vector<std::string> &folders);
    /// Returns the disk path of a file that must exist; throws the errors of ReadFile.
    std::string existing(std::string_view path);
    std::vector<std::string> list(std::string_view folder, std::string_view pattern,
                                  bool wantFolders);
    /// Returns `path`, which exists, with the names that listings show.
    std::string spelledByListings(const GamePath &path);

    std::unique_ptr<Listings> m_listings;
};

} // namespace host
