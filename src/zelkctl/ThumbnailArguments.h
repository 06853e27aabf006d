// SPDX-License-Identifier: MIT
#pragma once

#include "zelkctl/Thumbnail.h"

#include <optional>
#include <string>
#include <vector>

namespace zelkctl {

/// The arguments of `thumbnail`, as texts; the vehicle as a path.
struct ThumbnailArguments
{
    std::string file, out, size = "256";
};

/// Converts the texts; throws Failure for a size that is not valid.
ThumbnailRequest RequestOf(const ThumbnailArguments &arguments);

/// Convert the arguments to a list, for the program that draws, and back; nothing for the list of
/// another command.
std::vector<std::string> ToList(const ThumbnailArguments &arguments);
std::optional<ThumbnailArguments> ThumbnailFromList(const std::vector<std::string> &list);

} // namespace zelkctl
