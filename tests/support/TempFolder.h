// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace support {

/// A folder of its own for a test, deleted with everything in it at the end, also after failures
/// and when the test took away permissions. Names inside it are given with "/".
class TempFolder
{
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;

    const std::string &Path() const { return m_path; }
    /// The full path of a name inside.
    std::string At(std::string_view name) const;

    /// Writes a file, making the folders above it; gives its full path.
    std::string Write(std::string_view name, std::string_view bytes = {}) const;
    /// Makes a folder and those above it; gives its full path.
    std::string MakeFolder(std::string_view name) const;
    /// The bytes of a file; throws when it cannot be read.
    std::string Read(std::string_view name) const;
    bool Exists(std::string_view name) const;
    /// Everything in a folder, by bytes; "" for the folder itself.
    std::vector<std::string> Names(std::string_view folder = {}) const;

private:
    std::string m_path;
};

} // namespace support
