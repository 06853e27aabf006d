// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Bytes.h"

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

/// Returns the text with the four bytes at `at` replaced by a number.
inline std::string WithU32(std::string bytes, std::size_t at, std::uint32_t value)
{
    return bytes.replace(at, 4, U32s({value}));
}
