// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zelkctl {

/// Runs the command line (without the program's name) and returns the exit code: 0 when all went
/// well, 2 when something could not be done; what it was stands in one line on stderr.
int Run(std::vector<std::string> arguments);

} // namespace zelkctl
