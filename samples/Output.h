// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace samples {

/// A file of the sample: its path below the installation folder, with "/", and its bytes.
struct SampleFile
{
    std::string path; ///< UTF-8
    std::string bytes;
};

using SampleFiles = std::vector<SampleFile>;

/// The folder that receives the files of a sample. Never writes through a symbolic link, so that
/// nothing outside the folder changes.
class Output
{
public:
    /// `marker` is the text of the marker file. Throws std::runtime_error if the folder holds
    /// files but no marker file with this text or with `smaller`, that of a sample with fewer
    /// files.
    Output(std::filesystem::path root, std::string_view marker, std::string_view smaller);

    /// Writes a file. `path` is relative to the folder, in UTF-8, with "/".
    void Write(const std::string &path, std::string_view bytes);
    void MakeFolder(const std::string &path);
    int Count() const { return m_count; }

private:
    void requireOwn(std::string_view marker, std::string_view smaller) const;
    std::filesystem::path below(std::string_view path) const;

    std::filesystem::path m_root;
    std::set<std::string> m_folders;
    int m_count = 0;
};

} // namespace samples
