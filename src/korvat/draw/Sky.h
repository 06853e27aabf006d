// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/ModelSource.h"

#include <algorithm>
#include <array>

namespace korvat {

/// Paints a square texture, pixel by pixel. Its alpha counts only if `alphaBits` is not 0.
template <typename ColourAt>
TexturePtr PaintTexture(unsigned side, int alphaBits, const ColourAt &colourAt)
{
    auto texture = std::make_shared<Texture>();
    texture->width = texture->height = side;
    texture->alphaBits = alphaBits;
    texture->levels = {
        {side, side, PixelFormat::Rgba8, 0, LevelSize(PixelFormat::Rgba8, side, side)}};
    texture->data.reserve(texture->levels[0].size);
    for (unsigned y = 0; y < side; ++y)
        for (unsigned x = 0; x < side; ++x) {
            const Tint colour = colourAt(x, y);
            for (const float part : {colour.r, colour.g, colour.b, colour.a})
                texture->data.push_back(
                    static_cast<std::uint8_t>(std::clamp(part, 0.0f, 1.0f) * 255));
        }
    return texture;
}

/// Paints a few white clouds, which repeat in both directions. Alpha is their density.
TexturePtr PaintClouds();

} // namespace korvat
