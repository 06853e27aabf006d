// SPDX-License-Identifier: MIT
#include "host/Packed.h"

namespace host {
namespace {

constexpr int kBits = 7;
constexpr unsigned char kMore = 1u << kBits;

} // namespace

void Packer::Number(std::uint64_t value)
{
    for (; value >= kMore; value >>= kBits)
        m_bytes += static_cast<char>(static_cast<unsigned char>(value) | kMore);
    m_bytes += static_cast<char>(value);
}

void Packer::Word(std::uint64_t value)
{
    for (int i = 0; i < 8; ++i, value >>= 8)
        m_bytes += static_cast<char>(value & 0xFF);
}

void Packer::Text(std::string_view text)
{
    Number(text.size());
    m_bytes += text;
}

void Unpacker::fail()
{
    m_isGood = false;
    m_rest = {};
}

std::uint64_t Unpacker::Number()
{
    std::uint64_t value = 0;
    for (int shift = 0; shift < 64; shift += kBits) {
        if (m_rest.empty())
            break;
        const auto byte = static_cast<unsigned char>(m_rest.front());
        m_rest.remove_prefix(1);
        value |= std::uint64_t{byte & (kMore - 1u)} << shift;
        if (byte < kMore)
            return value;
    }
    fail();
    return 0;
}

std::uint32_t Unpacker::Index(std::size_t limit)
{
    const std::uint64_t value = Number();
    if (value > limit || value > UINT32_MAX) {
        fail();
        return 0;
    }
    return static_cast<std::uint32_t>(value);
}

std::uint64_t Unpacker::Word()
{
    if (m_rest.size() < 8) {
        fail();
        return 0;
    }
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < 8; ++i)
        value |= std::uint64_t{static_cast<unsigned char>(m_rest[i])} << (8 * i);
    m_rest.remove_prefix(8);
    return value;
}

bool Unpacker::Flag()
{
    if (m_rest.empty() || static_cast<unsigned char>(m_rest.front()) > 1) {
        fail();
        return false;
    }
    const bool value = m_rest.front() != '\0';
    m_rest.remove_prefix(1);
    return value;
}

std::string_view Unpacker::Text()
{
    const std::uint64_t size = Number();
    if (size > m_rest.size()) {
        fail();
        return {};
    }
    const std::string_view text = m_rest.substr(0, static_cast<std::size_t>(size));
    m_rest.remove_prefix(text.size());
    return text;
}

} // namespace host
