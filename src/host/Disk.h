// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The disk as the system gives it: exact names, no search. Everything that differs between systems
/// stands behind these functions; game paths go through GameFiles.
///
/// Paths are those of the system: bytes on POSIX (not always UTF-8), UTF-8 on Windows. Nothing here
/// throws; a failure comes with the number that a command reports and the reason in words.
namespace host::disk {

enum class Kind : std::uint8_t
{
    Absent,
    File,
    Folder,
    Link, ///< in a listing only: what it leads to is asked when it is used
    Other ///< pipes, sockets, devices: never a file of the game
};

struct Failure
{
    ErrorNumber number;
    std::string reason;
};

/// The reason of a failure, the same on every system.
inline constexpr const char *kNameTooLong = "the name is too long: choose a shorter one";

/// What changes when something in a folder (or a file itself) changes.
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
    Stamp stamp;          ///< from before the names were read
    bool settled = false; ///< false: may be out of date although the stamp is still the same
    std::vector<ListedName> names; ///< in no order; without "." and ".."
};

/// True where the system itself finds a name in any letter case (Windows).
extern const bool kIgnoresCase;

/// What a path is, links followed. What cannot be asked is Absent.
Kind KindOf(const std::string &path);
/// The stamp of a file or folder, links followed; nothing when it cannot be asked.
std::optional<Stamp> StampOf(const std::string &path);
/// True when every change after `now` (nanoseconds since 1970) must alter the stamp. Time stamps
/// are coarse: a folder can change twice within one step of the clock that marks it.
bool IsSettled(const Stamp &stamp, std::int64_t now);
std::int64_t Now();

/// The names in a folder, or nothing when it cannot be read. Costs no look-up for each name.
std::optional<Listing> List(const std::string &folder);
/// Why a path cannot be reached: 70 when a folder on the way refuses, 75 when no file can have its
/// name or the system fails, else 76.
Failure WhyAbsent(const std::string &path);

/// The whole content of a file; error 5 above `limit` bytes.
std::optional<Failure> Read(const std::string &path, std::uint64_t limit, std::string &bytes);
/// The failure of Read for a file of more bytes.
Failure TooLarge(std::uint64_t limit);
/// Deletes a file (of a link the link); one without any permission to write is refused.
std::optional<Failure> Remove(const std::string &path);
/// Makes a folder and those above it; nothing happens when it is there.
std::optional<Failure> MakeFolders(const std::string &folder);
/// True when files can be made in the folder.
bool IsWritableFolder(const std::string &folder);

/// The process's working folder.
std::string CurrentFolder();
/// Length of the root at the beginning of a path ("/"; on Windows also "C:\", "C:" alone and
/// "\\server\share\"); 0 for a relative path. Both separators.
std::size_t RootLength(std::string_view path);
/// Returns the path of a name in a folder; neither of them is changed.
std::string Join(const std::string &folder, std::string_view name);

} // namespace host::disk
