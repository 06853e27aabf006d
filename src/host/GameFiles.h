// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct GamePath;

/// The only class that turns a game path into one that the disk knows.
///
/// A game path is UTF-8 text with "\" or "/" between its steps, in any letter case. On a
/// case-sensitive disk every step is resolved ignoring case, the exact spelling first; two folders
/// that differ only in case are both searched. ".." and "." are worked off in the text before the
/// disk is asked. A name on the disk that is no UTF-8 is shown, and found, as Windows-1252 reads
/// it. Where a file is looked for, a folder of that name does not count, and the other way round.
///
/// Listings are kept and checked against the folder's time stamp at every use, so that they are
/// right while files come and go; Refresh drops them all. Safe to use from several threads.
class GameFiles
{
public:
    GameFiles();
    ~GameFiles();
    GameFiles(const GameFiles &) = delete;
    GameFiles &operator=(const GameFiles &) = delete;

    /// The disk's path of an existing file (not a folder), or nothing. Spelled as the disk has it,
    /// except on Windows, where the disk takes it as it was asked for.
    std::optional<std::filesystem::path> FindFile(std::string_view path);
    /// The disk's path of an existing folder, or nothing. Of several that differ in case, the
    /// exactly spelled one, else the first in listing order.
    std::optional<std::filesystem::path> FindFolder(std::string_view path);
    bool FileExists(std::string_view path) { return FindFile(path).has_value(); }
    bool FolderExists(std::string_view path) { return FindFolder(path).has_value(); }

    /// The absolute path of an existing file or folder with every name spelled as on the disk, in
    /// UTF-8; nothing when there is none. Links are not followed. On Windows too, where it costs a
    /// listing for each folder of the path.
    std::optional<std::string> SpellingOf(std::string_view path);

    /// The text by which this object finds what the disk knows by these bytes (path::ToText). The
    /// bytes themselves where that text finds something else: a name in an old encoding beside the
    /// same name in UTF-8.
    std::string TextOf(std::string_view bytes);

    /// Where a file of this path is, or would have to be written: the existing file of that name in
    /// any letter case, else the name as given in the resolved parent folder. Nothing when there is
    /// no parent folder.
    std::optional<std::filesystem::path> TargetOf(std::string_view path);

    /// Names of the files (or folders) in a folder that match a DOS pattern (host/Filter.h), in
    /// listing order: by upper case, on every machine. Empty when there is no such folder. "." and
    /// ".." are never listed. Folders that differ only in case are listed together, a name that
    /// stands in two of them once.
    std::vector<std::string> ListFiles(std::string_view folder, std::string_view pattern);
    std::vector<std::string> ListFolders(std::string_view folder, std::string_view pattern = "*");
    /// True for a folder that is there, but whose names cannot be read: the lists above leave them
    /// out. False when there is no such folder.
    bool IsClosed(std::string_view folder);

    /// The whole content of a file. RuntimeError 53 when there is no such file, 76 when there is no
    /// such folder, 70 or 75 when it cannot be read or no file can have this name, 5 when it is
    /// larger than `limit` bytes; the detail names the path as given and the reason.
    std::string ReadFile(std::string_view path, std::uint64_t limit = kReadLimit);

    /// Writes a file whole or not at all: a temporary file beside the target, flushed, renamed over
    /// it. An existing file keeps its permissions, and its spelling where only letter case differs;
    /// a read-only one is refused. RuntimeError 70, 75 or 76 with the whole path and the reason;
    /// the old file is then as it was and no temporary file is left.
    void WriteFile(std::string_view path, std::string_view bytes);

    /// Deletes a file. RuntimeError 53 when there is none, 70 or 75 when it cannot be deleted.
    void RemoveFile(std::string_view path);

    /// Forgets every listing.
    void Refresh();

    static constexpr std::uint64_t kReadLimit = 1ull << 30; ///< 1 GiB: larger is no content file

private:
    class Listings;
    friend class Snapshot;

    /// The files that a path leads to; `folders` are those in which they were looked for.
    std::vector<std::string> filesAt(const GamePath &path, std::vector<std::string> &folders);
    /// The disk's path of a file that must be there; the errors of ReadFile.
    std::string existing(std::string_view path);
    std::vector<std::string> list(std::string_view folder, std::string_view pattern,
                                  bool wantFolders);
    /// `path`, which leads to something, with the names that listings show.
    std::string spelledByListings(const GamePath &path);

    std::unique_ptr<Listings> m_listings;
};

} // namespace host
