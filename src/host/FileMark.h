// SPDX-License-Identifier: MIT
#pragma once

#include "host/Disk.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace host {

/// The state of a file or folder, without its content. Every change to the content of a file, and
/// to the names in a folder, changes the mark, except for changes within one tick of the clock
/// (IsTrusted). The number of the device is left out, since it can change when the machine
/// restarts.
struct FileMark
{
    std::uint64_t number = 0;               ///< identifies the file on its device
    std::uint64_t size = 0;                 ///< 0 for a folder
    std::int64_t modified = 0, changed = 0; ///< nanoseconds since 1970
    friend bool operator==(const FileMark &, const FileMark &) = default;

    FileMark() = default;
    FileMark(const disk::Stamp &stamp, std::uint64_t bytes)
        : number(stamp.number)
        , size(bytes)
        , modified(stamp.modified)
        , changed(stamp.changed)
    {
    }

    /// True if every change at or after `time` (nanoseconds since 1970) alters a mark that was
    /// taken at or after it. False for marks with a later time: then the clock was set back, or
    /// somebody has chosen the time.
    bool IsTrusted(std::int64_t time) const;
};

/// A folder on the disk whose files are queried by name, which is faster than by path.
class MarkedFolder
{
public:
    /// Opens the folder, following links.
    explicit MarkedFolder(const std::string &path);
    ~MarkedFolder();
    MarkedFolder(const MarkedFolder &) = delete;
    MarkedFolder &operator=(const MarkedFolder &) = delete;

    /// Returns the mark of the folder itself; nothing if it is not there or is not a folder.
    std::optional<FileMark> Mark() const;
    /// Returns the mark of a file in it, following links; nothing if it is not there or is not a
    /// file.
    std::optional<FileMark> MarkOf(const std::string &name) const;

private:
    struct Open;
    std::unique_ptr<Open> m_open;
};

} // namespace host
