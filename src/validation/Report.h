// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace host {
class GameFiles;
}

namespace validation {

/// A report as it stands in a log: a line of 80 "=", the text, another such line. Line ends of the
/// text (CR LF or LF) become the platform's own (CR LF on Windows, LF elsewhere); a text that does
/// not end in one gets one; a text without a line adds none.
std::string FramedReport(std::string_view text);

/// Appends a framed report, as UTF-8, to a log file; makes the file when there is none. What stands
/// in the file is kept as it is (a last line without an end is ended first). Whole or not at all:
/// the file is written anew and put in the place of the old one. RuntimeError 70, 75 or 76 when it
/// cannot be read or written, 5 when it is UTF-16 text (as the files of the game are) or too large;
/// the detail names the file and the reason.
void AppendReport(host::GameFiles &files, std::string_view path, std::string_view text);

} // namespace validation
