// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zelkctl {

/// Runs the command line (without the program's name) and returns the exit code: 0 when all went
/// well, 1 when a check found errors, 2 when something could not be done (one line on stderr says
/// what), kReaderGone when the reader of the output has ended.
int Run(std::vector<std::string> arguments);

} // namespace zelkctl
