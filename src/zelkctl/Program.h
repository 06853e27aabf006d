// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zelkctl {

/// Runs the command line (without the program's name) and returns the exit code: 0 for success, 1
/// if a check found errors, 2 if something could not be done (with the reason in one line on
/// stderr), kReaderGone if the reader of the output has ended.
int Run(std::vector<std::string> arguments);

} // namespace zelkctl
