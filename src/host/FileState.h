// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

class GameFiles;

/// The state of a file at one moment, to detect later whether another program has changed it. Only
/// the content counts: a file that was touched, or written again with the same bytes, has not
/// changed, and one that was changed within one tick of the file system's clock has.
class FileState
{
public:
    /// No file; it never counts as changed.
    FileState() = default;
    /// A file with these bytes.
    FileState(std::string path, std::string_view bytes);
    /// Returns the state of a file that did not exist.
    static FileState Absent(std::string path);

    /// True if `path`, in any spelling, leads to this file, and the file now has different content
    /// or can no longer be read. False if there is no such file: writing it loses nothing.
    bool HasChanged(GameFiles &files, const std::string &path) const;

private:
    bool holdsSameBytes(GameFiles &files) const;

    std::string m_path;
    bool m_existed = false;
    std::size_t m_size = 0, m_hash = 0;
};

/// A file was not overwritten, because its content is no longer what was read. Error 75.
class FileChanged : public RuntimeError
{
public:
    explicit FileChanged(std::string_view path);
};

} // namespace host
