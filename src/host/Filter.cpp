// SPDX-License-Identifier: MIT
#include "host/Filter.h"

#include "host/Text.h"

#include <string>

namespace host {
namespace {

/// Skips one character of UTF-8 text.
void skipCharacter(std::string_view text, std::size_t &at)
{
    ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80)
        ++at;
}

/// `*` matches any run, `?` one character or, at the end, none. Backtracks to the last star only,
/// so the time is bounded by the product of the lengths.
bool matchesPart(std::string_view text, std::string_view pattern)
{
    if (pattern == "*")
        return true;
    std::size_t at = 0, in = 0;
    std::size_t retryAt = 0, afterStar = std::string_view::npos;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == '*') {
            afterStar = ++in;
            retryAt = at;
        } else if (in < pattern.size() && pattern[in] == '?') {
            skipCharacter(text, at);
            ++in;
        } else if (in < pattern.size() && pattern[in] == text[at]) {
            ++at;
            ++in;
        } else if (afterStar != std::string_view::npos) {
            skipCharacter(text, retryAt);
            at = retryAt;
            in = afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of("*?", in) == std::string_view::npos;
}

} // namespace

bool MatchesEverything(std::string_view filter)
{
    return filter.find_first_not_of('*') == std::string_view::npos;
}

bool MatchesFilter(std::string_view name, std::string_view filter)
{
    if (MatchesEverything(filter))
        return true;
    const std::string upperName = ToUpper(name);
    const std::string upperFilter = ToUpper(filter);
    const std::string_view wanted = upperFilter;
    if (wanted.ends_with('*'))
        return upperName.starts_with(wanted.substr(0, wanted.size() - 1));
    if (wanted.starts_with('*'))
        return upperName.ends_with(wanted.substr(1));
    return upperName.find(wanted) != std::string::npos;
}

bool MatchesUpperDosPattern(std::string_view name, std::string_view pattern)
{
    if (pattern == "*" || pattern == "*.*")
        return true;
    const std::size_t patternDot = pattern.rfind('.');
    if (patternDot == std::string_view::npos)
        return matchesPart(name, pattern);
    const std::size_t nameDot = name.rfind('.');
    const std::string_view extension =
        nameDot == std::string_view::npos ? std::string_view() : name.substr(nameDot + 1);
    return matchesPart(extension, pattern.substr(patternDot + 1)) &&
           matchesPart(name.substr(0, nameDot), pattern.substr(0, patternDot));
}

bool MatchesDosPattern(std::string_view name, std::string_view pattern)
{
    return MatchesUpperDosPattern(ToUpper(name), ToUpper(pattern));
}

} // namespace host
