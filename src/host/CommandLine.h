// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Returns the part of a Windows command line that follows the program's name, byte for byte,
/// without the blanks and tabs around it. A name that begins with a quote ends at the next quote;
/// any other name ends at the first blank or tab.
std::string_view AfterProgramName(std::string_view line);

/// Returns the arguments as one text, with a single blank between them.
std::string JoinArguments(const std::vector<std::string> &arguments);

/// Returns the text between the outer quotes of a text that is a single quoted path; any other text
/// unchanged.
std::string_view WithoutOuterQuotes(std::string_view text);

} // namespace host
