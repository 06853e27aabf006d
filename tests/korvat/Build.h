// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Bytes.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// Numbers as little-endian bytes.
inline std::string U32s(std::initializer_list<std::uint32_t> values)
{
    std::string out;
    for (const std::uint32_t value : values)
        samples::AppendU32(out, value);
    return out;
}

inline std::string Bytes8(std::initializer_list<int> values)
{
    std::string out;
    for (const int value : values)
        out += static_cast<char>(value);
    return out;
}

/// A block of a binary shape, with an ASCII label.
inline std::string Block(std::uint32_t id, std::string_view content, std::string_view label = {})
{
    std::string name;
    for (const char c : label)
        name += {c, '\0'};
    std::string out = U32s({id, static_cast<std::uint32_t>(1 + name.size() + content.size())});
    out += static_cast<char>(label.size());
    return out + name + std::string(content);
}

inline std::string BinaryShape(std::string_view sections)
{
    return samples::StorePayload("JINX0s1b______\r\n" + Block(0x47, sections));
}

/// A compressed texture whose pixels are all equal, with the given number of its largest levels.
inline std::string CompressedBlocks(std::uint32_t width, std::uint32_t height, int levels = 1)
{
    const bool smaller = levels > 1;
    std::string payload = U32s({1, smaller ? 0x15U : 0x14U, width, height, 0x12, 3, 0});
    payload.resize(152, '\0');
    for (const std::uint32_t channel : {3U, 4U, 5U})
        payload += U32s({8, 0, channel, 0});
    payload.append(std::size_t{4} * (smaller ? std::bit_width(width) : 1), '\0'); // the offsets
    for (int level = 0; level < levels; ++level) {
        const std::uint32_t size = (width >> level) / 4 * ((height >> level) / 4) * 8;
        payload += U32s({size});
        payload.append(size, '\0');
    }
    return samples::CompressPayload(payload);
}

/// Returns the text with the four bytes at `at` replaced by a number.
inline std::string WithU32(std::string bytes, std::size_t at, std::uint32_t value)
{
    return bytes.replace(at, 4, U32s({value}));
}
