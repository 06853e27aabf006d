// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

namespace korvat {

/// Refuses sizes of 0 and beyond kMaxTextureSide; `where` is that of the size in the file.
ReadError CheckTextureSize(std::uint32_t width, std::uint32_t height, std::size_t where);

/// The size of a level: halved `level` times, at least 1.
constexpr std::uint32_t SideOf(std::uint32_t side, std::size_t level)
{
    return level < 32 && side >> level ? side >> level : 1;
}

/// Appends a level, zeroed, and gives its bytes to be filled.
std::span<std::uint8_t> AddLevel(Texture &texture, std::size_t level, PixelFormat format);

/// How much of a level is there. Nothing is made of a largest level of which most is missing, so
/// that a small file cannot ask for much memory.
enum class Share
{
    Whole,
    Part, ///< at least half of the largest level: what is missing stays black
    None
};
Share ShareOf(std::size_t there, std::size_t wanted, std::size_t level);

/// Pixels of two bytes with 5, 6, 5 or 1, 5, 5, 5 or 4, 4, 4, 4 bits (alpha in front) to Rgba8.
/// Stops at the end of the shorter side.
void Unpack16(const std::string &storage, Bytes packed, std::span<std::uint8_t> pixels);

} // namespace korvat
