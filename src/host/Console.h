// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The communication between a program and the one that starts it, the same on every system.
namespace host {

/// Returns the arguments after the program's name: the bytes of argv. On Windows they are UTF-8
/// from the system's own command line, because argv loses characters that are not in its code page.
std::vector<std::string> Arguments(int argc, char **argv);

/// Returns the arguments as one text. On Windows this is everything after the program's name, byte
/// for byte, because split arguments no longer show the original quotes and blanks. Elsewhere it is
/// the arguments, joined by single blanks.
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
/// Windows console gets whole characters, independent of its code page, so the text must not end
/// inside a character. Returns the failure if not all could be written.
std::optional<WriteFailure> WriteTo(Stream stream, std::string_view text);

/// True if the stream is a terminal, so that a user can watch the output.
bool IsTerminal(Stream stream);

} // namespace host
