// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace validation {

/// One entry of the selector.
struct SelectorEntry
{
    std::string text;   ///< what the list shows and the answer holds
    std::string detail; ///< what is shown for it below the list

    friend bool operator==(const SelectorEntry &, const SelectorEntry &) = default;
};

/// The entries of a list text: separated by "|", each "name (detail)" or a bare name, whose detail
/// is the entry & " route". The name ends at the first "("; of what follows every ")" is dropped.
/// Name and detail are trimmed of blanks. An empty text has no entries.
std::vector<SelectorEntry> SelectorEntries(std::string_view list);

} // namespace validation
