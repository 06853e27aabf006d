// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A file to change: the bytes that it held when it was read, and those that it gets.
struct FileChange
{
    std::string path; ///< on disk; the file exists
    std::string before, after;
};

/// A change of a set of files as a ChangeJournal keeps it on disk: the old content of every file,
/// and enough to recognise the new one.
struct ChangeRecord
{
    struct File
    {
        std::string path;
        std::string before, after; ///< ContentMark of the old and the new content
        /// The old content; nothing if that part of the record is damaged.
        std::optional<std::string_view> old;
    };

    std::string title;
    std::int64_t time = 0; ///< nanoseconds since 1970
    std::string undoes;    ///< ContentMark of the record that this change takes back, or ""
    std::vector<File> files;
    bool whole = true;                        ///< no part is damaged or missing
    std::shared_ptr<const std::string> bytes; ///< what `old` points into, if this was read

    /// Returns the record of a change that begins now. The changes must outlive it.
    static ChangeRecord Of(std::string title, const std::vector<FileChange> &changes);
    /// Reads a record as far as it is undamaged; nothing if not even its beginning is.
    static std::optional<ChangeRecord> FromBytes(std::string bytes);
    std::string ToBytes() const;
};

/// Returns a short text that differs for different content: the size and a checksum.
std::string ContentMark(std::string_view bytes);

} // namespace host
