// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace support {

/// A temporary folder for a test. The destructor deletes it with its content, even after failures
/// and if the test removed permissions. Names inside it are written with "/".
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;

    const std::string &Path() const { return m_path; }
    /// Returns the full path of a name inside.
    std::string At(std::string_view name) const;

    /// Returns the full path of a name inside in the platform's own separators.
    std::string Shown(std::string_view name) const;
    /// Returns a text with "/" for every "\\", and without this folder in front of names inside.
    std::string Relative(std::string text) const;

    /// Writes a file, creating its parent folders, and returns its full path.
    std::string Write(std::string_view name, std::string_view bytes = {}) const;
    /// Creates a folder and its parents, and returns its full path.
    std::string MakeFolder(std::string_view name) const;
    /// Returns the bytes of a file; throws if it cannot be read.
    std::string Read(std::string_view name) const;
    bool Exists(std::string_view name) const;
    /// Returns the names in a folder (by default this one), sorted by bytes.
    std::vector<std::string> Names(std::string_view folder = {}) const;

private:
    std::string m_path;
};

} // namespace support
