// SPDX-License-Identifier: MIT
#include "korvat/formats/BinaryBlock.h"

#include "host/Text.h"

namespace korvat {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHigh(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLow(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

std::string BinaryBlock::Text()
{
    const auto count = m_content.ReadU16();
    const auto units = count ? m_content.Take(std::size_t{2} * *count) : std::nullopt;
    if (!units) {
        tooShort();
        return {};
    }
    return textOf(*units);
}

std::size_t BinaryBlock::NumberCount()
{
    const std::size_t count = U32();
    const std::size_t room = m_content.Left() / sizeof(std::uint32_t);
    if (count > room) {
        m_trouble->Tell(Status::Damaged, Where(),
                        "a list of " + std::to_string(count) + " numbers has room for " +
                            std::to_string(room));
        return 0;
    }
    return count;
}

std::string BinaryBlock::textOf(Bytes units)
{
    ByteReader reader(units);
    std::string text;
    std::optional<char32_t> high;
    while (const auto unit = reader.ReadU16()) {
        if (high && isLow(*unit)) {
            host::AppendUtf8(text, 0x10000 + ((*high - 0xD800) << 10) + (*unit - 0xDC00u));
            high.reset();
            continue;
        }
        if (high)
            host::AppendUtf8(text, kReplacement);
        high.reset();
        if (isHigh(*unit))
            high = *unit;
        else
            host::AppendUtf8(text, isLow(*unit) ? kReplacement : char32_t{*unit});
    }
    if (high)
        host::AppendUtf8(text, kReplacement);
    return text;
}

void BinaryBlock::tooShort()
{
    m_trouble->Tell(Status::Damaged, Where(),
                    "the block " + std::string(TokenName(static_cast<Token>(m_id))) +
                        " ends before its last value");
    m_content = ByteReader();
}

void BinaryBlock::doesNotFit(std::size_t where)
{
    m_trouble->Tell(Status::Damaged, where,
                    m_id ? "a block in " + std::string(TokenName(static_cast<Token>(m_id))) +
                               " does not fit into it"
                         : "the file ends within its first block");
}

} // namespace korvat
