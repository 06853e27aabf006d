// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The communication between a program and the one that starts it, the same on every system.
namespace host {

/// Returns the arguments after the program's name: the bytes of argv. On Windows they are UTF-8
/// from the command line that the system keeps, since argv loses what its code page does not
/// contain.
std::vector<std::string> Arguments(int argc, char **argv);

/// Returns the arguments as one text. On Windows this is everything that follows the program's
/// name, byte for byte, since quotes and blanks have a meaning there that arguments have lost.
/// Elsewhere it is the arguments, joined by one blank.
std::string CommandLine(int argc, char **argv);

enum class Stream
{
    Output,
    Error
};

/// The reason why text could not be written.
struct WriteFailure
{
    std::string reason;      ///< in words
    bool readerGone = false; ///< the stream is a pipe whose reader has ended
};

/// Writes UTF-8 text to a standard stream at once and byte for byte, without carriage returns. A
/// Windows console gets characters, whatever its code page, so the text must not end within one.
/// Returns the failure if not all could be written.
std::optional<WriteFailure> WriteTo(Stream stream, std::string_view text);

/// True if the stream is a terminal, so that somebody can watch what is written.
bool IsTerminal(Stream stream);

} // namespace host
