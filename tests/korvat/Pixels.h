// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/Texture.h"

#include <string>

/// A level's pixels as hex digits, RRGGBBAA, a blank between pixels and a line end between rows.
inline std::string Pixels(const korvat::Texture &texture, std::size_t level = 0)
{
    const std::vector<std::uint8_t> bytes = texture.Decoded(level);
    const std::size_t row = std::size_t{texture.levels[level].width} * 4;
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i && i % 4 == 0)
            text += i % row ? ' ' : '\n';
        text += "0123456789ABCDEF"[bytes[i] >> 4];
        text += "0123456789ABCDEF"[bytes[i] & 15];
    }
    return text;
}
