// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

#include <gtest/gtest.h>

#include <string>

/// Returns a level's pixels as hex digits, RRGGBBAA, with blanks between pixels and line ends
/// between rows.
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

/// Reads a texture and checks what the reader promises for any bytes.
inline void ExpectSound(const std::string &bytes)
{
    const korvat::TextureFile file = korvat::ReadTexture(bytes);
    EXPECT_TRUE(file.error || !file.texture.levels.empty());
    EXPECT_LE(file.texture.data.size(), 8 * bytes.size());
    for (std::size_t level = 0; !file.error && level < file.texture.levels.size(); ++level) {
        const korvat::TextureLevel &one = file.texture.levels[level];
        EXPECT_EQ(file.texture.LevelBytes(level).size(),
                  LevelSize(one.format, one.width, one.height));
        EXPECT_EQ(file.texture.Decoded(level).size(), std::size_t{one.width} * one.height * 4);
    }
}
