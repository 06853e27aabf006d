// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A game path taken apart: absolute, "." and ".." worked off.
struct GamePath
{
    std::string text; ///< in the system's own separators, spelled as given
    std::string root; ///< "/"
    std::vector<std::string> names;
    bool endsInSeparator = false; ///< as given: only a folder can be meant

    /// Nothing for an empty path, and for one with a NUL, where the system would end it.
    static std::optional<GamePath> Of(std::string_view path);
};

inline bool IsSeparator(char c)
{
    return c == '/' || c == '\\';
}

/// The path of a name in a folder of the disk, neither of them changed.
std::string Below(const std::string &folder, std::string_view name);

} // namespace host
