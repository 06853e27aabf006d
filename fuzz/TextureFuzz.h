// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

#include <cstdlib>

/// Checks what must hold for every texture: its levels exist and can be decoded, and its memory is
/// at most a small multiple of the bytes that it was made from.
inline void CheckTexture(const korvat::TextureFile &file, std::size_t madeFrom)
{
    const korvat::Texture &texture = file.texture;
    const auto require = [](bool holds) {
        if (!holds)
            std::abort();
    };
    require(texture.data.size() <= 8 * madeFrom);
    require(file.error || !texture.levels.empty());
    for (std::size_t i = 0; !file.error && i < texture.levels.size(); ++i) {
        const korvat::TextureLevel &level = texture.levels[i];
        require(texture.LevelBytes(i).size() == LevelSize(level.format, level.width, level.height));
        require(texture.Decoded(i).size() == std::size_t{level.width} * level.height * 4);
    }
    require(texture.UniformLevels() <= texture.levels.size());
}
