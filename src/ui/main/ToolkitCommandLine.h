// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace app {

/// Returns the command line without the options that the toolkit has removed from argv. `given` is
/// the number of arguments with which the program was started.
std::string CommandLineAfterToolkit(int given, int argc, char **argv);

} // namespace app
