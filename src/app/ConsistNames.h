// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace app {

/// Throws RuntimeError 75 when nobody could find a consist of this name again: one of blanks only.
/// `path` is the file's, which the detail names.
void CheckConsistName(const std::string &name, const std::string &path);

/// The same for a name that is not to lead out of the consist folder, and that the simulator on
/// Windows must be able to open: it cannot hold any of \ / : * ? " < > | either, nor line breaks.
/// Names that are too long or that the system keeps for itself are refused when they are written.
void CheckPortableConsistName(const std::string &name, const std::string &path);

} // namespace app
