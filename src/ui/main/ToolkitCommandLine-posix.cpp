// SPDX-License-Identifier: MIT
#include "ui/main/ToolkitCommandLine.h"

#include "host/Console.h"

namespace app {

std::string CommandLineAfterToolkit(int, int argc, char **argv)
{
    return host::CommandLine(argc, argv);
}

} // namespace app
