// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

#include <cstdint>
#include <span>

namespace korvat {

/// Encodes a level, four bytes a pixel, into `blocks`, which has LevelSize bytes. Meant for the
/// smaller levels of textures: fast rather than faithful. In DXT1, pixels with an alpha below 128
/// become holes.
void EncodeBlocks(PixelFormat format, Bytes pixels, std::uint32_t width, std::uint32_t height,
                  std::span<std::uint8_t> blocks);

} // namespace korvat
