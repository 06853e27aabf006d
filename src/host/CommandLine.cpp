// SPDX-License-Identifier: MIT
#include "host/CommandLine.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::string_view kGaps = " \t";
constexpr char kQuote = '"';

} // namespace

std::string_view AfterProgramName(std::string_view line)
{
    const bool quoted = line.starts_with(kQuote);
    const std::size_t end = quoted ? line.find(kQuote, 1) : line.find_first_of(kGaps);
    line.remove_prefix(end == line.npos ? line.size() : end + (quoted ? 1 : 0));
    line.remove_prefix(std::min(line.find_first_not_of(kGaps), line.size()));
    return line.substr(0, line.find_last_not_of(kGaps) + 1);
}

std::string JoinArguments(const std::vector<std::string> &arguments)
{
    std::string line;
    for (const std::string &argument : arguments)
        line += (line.empty() ? "" : " ") + argument;
    return line;
}

std::string_view WithoutOuterQuotes(std::string_view text)
{
    const bool isQuoted = text.size() >= 2 && text.front() == kQuote && text.back() == kQuote;
    const std::string_view inner = isQuoted ? text.substr(1, text.size() - 2) : text;
    return inner.find(kQuote) == inner.npos ? inner : text;
}

} // namespace host
