// SPDX-License-Identifier: MIT
#include "korvat/formats/TextBlock.h"

#include "host/Text.h"
#include "stavfile/Lexer.h"
#include "stavfile/TextCodec.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace korvat {
namespace {

std::string_view unsignedPart(std::string_view word, bool &negative)
{
    negative = word.starts_with('-');
    if (negative || word.starts_with('+'))
        word.remove_prefix(1);
    return word;
}

/// Reads the number at the front of a word; units may follow it.
bool readFloat(std::string_view word, float &value)
{
    bool negative = false;
    const std::string_view digits = unsignedPart(word, negative);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // A number too small for a float becomes 0, one too large becomes infinity.
        const bool small = digits.find("e-") != digits.npos || digits.find("E-") != digits.npos ||
                           digits.starts_with("0.") || digits.starts_with('.');
        value = small ? 0 : std::numeric_limits<float>::infinity();
    } else if (result.ec != std::errc()) {
        return false;
    }
    value = negative ? -value : value;
    return true;
}

/// Reads an integer; -1 gives 4294967295. Larger numbers also become 4294967295.
bool readInteger(std::string_view word, std::uint32_t &value)
{
    bool negative = false;
    const std::string_view digits = unsignedPart(word, negative);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = std::numeric_limits<std::uint32_t>::max();
    else if (result.ec != std::errc())
        return false;
    else if (negative)
        value = 0U - value;
    return true;
}

} // namespace

TextBlock::TextBlock(const stavfile::Source &source, Trouble &trouble)
    : m_source(&source)
    , m_trouble(&trouble)
    , m_child(0)
    , m_childEnd(source.records.Size())
    , m_value(0)
    , m_valueEnd(0)
{
}

TextBlock::TextBlock(const TextBlock &parent, std::size_t record)
    : m_source(parent.m_source)
    , m_trouble(parent.m_trouble)
    , m_record(&parent.m_source->records[record])
    , m_child(record + 1)
    , m_childEnd(m_record->next)
    , m_value(m_record->firstValue)
    , m_valueEnd(std::size_t{m_record->firstValue} + m_record->valueCount)
{
}

bool TextBlock::Is(Token token) const
{
    const std::string_view name = m_source->Name(*m_record), wanted = TokenName(token);
    return name == wanted || (name.size() == wanted.size() && host::EqualsNoCase(name, wanted));
}

std::string TextBlock::Label() const
{
    if (!m_record || !m_record->label)
        return {};
    return stavfile::ToShownText(stavfile::lexer::DecodedValue(m_source->text, m_record->label),
                                 m_source->encoding);
}

std::optional<TextBlock> TextBlock::Next()
{
    if (m_child >= m_childEnd || m_trouble->Met())
        return std::nullopt;
    const std::size_t record = m_child;
    m_child = m_source->records[record].next;
    return TextBlock(*this, record);
}

std::uint32_t TextBlock::U32()
{
    std::uint32_t value = 0;
    if (const std::string_view word = take(); !word.empty() && !readInteger(word, value))
        noNumber(word);
    return value;
}

std::uint32_t TextBlock::Hex()
{
    std::uint32_t value = 0;
    const std::string_view word = take();
    const auto result = std::from_chars(word.data(), word.data() + word.size(), value, 16);
    if (!word.empty() && result.ec != std::errc())
        noNumber(word);
    return value;
}

float TextBlock::F32()
{
    float value = 0;
    if (const std::string_view word = take(); !word.empty() && !readFloat(word, value))
        noNumber(word);
    return value;
}

std::string TextBlock::Text()
{
    if (!HasMore()) {
        take();
        return {};
    }
    return stavfile::ToShownText(
        stavfile::lexer::DecodedValue(m_source->text, m_source->values[m_value++]),
        m_source->encoding);
}

std::size_t TextBlock::Count(std::size_t size)
{
    // A block takes brackets, name and a blank; a number of four bytes at least a digit and a
    // blank.
    const std::size_t least = 4 + size / 2;
    const std::size_t count = U32();
    return std::min(count, (m_record->end - m_record->begin) / least);
}

std::size_t TextBlock::NumberCount()
{
    U32();
    return m_valueEnd - m_value;
}

std::size_t TextBlock::Where() const
{
    return static_cast<std::size_t>(m_source->LineOf(m_record ? m_record->begin : 0));
}

std::string_view TextBlock::take()
{
    if (HasMore()) {
        const std::string_view text = m_source->text;
        std::size_t place = m_source->values[m_value++];
        place += text[place] == '"' ? 1 : 0;
        if (const std::size_t end = stavfile::lexer::WordEnd(text, place); end > place)
            return text.substr(place, end - place);
        noNumber("\"\"");
        return {};
    }
    if (!m_trouble->Met())
        m_trouble->Tell(Status::Damaged, Where(),
                        "the block " + std::string(m_source->Name(*m_record)) +
                            " ends before its last value");
    return {};
}

void TextBlock::noNumber(std::string_view word)
{
    if (m_trouble->Met())
        return;
    const std::string block(m_source->Name(*m_record)), start(word.substr(0, 40));
    m_trouble->Tell(Status::Damaged, Where(),
                    "a number was expected in the block " + block + ", not " +
                        stavfile::ToShownText(start, m_source->encoding));
}

} // namespace korvat
