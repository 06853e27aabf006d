// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace stavfile {

/// The facts about a block's name by which the reader distinguishes values, labels and comments
/// (docs/formats.md, "Blocks" and "Comments").
struct Keyword
{
    std::string_view name;
    int strings = 0;       ///< leading values that are texts, where "#x" and "_x" are values
    bool shape = false;    ///< a name in shape files only
    bool labelled = false; ///< usually has a label
};

/// Returns the entry of a name, ignoring letter case; null if the name is unknown.
const Keyword *FindKeyword(std::string_view name);

} // namespace stavfile
