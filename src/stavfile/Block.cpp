// SPDX-License-Identifier: MIT
#include "stavfile/Block.h"

#include "stavfile/Lexer.h"

#include <algorithm>

namespace stavfile {
namespace {

constexpr char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

/// Doubles the backslashes, so that decoding turns each into one. Escaped quotes and backslashes
/// that are already doubled stay unchanged.
std::string withLiteralBackslashes(std::string_view spelling)
{
    std::string out;
    for (std::size_t i = 0; i < spelling.size(); ++i) {
        out += spelling[i];
        if (spelling[i] != '\\')
            continue;
        const char next = i + 1 < spelling.size() ? spelling[i + 1] : '\0';
        if (next == '"' || next == '\\')
            out += spelling[++i];
        else
            out += '\\';
    }
    return out;
}

} // namespace

bool Block::SameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return lower(x) == lower(y); });
}

bool Block::Is(std::string_view name) const
{
    // Most names differ in their first letter, so the end of the name is looked for last.
    const std::string_view text = m_source->text;
    return SameName(text.substr(record().begin, name.size()), name) && Name().size() == name.size();
}

std::string Block::Value(std::size_t index) const
{
    if (index >= ValueCount())
        return {};
    const std::uint32_t place = m_source->values[record().firstValue + index];
    return ToShownText(lexer::DecodedValue(m_source->text, place), m_source->encoding);
}

std::string Block::LiteralValue(std::size_t index) const
{
    if (index >= ValueCount())
        return {};
    const std::string_view text = m_source->text;
    const std::uint32_t place = m_source->values[record().firstValue + index];
    const std::size_t end = lexer::ValueExtent(text, place).cleanEnd;
    const std::string spelling = withLiteralBackslashes(text.substr(place, end - place));
    return ToShownText(lexer::DecodedValue(spelling, 0), m_source->encoding);
}

Block::Range Block::Children() const
{
    return {*m_source, m_record + 1, record().next};
}

bool Block::Find(std::string_view name, Block &found) const
{
    for (const Block child : Children())
        if (child.Is(name)) {
            found = child;
            return true;
        }
    return false;
}

std::optional<Block> Block::Child(std::string_view name) const
{
    const std::string_view text = m_source->text;
    for (const Block child : Children())
        if (text.substr(child.Where()).starts_with(name) && child.Name() == name)
            return child;
    return std::nullopt;
}

Block::Range TopBlocks(const Source &source)
{
    return {source, 0, static_cast<std::uint32_t>(source.records.Size())};
}

} // namespace stavfile
