// SPDX-License-Identifier: MIT
#include "korvat/formats/PlainText.h"

#include "host/Text.h"
#include "korvat/formats/TextNumbers.h"
#include "stavfile/Keywords.h"
#include "stavfile/Lexer.h"
#include "stavfile/TextCodec.h"

#include <algorithm>
#include <array>
#include <bit>

namespace korvat {
namespace {

using namespace stavfile::lexer;

constexpr std::string_view kHeader = "SIMISA@@@@@@@@@@JINX0s1t______";
constexpr int kDeepest = 100;

/// More items than this may be promised for each one that there is, and this many in any case.
constexpr std::size_t kPromisedEach = 2, kPromisedAnyway = 16;

bool isComment(std::string_view word)
{
    const char first = word.front();
    const bool possible =
        first == '#' || first == '_' || (first | 0x20) == 'c' || (first | 0x20) == 's';
    return possible && IsCommentWord(word);
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Reads decimal digits; returns their number.
std::size_t digits(std::string_view word, std::uint64_t &value)
{
    std::size_t count = 0;
    for (; count < word.size() && isDigit(word[count]); ++count)
        value = value * 10 + static_cast<unsigned>(word[count] - '0');
    return count;
}

constexpr std::size_t kExactDigits = 15; ///< as many fit into a double
constexpr std::array<double, 16> kPowers = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

/// Reads a number of few digits without an exponent from the front of a text, with the same result
/// as ReadFloat. Returns its length, 0 for another number.
std::size_t readShortFloat(std::string_view text, float &value)
{
    const std::size_t first = text.starts_with('-') ? 1 : 0;
    std::uint64_t mantissa = 0;
    const std::size_t whole = digits(text.substr(first), mantissa);
    std::size_t fraction = 0, end = first + whole;
    if (end < text.size() && text[end] == '.') {
        fraction = digits(text.substr(end + 1), mantissa);
        end += 1 + fraction;
    }
    if (whole + fraction == 0 || whole + fraction > kExactDigits)
        return 0;
    // One rounding; the second one, to a float, is right unless it starts in the middle of two.
    const double number = static_cast<double>(mantissa) / kPowers[fraction];
    constexpr std::uint64_t kLost = 0x1FFFFFFF, kMiddle = 0x10000000;
    if ((std::bit_cast<std::uint64_t>(number) & kLost) == kMiddle)
        return 0;
    value = static_cast<float>(first ? -number : number);
    return end;
}

/// Reads at most eight hexadecimal digits; returns their number.
std::size_t hexDigits(std::string_view text, std::uint32_t &value)
{
    std::size_t count = 0;
    for (; count < std::min<std::size_t>(text.size(), 8); ++count) {
        const char c = text[count], letter = static_cast<char>(c | 0x20);
        if (isDigit(c))
            value = value << 4 | static_cast<unsigned>(c - '0');
        else if (letter >= 'a' && letter <= 'f')
            value = value << 4 | static_cast<unsigned>(letter - 'a' + 10);
        else
            break;
    }
    return count;
}

} // namespace

PlainText::PlainText(std::string_view text, stavfile::Encoding encoding)
    : m_text(text)
    , m_encoding(encoding)
{
    m_at = kHeader.size();
    m_unusual = text.size() <= m_at || !text.starts_with(kHeader) ||
                (text[m_at] != '\r' && text[m_at] != '\n');
    if (!m_unusual)
        skipBlanks();
}

void PlainText::skipBlanks()
{
    m_at = SkipBlanks(m_text, m_at);
}

/// Skips the rest of the blocks inside the one at this depth.
void PlainText::leaveTo(int depth)
{
    bool named = false;
    while (m_depth > depth && !m_unusual) {
        const char c = next();
        if (m_at == m_text.size()) {
            giveUp();
        } else if (c == '(' || c == ')') {
            if (c == '(' && (!named || m_depth == kDeepest))
                giveUp();
            m_depth += c == '(' ? 1 : -1;
            named = false;
            ++m_at;
            skipBlanks();
        } else if (c == '"') {
            takeString();
            named = false;
        } else {
            takeWord();
            named = true;
        }
    }
}

/// Takes the word at the current place; gives up at a comment.
std::string_view PlainText::takeWord()
{
    const std::size_t end = WordEnd(m_text, m_at);
    const std::string_view word = m_text.substr(m_at, end - m_at);
    if (word.empty() || isComment(word) || (end < m_text.size() && m_text[end] == '"')) {
        giveUp();
        return {};
    }
    m_at = end;
    skipBlanks();
    return word;
}

/// Leaves a number that begins at the current place. Returns false, and stays, if it has no
/// characters or if its word goes on.
bool PlainText::leaveNumber(std::size_t length)
{
    const std::size_t end = m_at + length;
    if (length == 0 || end >= m_text.size() || ClassOf(m_text[end]) == CharClass::Word ||
        m_text[end] == '"')
        return false;
    m_at = end;
    skipBlanks();
    if (next() == '(')
        giveUp(); // it was a name
    return true;
}

/// Takes the string at the current place, in quotes or without; gives up at one that may lack a
/// quote.
std::string PlainText::takeString()
{
    if (next() != '"') {
        const std::size_t first = m_at;
        return takeWord().empty() ? std::string() : DecodedValue(m_text, first);
    }
    const Extent extent = ValueExtent(m_text, m_at);
    const std::string_view spelling = m_text.substr(m_at, extent.end - m_at);
    const bool adjoins =
        extent.end < m_text.size() && ClassOf(m_text[extent.end]) == CharClass::Word;
    if (extent.strayPlus || extent.unterminated || adjoins ||
        spelling.find('\n') != spelling.npos) {
        giveUp();
        return {};
    }
    std::string text = DecodedValue(m_text, m_at);
    m_at = extent.end;
    skipBlanks();
    return text;
}

bool PlainBlock::Is(Token token) const
{
    const std::string_view wanted = TokenName(token);
    return m_name == wanted ||
           (m_name.size() == wanted.size() && host::EqualsNoCase(m_name, wanted));
}

std::string PlainBlock::Label() const
{
    std::string label = m_label.empty() ? "" : DecodedValue(m_label, 0);
    return stavfile::ToShownText(std::move(label), m_text->m_encoding);
}

/// Skips what is left of the blocks inside this one. Returns false if this one has ended.
bool PlainBlock::isOpen()
{
    if (m_text->m_depth > m_depth)
        m_text->leaveTo(m_depth);
    return m_text->m_depth == m_depth && !m_text->m_unusual;
}

std::optional<PlainBlock> PlainBlock::Next()
{
    while (isOpen()) {
        const char c = m_text->next();
        if (c == ')' || m_text->m_at == m_text->m_text.size())
            return end();
        if (c == '(' || c == '"')
            break;
        if (auto found = child())
            return found;
    }
    if (m_text->m_depth >= m_depth)
        m_text->giveUp();
    return std::nullopt;
}

/// Leaves this block at its closing bracket.
std::optional<PlainBlock> PlainBlock::end()
{
    PlainText &text = *m_text;
    if ((m_depth == 0) != (text.m_at == text.m_text.size()) ||
        m_promised > m_children * kPromisedEach + kPromisedAnyway)
        text.giveUp();
    if (m_depth == 0 || text.m_unusual)
        return std::nullopt;
    --text.m_depth;
    ++text.m_at;
    text.skipBlanks();
    return std::nullopt;
}

/// Enters the block that the next word begins, or skips the word if it is a value.
std::optional<PlainBlock> PlainBlock::child()
{
    PlainText &text = *m_text;
    const std::string_view name = text.takeWord();
    std::string_view label;
    if (text.next() != '(' && !name.empty() && !isDigit(name.front()) && name.front() != '-') {
        const stavfile::Keyword *keyword = stavfile::FindKeyword(name);
        if (keyword && keyword->labelled && m_depth > 0)
            label = text.takeWord();
        else if (keyword)
            text.giveUp();
    }
    if (text.m_unusual)
        return std::nullopt;
    if (text.next() != '(') {
        m_skippedValue = true;
        if (m_depth == 0 || !label.empty())
            text.giveUp();
        return std::nullopt;
    }
    if (m_hasText || text.m_depth == kDeepest)
        text.giveUp();
    ++text.m_depth;
    ++text.m_at;
    text.skipBlanks();
    ++m_children;
    return PlainBlock(text, name, label);
}

/// True if the next thing in this block is a value. Gives up where the order of values and blocks
/// would matter.
bool PlainBlock::HasMore()
{
    if (!isOpen())
        return false;
    if (m_skippedValue)
        m_text->giveUp();
    return !m_text->m_unusual && m_text->next() != ')' && m_text->next() != '(';
}

/// Returns the text from the next number on; empty after giving up.
std::string_view PlainBlock::number()
{
    if (!HasMore() || m_text->next() == '"')
        m_text->giveUp();
    return m_text->m_unusual ? std::string_view() : m_text->m_text.substr(m_text->m_at);
}

/// Takes a number in another spelling than the usual one.
template <typename Number>
Number PlainBlock::take(bool (*read)(std::string_view word, Number &value))
{
    Number value = 0;
    const std::string_view word = m_text->m_unusual ? std::string_view() : m_text->takeWord();
    if (word.empty() || m_text->next() == '(' || !read(word, value))
        m_text->giveUp();
    return value;
}

std::uint32_t PlainBlock::U32()
{
    constexpr std::size_t kMost = 9; // always within 32 bits
    std::uint64_t value = 0;
    const std::size_t length = digits(number(), value);
    if (length <= kMost && m_text->leaveNumber(length))
        return static_cast<std::uint32_t>(value);
    return take(ReadInteger);
}

std::uint32_t PlainBlock::Hex()
{
    std::uint32_t value = 0;
    return m_text->leaveNumber(hexDigits(number(), value)) ? value : take(ReadHex);
}

float PlainBlock::F32()
{
    float value = 0;
    return m_text->leaveNumber(readShortFloat(number(), value)) ? value : take(ReadFloat);
}

std::string PlainBlock::Text()
{
    if (!HasMore())
        m_text->giveUp();
    if (m_text->m_unusual)
        return {};
    std::string text = m_text->takeString();
    if (m_text->next() == '(')
        m_text->giveUp();
    m_hasText = true;
    return stavfile::ToShownText(std::move(text), m_text->m_encoding);
}

std::size_t PlainBlock::Count(std::size_t size)
{
    // As in TextBlock: brackets, name and a blank; at least a digit and a blank for a number.
    const std::size_t least = 4 + size / 2;
    m_promised = U32();
    return std::min(m_promised, (m_text->m_text.size() - m_text->m_at) / least);
}

} // namespace korvat
