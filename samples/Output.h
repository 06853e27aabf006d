// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

namespace samples {

/// A folder that takes the files of a sample. It never writes through a symbolic link, so that
/// nothing outside of the folder is touched.
class Output
{
public:
    /// `marker` is the text of the marker file. Throws std::runtime_error for a folder that is
    /// neither new nor empty nor marked with the same text.
    Output(std::filesystem::path root, std::string_view marker);

    /// `path` is UTF-8 with "/", below the folder.
    void Write(const std::string &path, std::string_view bytes);
    void MakeFolder(const std::string &path);
    int Count() const { return m_count; }

private:
    void requireOwn(std::string_view marker) const;
    std::filesystem::path below(std::string_view path) const;

    std::filesystem::path m_root;
    std::set<std::string> m_folders;
    int m_count = 0;
};

} // namespace samples
