// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace app {

/// Returns the batch file that associates consist files with a program, given by its full path.
/// Escapes the characters of the path that are special in a batch file.
std::string AssociationBatch(const std::string &program);

} // namespace app
