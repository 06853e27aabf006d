// SPDX-License-Identifier: MIT
#pragma once

#include "content/SharedFiles.h"

#include <vector>

namespace content {

/// The rule that an unreadable figure breaks.
inline constexpr const char *kUnreadableFigure = "unreadable-figure";

/// Returns a draft for each figure of a vehicle whose value cannot be read, is too large or is
/// negative. Values that are not given are in order.
std::vector<Draft> UnreadableFigures(const Vehicle &vehicle, Profiles profiles);

} // namespace content
