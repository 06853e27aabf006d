// SPDX-License-Identifier: MIT
#pragma once

#include "host/FileMark.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The content of a saved index. Texts are views, of the bytes that were read or of `texts`.
struct IndexTables
{
    static constexpr std::uint32_t kNone = UINT32_MAX;

    /// A folder path of the installation and the folders on the disk that it leads to.
    struct PlaceRow
    {
        struct Folder
        {
            std::string_view path;
            FileMark mark;
            bool isTrusted = false; ///< with the same mark, the names are the same
        };
        std::string_view path;
        std::uint32_t parent = kNone; ///< an earlier row; kNone for the installation folder
        std::vector<Folder> folders;
        std::uint64_t names = 0; ///< PlaceState::names
        bool hasLinks = false;
    };
    struct FileRow
    {
        std::uint32_t folder = 0; ///< into fileFolders
        std::string_view name;
        FileMark mark;
    };
    struct UnitRow
    {
        std::string_view key, value;
        std::string_view dependencies; ///< PackDependencies
    };
    /// Numbers of rows.
    struct Dependencies
    {
        std::vector<std::uint32_t> folders, names, files, facts;
    };

    std::string identity;     ///< what the index is for
    std::int64_t savedAt = 0; ///< nanoseconds since 1970
    std::vector<PlaceRow> places;
    std::vector<std::string_view> fileFolders, facts;
    std::vector<FileRow> files;
    std::vector<UnitRow> units;

    IndexTables() = default;
    IndexTables(IndexTables &&) = default;
    IndexTables &operator=(IndexTables &&) = default;

    /// Returns a copy of a text that lives as long as the tables.
    std::string_view Keep(std::string_view text);

    static std::string PackDependencies(const Dependencies &dependencies);
    /// Returns nothing if a number is not that of a row.
    std::optional<Dependencies> UnpackDependencies(std::string_view packed) const;

    /// Returns the bytes of a file with these tables.
    std::string Pack() const;
    /// Returns the tables in the bytes of a file, which must outlive them; nothing for bytes that
    /// Pack has not returned, to the last one.
    static std::optional<IndexTables> Unpack(std::string_view bytes);

private:
    std::deque<std::string> m_texts;
};

} // namespace host
