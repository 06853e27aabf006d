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

/// Decodes a level of `blocks`, which has LevelSize bytes. If `hasAlpha` is false, every pixel is
/// opaque; the transparent colour of DXT1 is then black.
std::vector<std::uint8_t> DecodeBlocks(PixelFormat format, Bytes blocks, std::uint32_t width,
                                       std::uint32_t height, bool hasAlpha);

/// True if any pixel of a DXT1 level is transparent.
bool HasHoles(Bytes blocks);

} // namespace korvat
