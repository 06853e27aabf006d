// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ReadError.h"
#include "korvat/formats/ShapeTokens.h"
#include "stavfile/Source.h"

#include <optional>
#include <string>
#include <vector>

namespace korvat {

/// A block of a text shape, with the members of BinaryBlock. Counts in text shapes are often wrong,
/// so the items themselves are counted.
class TextBlock
{
public:
    /// The top level of a text.
    TextBlock(const stavfile::Source &source, Trouble &trouble);

    bool Is(Token token) const;
    std::string Label() const;
    std::optional<TextBlock> Next();

    std::uint32_t U32();
    std::uint32_t Hex();
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    float F32();
    std::string Text();
    bool HasMore() const { return m_value < m_valueEnd; }
    std::size_t Count(std::size_t size);
    std::size_t NumberCount();
    template <typename Number> void Numbers(std::vector<Number> &out)
    {
        const std::size_t count = NumberCount();
        for (std::size_t i = 0; i < count; ++i)
            out.push_back(static_cast<Number>(U32()));
    }
    /// Returns the line of the block.
    std::size_t Where() const;

private:
    TextBlock(const TextBlock &parent, std::size_t record);
    /// Returns the spelling of the next value; "" after reporting trouble if there is none.
    std::string_view take();
    void noNumber(std::string_view word);

    const stavfile::Source *m_source;
    Trouble *m_trouble;
    const stavfile::Record *m_record = nullptr; ///< null at the top level
    std::size_t m_child, m_childEnd;            ///< indexes of records
    std::size_t m_value, m_valueEnd;            ///< indexes of values
};

} // namespace korvat
