// SPDX-License-Identifier: MIT
#include "korvat/formats/TextBlock.h"

#include "host/Text.h"
#include "korvat/formats/TextNumbers.h"
#include "stavfile/Lexer.h"
#include "stavfile/TextCodec.h"

#include <algorithm>

namespace korvat {
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
    if (const std::string_view word = take(); !word.empty() && !ReadInteger(word, value))
        noNumber(word);
    return value;
}

std::uint32_t TextBlock::Hex()
{
    std::uint32_t value = 0;
    if (const std::string_view word = take(); !word.empty() && !ReadHex(word, value))
        noNumber(word);
    return value;
}

float TextBlock::F32()
{
    float value = 0;
    if (const std::string_view word = take(); !word.empty() && !ReadFloat(word, value))
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
