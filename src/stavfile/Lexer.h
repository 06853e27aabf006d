// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/// The lexical rules of structured files, for held text (TextCodec.h): docs/formats.md, "Tokens".
/// All positions are byte offsets into the text.
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
bool IsCommentOrSkip(std::string_view word);
} // namespace detail

inline CharClass ClassOf(char c)
{
    return detail::kClasses[static_cast<unsigned char>(c)];
}

/// Returns the first position at or after `at` that is not a blank; the text's size if there is
/// none.
inline std::size_t SkipBlanks(std::string_view text, std::size_t at)
{
    while (at < text.size() && ClassOf(text[at]) == CharClass::Blank)
        ++at;
    return at;
}

/// Returns the position one past the word that begins at `at`.
inline std::size_t WordEnd(std::string_view text, std::size_t at)
{
    while (at < text.size() && ClassOf(text[at]) == CharClass::Word)
        ++at;
    return at;
}

/// The extent of a value. A quoted value includes its quotes and the pieces joined by "+"; a word
/// that a quote ended includes that quote.
struct Extent
{
    std::size_t end = 0;      ///< one past the value
    std::size_t cleanEnd = 0; ///< one past the value without a swallowed quote or a stray "+"
    bool quoted = false;
    bool unterminated = false; ///< the text ended inside quotes
    bool strayPlus = false;    ///< a "+" that joins nothing follows; `end` is past it
};

/// Returns the extent of the quoted string or word at `at`, which must not be a blank or a bracket.
Extent ValueExtent(std::string_view text, std::size_t at);

/// Returns the value at `at` with quotes, joins and escapes resolved, still in held form.
std::string DecodedValue(std::string_view text, std::size_t at);

/// Returns the characters that close a string cut off by the end of the text: a quote, preceded by
/// a backslash if the last one would escape it.
std::string StringFix(std::string_view text);

/// The end of something that is skipped unread.
struct Skipped
{
    std::size_t end = 0;
    std::string fix; ///< what to append to close it, if the text ended inside it
};
/// Skips the block whose opening bracket is at `at`. Only brackets and quotes count.
Skipped SkipBlock(std::string_view text, std::size_t at);
/// Skips the one item after a comment word that ends at `wordEnd`: a block, a string or a word;
/// nothing before a closing bracket.
Skipped SkipCommentItem(std::string_view text, std::size_t wordEnd);

/// True for a word that makes the reader skip what follows: it begins with "#" or "_", or is
/// "comment" or "skip" in any letter case.
inline bool IsCommentWord(std::string_view word)
{
    const char first = word.front();
    return first == '#' || first == '_' ||
           ((word.size() == 7 || word.size() == 4) && detail::IsCommentOrSkip(word));
}

/// Changes the text between two parts of a block so that it fits between any others: a block
/// without a name becomes a comment, so that a word before it does not become its name, and a "+"
/// is dropped.
std::string MovableGap(std::string_view gap);

/// Returns the spelling of a new value: unchanged if it is one quoted string or needs no quotes,
/// else quoted and escaped.
std::string Spelling(std::string_view value);

/// Returns the value that a reader gets from a spelling that is quoted or needs no quotes.
std::string Unspelled(std::string_view spelling);

/// Escapes backslashes, quotes, line feeds and tabs, as needed between quotes.
std::string Escaped(std::string_view value);

} // namespace stavfile::lexer
