// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace document {

/// Looks for an ASCII text in the undecoded bytes of files, with letter case ignored: in 8-bit text
/// and in UTF-16 of both byte orders. Much faster than reading a file as a tree, so that a search
/// through thousands of files reads only the few that can contain a name.
class NameSearch
{
public:
    /// An empty text is in every file.
    explicit NameSearch(std::string_view text);
    bool IsIn(std::string_view bytes) const;

private:
    bool isIn(std::string_view bytes, std::size_t first, std::size_t stride) const;

    std::string m_text; ///< in upper case
    std::array<std::size_t, 256> m_steps{};
};

/// Returns the longest run of characters of a text that every spelling of it in a structured file
/// contains as they are (in any letter case); "" if there is none. Spellings that join strings or
/// escape plain characters are the exception: MaySpellOddly finds files that may hold them.
std::string_view PlainRun(std::string_view text);
bool MaySpellOddly(std::string_view bytes);

} // namespace document
