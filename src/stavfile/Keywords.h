// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace stavfile {

/// What the reader must know of a block's name to tell values, labels and comments apart
/// (docs/formats.md, "Labels" and "Comments").
struct Keyword
{
    std::string_view name;
    int strings = 0;       ///< leading values that are texts, where "#x" and "_x" are values
    bool shape = false;    ///< a name of shape files only
    bool labelled = false; ///< regularly stands with a label
};

/// The entry of a name, letter case ignored, or null for a name that is not known.
const Keyword *FindKeyword(std::string_view name);

} // namespace stavfile
