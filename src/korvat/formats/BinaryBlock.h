// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ByteReader.h"
#include "korvat/formats/ReadError.h"
#include "korvat/formats/ShapeTokens.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace korvat {

/// A block of a binary shape, read from front to back. Content that does not fit is reported to
/// `trouble`; from then on every block is at its end and every number is 0. TextBlock has the same
/// members, except for those that are only fast, so that one description of a shape serves both
/// forms.
class BinaryBlock
{
public:
    /// The top level of a token stream.
    BinaryBlock(ByteReader content, Trouble &trouble)
        : m_content(content)
        , m_trouble(&trouble)
    {
    }

    /// A block whose head has been read.
    BinaryBlock(ByteReader content, Trouble &trouble, std::uint32_t id, Bytes label)
        : m_content(content)
        , m_trouble(&trouble)
        , m_id(id)
        , m_label(label)
    {
    }

    bool Is(Token token) const { return m_id == static_cast<std::uint32_t>(token); }
    std::string Label() const { return textOf(m_label); }

    /// Returns the next block inside this one, of any kind; nothing at the end.
    std::optional<BinaryBlock> Next()
    {
        if (m_content.Left() == 0 || m_trouble->Met())
            return std::nullopt;
        // Checks the whole head at once, because a shape consists mostly of heads.
        const std::size_t where = m_content.Where();
        const std::optional<Bytes> head = m_content.Take(kLeastBlock);
        if (head) {
            ByteReader fields(*head);
            const std::uint32_t id = *fields.ReadU32(); // name space in the upper half
            const std::size_t length = *fields.ReadU32(), label = std::size_t{2} * *fields.ReadU8();
            if (length > label && length - 1 <= m_content.Left()) {
                const Bytes name = *m_content.Take(label);
                return std::optional<BinaryBlock>(
                    std::in_place, *m_content.TakeReader(length - 1 - label), *m_trouble, id, name);
            }
        }
        doesNotFit(where);
        return std::nullopt;
    }

    /// Reads the following blocks of this kind whose content is nothing but the floats of an item.
    /// Next reads others.
    template <typename Item> void Records(Token token, std::vector<Item> &items)
    {
        static_assert(std::is_trivially_copyable_v<Item> && sizeof(Item) % sizeof(float) == 0);
        if constexpr (std::endian::native == std::endian::little)
            while (const auto content = takeUsual(token, sizeof(Item)))
                std::memcpy(&items.emplace_back(), content->data(), sizeof(Item));
    }

    /// The numbers of a vertex: its flags, point, normal and two colours, and its first texture
    /// coordinates.
    using VertexNumbers = std::array<std::uint32_t, 6>;
    /// Reads the next block if it is a vertex with one pair of texture coordinates; nothing for
    /// others, which Next reads.
    std::optional<VertexNumbers> UsualVertex()
    {
        constexpr std::size_t kNumbers = 5, kUvs = 8;
        const ByteReader before = m_content;
        const auto content = takeUsual(Token::Vertex, 4 * kNumbers + kLeastBlock + kUvs);
        if (!content)
            return std::nullopt;
        VertexNumbers numbers;
        ByteReader fields(*content);
        for (std::size_t i = 0; i < kNumbers; ++i)
            numbers[i] = *fields.ReadU32();
        const auto uvs = BinaryBlock(fields, *m_trouble).takeUsual(Token::VertexUvs, kUvs);
        ByteReader list = uvs ? ByteReader(*uvs) : ByteReader();
        if (list.ReadU32() != 1U) {
            m_content = before;
            return std::nullopt;
        }
        numbers[kNumbers] = *list.ReadU32();
        return numbers;
    }

    std::uint32_t U32()
    {
        if (const auto value = m_content.ReadU32())
            return *value;
        tooShort();
        return 0;
    }
    std::uint32_t Hex() { return U32(); }
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    float F32() { return std::bit_cast<float>(U32()); }
    std::string Text();
    /// True if values are left. Only for blocks that hold nothing but values.
    bool HasMore() const { return m_content.Left() >= sizeof(std::uint32_t); }

    /// Reads the count in front of a list of blocks. Returns at most as many as can be left, if
    /// each has at least `size` bytes of content.
    std::size_t Count(std::size_t size)
    {
        const std::size_t count = U32();
        return std::min(count, m_content.Left() / (kLeastBlock + size));
    }
    /// Reads the count in front of a list of numbers. Reports trouble and returns 0 if fewer are
    /// left.
    std::size_t NumberCount();

    /// Reads a list of numbers with its count and appends it to `out`.
    template <typename Number> void Numbers(std::vector<Number> &out)
    {
        const std::size_t count = NumberCount(), first = out.size();
        static_assert(sizeof(Number) == sizeof(std::uint32_t));
        out.resize(first + count);
        if constexpr (std::endian::native == std::endian::little) {
            const Bytes numbers = *m_content.Take(sizeof(Number) * count);
            std::copy(numbers.begin(), numbers.end(),
                      reinterpret_cast<std::uint8_t *>(out.data() + first));
        } else {
            for (std::size_t i = 0; i < count; ++i)
                out[first + i] = static_cast<Number>(*m_content.ReadU32());
        }
    }

    std::size_t Where() const { return m_content.Where(); }

private:
    static constexpr std::size_t kLeastBlock = 9;

    /// Takes the content of the next block if the block is of this kind, has no label and has
    /// exactly this size; otherwise stays in place.
    std::optional<Bytes> takeUsual(Token token, std::size_t size)
    {
        ByteReader ahead = m_content;
        const auto bytes = ahead.Take(kLeastBlock + size);
        if (!bytes || m_trouble->Met())
            return std::nullopt;
        ByteReader head(*bytes);
        if (*head.ReadU32() != static_cast<std::uint32_t>(token) || *head.ReadU32() != size + 1 ||
            *head.ReadU8() != 0)
            return std::nullopt;
        m_content = ahead;
        return bytes->subspan(kLeastBlock);
    }

    static std::string textOf(Bytes units);
    void tooShort();
    void doesNotFit(std::size_t where);

    ByteReader m_content;
    Trouble *m_trouble;
    std::uint32_t m_id = 0;
    Bytes m_label;
};

} // namespace korvat
