// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Texture.h"

namespace korvat {

/// Returns an error for a side of 0 or beyond kMaxTextureSide. `where` is the offset of the size in
/// the file.
ReadError CheckTextureSize(std::uint32_t width, std::uint32_t height, std::size_t where);

/// Returns the length of a side at a level: halved `level` times, at least 1.
constexpr std::uint32_t SideOf(std::uint32_t side, std::size_t level)
{
    return level < 32 && side >> level ? side >> level : 1;
}

/// Appends a level of zeroes and returns its bytes for the caller to fill.
std::span<std::uint8_t> AddLevel(Texture &texture, std::size_t level, PixelFormat format);

/// The share of a level that the file holds. If most of the largest level is missing, the level
/// counts as missing, so that a small file cannot make the reader allocate much memory.
enum class Share
{
    Whole,
    Part, ///< at least half of the largest level: the rest stays black
    None
};
Share ShareOf(std::size_t there, std::size_t wanted, std::size_t level);

/// Unpacks pixels of two bytes to Rgba8. `storage` is "565", "1555" or "4444", with alpha in the
/// highest bits. Stops at the end of the shorter side.
void Unpack16(const std::string &storage, Bytes packed, std::span<std::uint8_t> pixels);

} // namespace korvat
