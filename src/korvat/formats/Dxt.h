// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

#include <array>
#include <span>

namespace korvat {

/// Red, green, blue, alpha.
using Pixel = std::array<std::uint8_t, 4>;

/// Unpacks an opaque pixel of two bytes: 5, 6 and 5 bits.
Pixel From565(std::uint16_t packed);

/// The memory that receives the pixels of a level.
struct Canvas
{
    std::uint32_t width = 0, height = 0;
    std::uint8_t *first = nullptr; ///< the left pixel of the top row
    std::size_t stride = 0;        ///< from the beginning of a row to that of the next, in bytes
};

/// Decodes a level of `blocks`, which has LevelSize bytes. If `hasAlpha` is false, every pixel is
/// opaque; the transparent colour of DXT1 is then black.
void DecodeBlocks(PixelFormat format, Bytes blocks, const Canvas &to, bool hasAlpha);

/// True if any pixel of a DXT1 level is transparent.
bool HasHoles(Bytes blocks);

} // namespace korvat
