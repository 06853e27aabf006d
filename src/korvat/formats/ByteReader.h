// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>

namespace korvat {

using Bytes = std::span<const std::uint8_t>;

inline Bytes BytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()};
}

/// The only access to the bytes of a file. Never reads past the end: offsets are checked by
/// subtracting from what is left. Numbers are little-endian. Refers to the bytes, which must
/// outlive it.
class ByteReader
{
public:
    ByteReader() = default;
    /// `base` is the offset of the bytes in the file, for Where().
    explicit ByteReader(Bytes bytes, std::size_t base = 0)
        : m_at(bytes.data())
        , m_end(bytes.data() + bytes.size())
        , m_endPlace(base + bytes.size())
    {
    }

    std::size_t Left() const { return static_cast<std::size_t>(m_end - m_at); }
    /// Returns the offset of the next byte in the file.
    std::size_t Where() const { return m_endPlace - Left(); }

    /// Read the next number. Return nothing and stay in place if too few bytes are left.
    std::optional<std::uint8_t> ReadU8() { return read<std::uint8_t>(); }
    std::optional<std::uint16_t> ReadU16() { return read<std::uint16_t>(); }
    std::optional<std::uint32_t> ReadU32() { return read<std::uint32_t>(); }
    std::optional<std::uint64_t> ReadU64() { return read<std::uint64_t>(); }

    /// Returns the next `count` bytes; nothing if fewer are left.
    std::optional<Bytes> Take(std::size_t count)
    {
        if (count > Left())
            return std::nullopt;
        m_at += count;
        return Bytes(m_at - count, count);
    }
    /// Returns a reader of just the next `count` bytes; nothing if fewer are left.
    std::optional<ByteReader> TakeReader(std::size_t count)
    {
        const std::size_t where = Where();
        if (const auto taken = Take(count))
            return ByteReader(*taken, where);
        return std::nullopt;
    }
    /// Steps over bytes. Returns false and stays in place if fewer are left.
    bool Skip(std::size_t count) { return Take(count).has_value(); }

private:
    template <typename Number> std::optional<Number> read()
    {
        if (Left() < sizeof(Number))
            return std::nullopt;
        Number number = 0;
        if constexpr (std::endian::native == std::endian::little) {
            std::memcpy(&number, m_at, sizeof(Number));
        } else {
            for (std::size_t i = sizeof(Number); i-- > 0;)
                number = static_cast<Number>(static_cast<std::uint64_t>(number) << 8 | m_at[i]);
        }
        m_at += sizeof(Number);
        return number;
    }

    const std::uint8_t *m_at = nullptr, *m_end = nullptr;
    std::size_t m_endPlace = 0; ///< offset of the end in the file
};

} // namespace korvat
