// SPDX-License-Identifier: MIT
#include "app/GivenFile.h"

#include "host/CommandLine.h"
#include "host/GameFiles.h"
#include "host/Text.h"

namespace app {

std::string FileGivenBy(std::string_view commandLine, host::GameFiles &files)
{
    const std::string_view line = host::TrimBlanks(commandLine);
    const bool isName = line.empty() || files.FileExists(line);
    return files.TextOf(isName ? line : host::WithoutOuterQuotes(line));
}

} // namespace app
