// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The lexical rules of structured files on held text (TextCodec.h): docs/formats.md, "Tokens".
/// All places are byte offsets into the text.
namespace stavfile::lexer {

enum class CharClass : unsigned char
{
    Word,
    Blank,
    Bracket,
    Quote
};

namespace detail {
constexpr std::array<CharClass, 256> MakeClasses()
{
    std::array<CharClass, 256> classes{};
    for (std::size_t c = 0; c < 256; ++c)
        classes[c] = c <= 0x20              ? CharClass::Blank
                     : c == '(' || c == ')' ? CharClass::Bracket
                     : c == '"'             ? CharClass::Quote
                                            : CharClass::Word;
    return classes;
}
inline constexpr std::array kClasses = MakeClasses();
} // namespace detail

inline CharClass ClassOf(char c)
{
    return detail::kClasses[static_cast<unsigned char>(c)];
}

/// The first place at or after `at` that is no blank; the text's size at its end.
inline std::size_t SkipBlanks(std::string_view text, std::size_t at)
{
    while (at < text.size() && ClassOf(text[at]) == CharClass::Blank)
        ++at;
    return at;
}

/// One past the last character of the word that begins at `at`.
inline std::size_t WordEnd(std::string_view text, std::size_t at)
{
    while (at < text.size() && ClassOf(text[at]) == CharClass::Word)
        ++at;
    return at;
}

/// A value's extent. A quoted value includes its quotes and the pieces joined by "+"; a word that
/// a quote ended includes that quote.
struct Extent
{
    std::size_t end = 0;      ///< one past the value
    std::size_t cleanEnd = 0; ///< one past the value without a swallowed quote or a stray "+"
    bool quoted = false;
    bool unterminated = false; ///< the text ended inside quotes
    bool strayPlus = false;    ///< a "+" without a following string stands behind; `end` is past it
};

/// The extent of the quoted string or word at `at`, which is no blank and no bracket.
Extent ValueExtent(std::string_view text, std::size_t at);

/// The value there with quotes, joins and escapes worked off, still in held form.
std::string DecodedValue(std::string_view text, std::size_t at);

/// What closes a string that the text's end cut off: a quote, behind another backslash where the
/// last one would escape it.
std::string StringFix(std::string_view text);

/// Where something that is skipped unread ends.
struct Skipped
{
    std::size_t end = 0;
    std::string fix; ///< what would have to follow the text to close it, when the text ended inside
};
/// The block whose opening bracket is at `at`: only brackets and quotes count.
Skipped SkipBlock(std::string_view text, std::size_t at);
/// The one item that follows a comment word ending at `wordEnd`: a block, a string or a word;
/// nothing before a closing bracket.
Skipped SkipCommentItem(std::string_view text, std::size_t wordEnd);

/// A word that makes the reader pass over what follows: begins with "#" or "_", or is "comment" or
/// "skip" in any letter case.
bool IsCommentWord(std::string_view word);

/// What stands between two parts of a block, made fit to stand between others: a block without a
/// name is turned into a comment, lest a word before it become its name, and a "+" goes.
std::string MovableGap(std::string_view gap);

/// The text of a new value as it is written: as it stands when it is one quoted string already or
/// needs no quotes, else quoted with its escapes.
std::string Spelling(std::string_view value);

/// The value that a reader gets from a spelling that stands in quotes or needs none.
std::string Unspelled(std::string_view spelling);

/// Backslashes, quotes, line feeds and tabs escaped, as needed between quotes.
std::string Escaped(std::string_view value);

} // namespace stavfile::lexer
