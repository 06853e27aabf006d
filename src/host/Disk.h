// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The disk as the system presents it: exact names, no search. These functions hide everything that
/// differs between systems; game paths go through GameFiles.
///
/// Paths are those of the system: bytes on POSIX (not always UTF-8), UTF-8 on Windows. Nothing here
/// throws; a failure has the number that a command reports and the reason in words.
namespace host::disk {

enum class Kind : std::uint8_t
{
    Absent,
    File,
    Folder,
    Link, ///< only in listings; the target is looked up when the entry is used
    Other ///< pipes, sockets, devices: never a file of the game
};

struct Failure
{
    ErrorNumber number;
    std::string reason;
};

/// The reason for a failure, the same on every system.
inline constexpr const char *kNameTooLong = "the name is too long: choose a shorter one";

/// Identity and time stamps of a file or folder; any change to it changes the stamp.
struct Stamp
{
    std::uint64_t device = 0, number = 0;
    std::int64_t modified = 0, changed = 0; ///< nanoseconds since 1970
    friend bool operator==(const Stamp &, const Stamp &) = default;
};

struct ListedName
{
    std::string name;
    Kind kind = Kind::Absent;
};

struct Listing
{
    Stamp stamp;                   ///< taken before the names were read
    bool marked = false;           ///< the stamp changes when a name comes or goes
    bool settled = false;          ///< if false, may be out of date although the stamp is unchanged
    std::vector<ListedName> names; ///< unordered; without "." and ".."
};

/// True if the system itself ignores letter case in names (Windows).
extern const bool kIgnoresCase;

/// Returns what a path leads to, following links; Absent if that cannot be determined.
Kind KindOf(const std::string &path);
/// Returns the stamp of a file or folder, following links; nothing if it cannot be read.
std::optional<Stamp> StampOf(const std::string &path);
/// True if every change after `now` (nanoseconds since 1970) must alter the stamp. Time stamps are
/// coarse: a folder can change twice within one tick of the clock that marks it.
bool IsSettled(const Stamp &stamp, std::int64_t now);
/// True if a time stamp is certainly earlier than everything that happens from `now` on, however
/// coarse the clock of its file system is.
bool IsBefore(std::int64_t stamp, std::int64_t now);
std::int64_t Now();

/// Returns the names in a folder, or nothing if it cannot be read. Does not look up each name.
std::optional<Listing> List(const std::string &folder);
/// Like List, but passes each name to a function and returns a listing without names. The name is
/// valid during the call only. If it returns nothing, some names may have been passed already.
using NameVisitor = std::function<void(std::string_view name, Kind kind)>;
std::optional<Listing> VisitNames(const std::string &folder, const NameVisitor &visit);
/// Returns why a path cannot be reached: 70 if a folder on the way denies access, 75 if no file can
/// have its name or the system fails, else 76.
Failure WhyAbsent(const std::string &path);

/// Reads the whole content of a file; error 5 above `limit` bytes.
/// Sets `stamp`, if given, to the stamp that the file had before it was read.
std::optional<Failure> Read(const std::string &path, std::uint64_t limit, std::string &bytes,
                            Stamp *stamp = nullptr);
/// Returns the failure that Read reports for a file above its limit.
Failure TooLarge(std::uint64_t limit);
/// Deletes a file, or the link itself; refuses a file without any write permission.
std::optional<Failure> Remove(const std::string &path);
/// Creates a folder and those above it; does nothing if it exists.
std::optional<Failure> MakeFolders(const std::string &folder);
/// True if files can be created in the folder.
bool IsWritableFolder(const std::string &folder);

/// Returns the process's working folder.
std::string CurrentFolder();
/// Returns the length of the root at the beginning of a path ("/"; on Windows also "C:\", "C:"
/// alone and "\\server\share\"); 0 for a relative path. Accepts both separators.
std::size_t RootLength(std::string_view path);
/// Returns the path of a name in a folder; neither of them is changed.
std::string Join(const std::string &folder, std::string_view name);

} // namespace host::disk
