// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

class GameFiles;

/// A file as it was at one moment, to find out later whether somebody else has changed it. Only the
/// content counts: a file that was touched, or written again with the same bytes, has not changed,
/// and one that was changed within one tick of the file system's clock has.
class FileState
{
public:
    /// No file at all: nothing counts as a change of it.
    FileState() = default;
    /// The file held these bytes.
    FileState(std::string path, std::string_view bytes);
    /// The file did not exist.
    static FileState Absent(std::string path);

    /// True when `path` leads to this file, whatever its spelling, and the file has another content
    /// now or cannot be read any more. False when there is no such file: writing it loses nothing.
    bool HasChanged(GameFiles &files, const std::string &path) const;

private:
    bool holdsSameBytes(GameFiles &files) const;

    std::string m_path;
    bool m_existed = false;
    std::size_t m_size = 0, m_hash = 0;
};

} // namespace host
