// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

inline bool IsSeparator(char c)
{
    return c == '/' || c == '\\';
}

/// A game path split into its components: absolute, with "." and ".." resolved in the text.
struct GamePath
{
    std::string text; ///< in the platform's own separators, spelled as given
    std::string root; ///< "/"
    std::vector<std::string> names;
    bool endsInSeparator = false; ///< true if the path as given can mean only a folder

    /// Returns nothing for an empty path, and for one with a NUL, where the system would end it.
    static std::optional<GamePath> Of(std::string_view path);
};

/// Text operations on game paths: UTF-8, with "\" or "/" between the components. No function here
/// accesses the disk, except to get the current folder.
namespace path {

/// The separator that paths are shown with: "\" on Windows, "/" elsewhere.
extern const char kSeparator;

enum class Leading : bool
{
    Dropped,
    Kept
};
/// Returns `folder`, a separator unless the folder ends in one, and `relative`, all in the
/// platform's own separators. A separator at the front of `relative` is dropped unless Kept is
/// asked for; the result then contains both.
std::string Join(std::string_view folder, std::string_view relative,
                 Leading leading = Leading::Dropped);

/// Returns the text after the last separator.
std::string_view FileName(std::string_view path);
/// Returns the text up to and including the last separator, or "".
std::string_view FolderWithSeparator(std::string_view path);
/// Returns the text before the last separator, "." when there is none.
std::string Folder(std::string_view path);
/// Returns the text after the last "." of the whole path, in lower case; the whole path in lower
/// case when it has none.
std::string Extension(std::string_view path);
/// True if Extension(path) is `extension`, which is in lower case and without a dot.
bool HasExtension(std::string_view path, std::string_view extension);
/// Returns the file name without its last "." and what follows.
std::string BaseName(std::string_view path);
/// Returns the path in the platform's own separators with "." and ".." resolved, for comparing.
std::string Normalise(std::string_view path);
/// Returns the absolute form of a path: against the current folder, with "." and ".." resolved.
/// Returns a path without an absolute form (GamePath::Of) unchanged.
std::string Absolute(std::string_view path);
/// Returns the text that GameFiles uses for a path whose names may be in an old encoding: each name
/// that is not UTF-8 is read as Windows-1252.
std::string ToText(std::string_view bytes);
/// Returns the UTF-8 text of a path on disk.
std::string FromDisk(const std::filesystem::path &path);
/// Returns the path on disk with this UTF-8 text. Exact in both directions on Linux.
std::filesystem::path ToDisk(std::string_view path);

} // namespace path
} // namespace host
