// SPDX-License-Identifier: MIT
#include "stavfile/Lexer.h"

#include "stavfile/Keywords.h"

#include <algorithm>

namespace stavfile::lexer {
namespace {

/// Returns the position one past the quote that closes the string at `at`, or npos.
std::size_t stringEnd(std::string_view text, std::size_t at)
{
    for (++at; at < text.size(); ++at) {
        if (text[at] == '\\')
            ++at;
        else if (text[at] == '"')
            return at + 1;
    }
    return std::string_view::npos;
}

void appendUnescaped(std::string &out, std::string_view raw)
{
    for (;;) {
        const std::size_t backslash = raw.find('\\');
        if (backslash == raw.npos || backslash + 1 == raw.size()) {
            out += raw;
            return;
        }
        out += raw.substr(0, backslash);
        const char c = raw[backslash + 1];
        out += c == 'n' ? '\n' : c == 't' ? '\t' : c;
        raw.remove_prefix(backslash + 2);
    }
}

/// Calls `piece(first, last)` for the content of each quoted piece of the string at `at`.
template <typename Piece> Extent walkString(std::string_view text, std::size_t at, Piece piece)
{
    Extent extent;
    extent.quoted = true;
    for (;;) {
        const std::size_t end = stringEnd(text, at);
        if (end == std::string_view::npos) {
            piece(at + 1, text.size());
            extent.cleanEnd = extent.end = text.size();
            extent.unterminated = true;
            return extent;
        }
        piece(at + 1, end - 1);
        extent.cleanEnd = extent.end = end;
        const std::size_t plus = SkipBlanks(text, end);
        if (plus == text.size() || text[plus] != '+')
            return extent;
        const std::size_t next = SkipBlanks(text, plus + 1);
        if (next == text.size() || text[next] != '"') {
            extent.strayPlus = true;
            extent.end = plus + 1;
            return extent;
        }
        at = next;
    }
}

bool equalsLower(std::string_view word, std::string_view lowerCase)
{
    return std::equal(word.begin(), word.end(), lowerCase.begin(), lowerCase.end(),
                      [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a + 32 : a) == b; });
}

bool isSafe(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           std::string_view("._!?$*/+-").find(c) != std::string_view::npos;
}

bool needsQuotes(std::string_view value)
{
    return value.empty() || !std::all_of(value.begin(), value.end(), isSafe) ||
           value.front() == '+' || IsCommentWord(value) || FindKeyword(value) != nullptr;
}

bool standsInQuotes(std::string_view value)
{
    return value.size() >= 2 && value.front() == '"' && value.back() == '"';
}

} // namespace

Extent ValueExtent(std::string_view text, std::size_t at)
{
    if (text[at] == '"')
        return walkString(text, at, [](std::size_t, std::size_t) {});
    Extent extent;
    extent.cleanEnd = extent.end = WordEnd(text, at);
    if (extent.end < text.size() && text[extent.end] == '"')
        ++extent.end; // a closing quote without an opening one belongs to the word
    return extent;
}

std::string StringFix(std::string_view text)
{
    const std::size_t last = text.find_last_not_of('\\');
    const std::size_t backslashes = text.size() - (last == text.npos ? 0 : last + 1);
    return backslashes % 2 ? "\\\"" : "\"";
}

std::string DecodedValue(std::string_view text, std::size_t at)
{
    std::string value;
    if (text[at] == '"')
        walkString(text, at, [&](std::size_t first, std::size_t last) {
            appendUnescaped(value, text.substr(first, last - first));
        });
    else
        appendUnescaped(value, text.substr(at, WordEnd(text, at) - at));
    return value;
}

Skipped SkipBlock(std::string_view text, std::size_t at)
{
    std::size_t depth = 0;
    while (at < text.size()) {
        at = text.find_first_of("()\"", at);
        if (at == std::string_view::npos)
            break;
        if (text[at] == '"') {
            at = stringEnd(text, at);
            if (at == std::string_view::npos)
                return {text.size(), StringFix(text) + std::string(depth, ')')};
            continue;
        }
        depth = text[at] == '(' ? depth + 1 : depth - 1;
        ++at;
        if (depth == 0)
            return {at, {}};
    }
    return {text.size(), std::string(depth, ')')};
}

Skipped SkipCommentItem(std::string_view text, std::size_t wordEnd)
{
    const std::size_t at = SkipBlanks(text, wordEnd);
    if (at == text.size() || text[at] == ')')
        return {at, {}};
    if (text[at] == '(')
        return SkipBlock(text, at);
    const Extent extent = ValueExtent(text, at);
    return {extent.end, extent.unterminated ? StringFix(text) : ""};
}

namespace {

/// Returns the comment at `at` in a form that remains a comment anywhere: where a text is expected,
/// only a word followed by a block is a comment. Sets `end` to the end of the comment.
std::string movableComment(std::string_view gap, std::size_t at, std::size_t &end)
{
    const std::size_t item = SkipBlanks(gap, end);
    const Skipped skipped = SkipCommentItem(gap, end);
    end = skipped.end;
    const bool nothing = item == gap.size() || gap[item] == ')';
    if ((!nothing && gap[item] == '(') || !skipped.fix.empty())
        return std::string(gap.substr(at, end - at));
    // Inside a skipped block, a quote at the end of a word would open a string.
    const std::size_t last = nothing ? end : ValueExtent(gap, item).cleanEnd;
    return "comment ( " + std::string(gap.substr(at, last - at)) + " )";
}

} // namespace

std::string MovableGap(std::string_view gap)
{
    std::string out;
    for (std::size_t at = 0; at < gap.size();) {
        std::size_t end = SkipBlanks(gap, at);
        if (end > at) {
            out += gap.substr(at, end - at);
        } else if (gap[at] == '(') {
            end = SkipBlock(gap, at).end;
            out += '#';
            out += gap.substr(at, end - at);
        } else if (ClassOf(gap[at]) == CharClass::Word) {
            end = WordEnd(gap, at);
            const std::string_view word = gap.substr(at, end - at);
            if (IsCommentWord(word))
                out += movableComment(gap, at, end);
            else if (word != "+")
                out += word;
        } else {
            out += gap[end++];
        }
        at = end;
    }
    return out;
}

bool detail::IsCommentOrSkip(std::string_view word)
{
    return equalsLower(word, "comment") || equalsLower(word, "skip");
}

std::string Escaped(std::string_view value)
{
    std::string out;
    for (const char c : value) {
        if (c == '\\' || c == '"')
            out += '\\';
        out += c == '\n' ? "\\n" : c == '\t' ? "\\t" : std::string(1, c);
    }
    return out;
}

std::string Spelling(std::string_view value)
{
    if (!standsInQuotes(value))
        return needsQuotes(value) ? '"' + Escaped(value) + '"' : std::string(value);
    if (stringEnd(value, 0) == value.size())
        return std::string(value);
    return '"' + Escaped(value.substr(1, value.size() - 2)) + '"';
}

std::string Unspelled(std::string_view spelling)
{
    return standsInQuotes(spelling) ? DecodedValue(Spelling(spelling), 0) : std::string(spelling);
}

} // namespace stavfile::lexer
