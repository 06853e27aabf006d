// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace validation {

/// Returns a report in the form of a log: a line of 80 "=", the text, another such line. Line ends
/// of the text (CR LF or LF) become the platform's own (CR LF on Windows, LF elsewhere). Adds a
/// line end to a text that lacks one at its end; an empty text adds no line.
std::string FramedReport(std::string_view text);

/// Appends a framed report, as UTF-8, to a log file; creates a missing file. Keeps the file's
/// content, but completes a last line that has no line end. Writes whole or not at all: a new file
/// replaces the old one. Throws RuntimeError 70, 75 or 76 if the file cannot be read or written, 5
/// if it is UTF-16 text (as the files of the game are) or too large; the detail names the file and
/// the reason.
void AppendReport(host::GameFiles &files, std::string_view path, std::string_view text);

} // namespace validation
