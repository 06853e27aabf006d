// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace app {

/// Moves a file on disk to the user's wastebasket. Returns and throws as Desktop::MoveToWastebasket
/// does.
bool MoveToWastebasket(const std::string &file);

} // namespace app
