// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// Files that hold several texts, each with a checksum, so that a file that was cut off or damaged
/// is recognised and its undamaged beginning can still be used.
namespace host {

/// The texts that could be read.
struct CheckedParts
{
    std::vector<std::string_view> parts; ///< views of the bytes, up to the first damaged part
    bool whole = false;                  ///< every part is there and nothing follows
};

/// Returns the bytes of a file of a kind, which is one word.
std::string JoinParts(std::string_view kind, const std::vector<std::string_view> &parts);
/// Returns the parts in the bytes of a file, which must outlive the result. Never fails: a file of
/// another kind has no parts.
CheckedParts SplitParts(std::string_view kind, std::string_view bytes);

} // namespace host
