// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace validation {

/// One entry of the selector.
struct SelectorEntry
{
    std::string text;   ///< shown in the list and returned in the answer
    std::string detail; ///< shown below the list

    friend bool operator==(const SelectorEntry &, const SelectorEntry &) = default;
};

/// Returns the entries of a list text. They are separated by "|"; each is "name (detail)" or a bare
/// name, whose detail is the entry & " route". The name ends at the first "("; every ")" after it
/// is dropped. Name and detail are trimmed of blanks. An empty text has no entries.
std::vector<SelectorEntry> SelectorEntries(std::string_view list);

} // namespace validation
