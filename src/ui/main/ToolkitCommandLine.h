// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace app {

/// Returns the command line without the options that the toolkit has taken out of argv. `given` is
/// the number of arguments that the program was started with.
std::string CommandLineAfterToolkit(int given, int argc, char **argv);

} // namespace app
