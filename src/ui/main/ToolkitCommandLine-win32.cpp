// SPDX-License-Identifier: MIT
#include "ui/main/ToolkitCommandLine.h"

#include "host/CommandLine.h"
#include "host/Console.h"

#include <QCoreApplication>

#include <vector>

namespace app {

std::string CommandLineAfterToolkit(int given, int argc, char **argv)
{
    if (argc == given)
        return host::CommandLine(argc, argv);
    std::vector<std::string> left;
    for (const QString &argument : QCoreApplication::arguments().mid(1))
        left.push_back(argument.toStdString());
    return host::JoinArguments(left);
}

} // namespace app
