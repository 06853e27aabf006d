// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class GameFiles;
struct GamePath;

/// Records every file that GameFiles or a Snapshot looks up on this thread while the object exists,
/// found or not, as it was at the first look-up. So a result that was made from files can be kept
/// with its record, and used as long as the record holds. Listings of folders are not recorded.
///
/// Records can be nested: a look-up goes into the innermost one.
class FilesUsed
{
public:
    FilesUsed();
    ~FilesUsed();
    FilesUsed(const FilesUsed &) = delete;
    FilesUsed &operator=(const FilesUsed &) = delete;

    /// Returns the record as text: path, size and times of each file.
    std::string Record() const;
    /// False if a file is so new that its next change may leave its times as they are. A result
    /// must then not be kept.
    bool IsSettled() const;

    /// True if each file in the text of a record is as it was, or missing as it was. False for any
    /// other text.
    static bool Holds(GameFiles &files, std::string_view record);

    /// True if look-ups of this thread are recorded.
    static bool IsRecording();
    /// Adds a look-up and its result to the record of this thread, if there is one.
    static void Note(const GamePath &path, const std::optional<std::filesystem::path> &found);

private:
    struct Used
    {
        std::string path, state;
    };
    void add(const GamePath &path, const std::optional<std::filesystem::path> &found);

    FilesUsed *m_outer;
    std::vector<Used> m_files;
    bool m_isSettled = true;
};

} // namespace host
