// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace app {

/// Moves a file of the disk to the user's wastebasket, from which the desktop can restore it. False
/// when there is no wastebasket for the file's place, or it takes nothing; the file then stays.
/// RuntimeError 53, 70, 75 or 76 when the file cannot be moved at all, with its path and the
/// reason.
bool MoveToWastebasket(const std::string &file);

} // namespace app
