// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cstdint>
#include <string>
#include <string_view>

/// Little-endian values in strings of bytes, and the container of binary files.
namespace samples {

inline void AppendU16(std::string &out, std::uint16_t value)
{
    out += static_cast<char>(value & 0xFFU);
    out += static_cast<char>(value >> 8U);
}

inline void AppendU32(std::string &out, std::uint32_t value)
{
    AppendU16(out, static_cast<std::uint16_t>(value & 0xFFFFU));
    AppendU16(out, static_cast<std::uint16_t>(value >> 16U));
}

inline void AppendU64(std::string &out, std::uint64_t value)
{
    AppendU32(out, static_cast<std::uint32_t>(value & 0xFFFFFFFFU));
    AppendU32(out, static_cast<std::uint32_t>(value >> 32U));
}

inline void AppendF32(std::string &out, float value)
{
    AppendU32(out, std::bit_cast<std::uint32_t>(value));
}

// The container that binary shapes and textures share.

/// Returns a signature of 16 characters and the unchanged payload.
std::string StorePayload(std::string_view payload);
/// Returns "SIMISA@F", the size of the payload, "@@@@" and the payload as a zlib stream.
std::string CompressPayload(std::string_view payload);

} // namespace samples
