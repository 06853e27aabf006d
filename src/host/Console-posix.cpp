// SPDX-License-Identifier: MIT
#include "host/Console.h"

#include "host/CommandLine.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

#include <unistd.h>

namespace host {

std::vector<std::string> Arguments(int argc, char **argv)
{
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

std::string CommandLine(int argc, char **argv)
{
    return JoinArguments(Arguments(argc, argv));
}

std::optional<WriteFailure> WriteTo(Stream stream, std::string_view text)
{
    std::FILE *const file = stream == Stream::Output ? stdout : stderr;
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fflush(file) == 0)
        return std::nullopt;
    return WriteFailure{std::generic_category().message(errno), errno == EPIPE};
}

bool IsTerminal(Stream stream)
{
    return isatty(stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO) == 1;
}

} // namespace host
