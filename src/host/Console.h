// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What a program and the one that starts it say to each other, alike on every system.
namespace host {

/// The arguments after the program's name: the bytes of argv. On Windows UTF-8, made from the
/// command line that the system keeps, since argv has lost what its code page does not know.
std::vector<std::string> Arguments(int argc, char **argv);

/// The same as one text. On Windows everything that follows the program's name, byte for byte:
/// quotes and blanks mean something there that arguments have lost. Elsewhere the arguments, joined
/// by one blank.
std::string CommandLine(int argc, char **argv);

enum class Stream
{
    Output,
    Error
};

/// Why text could not be written.
struct WriteFailure
{
    std::string reason;      ///< in words
    bool readerGone = false; ///< the stream is a pipe whose reader has ended
};

/// Writes UTF-8 text to a standard stream at once and byte for byte, without carriage returns; a
/// console of Windows is given characters, whatever its code page (text must not end within one).
/// Returns the failure when not all could be written.
std::optional<WriteFailure> WriteTo(Stream stream, std::string_view text);

/// True when somebody watches what is written to the stream.
bool IsTerminal(Stream stream);

} // namespace host
