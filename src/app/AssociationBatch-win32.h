// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace app {

/// The batch file that makes a program, by its full path, what opens consist files. Characters of
/// the path that mean something to a batch file are escaped.
std::string AssociationBatch(const std::string &program);

} // namespace app
