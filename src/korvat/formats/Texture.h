// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/ByteReader.h"
#include "korvat/formats/ReadError.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Textures in the forms that graphics cards accept: docs/formats.md, "Textures".
namespace korvat {

enum class PixelFormat
{
    Rgba8, ///< four bytes per pixel, from the top row down
    Dxt1,  ///< 8 bytes per block of 4 x 4 pixels
    Dxt3,  ///< 16 bytes per block, with explicit alpha
    Dxt5   ///< 16 bytes per block, with interpolated alpha
};

struct TextureLevel
{
    std::uint32_t width = 0, height = 0;
    PixelFormat format = PixelFormat::Rgba8;
    std::size_t first = 0, size = 0; ///< byte range in Texture::data
};

struct Texture
{
    std::uint32_t width = 0, height = 0;
    /// The storage in the file: "structured" (channel by channel), "dxt1", "dxt3", "dxt5", "565",
    /// "1555", "4444" or "uncompressed".
    std::string storage;
    unsigned channels = 0; ///< number of stored channels, including a mask
    int alphaBits = 0;     ///< 0 (opaque), 1 (a mask) or 8
    /// From the largest down. In a DXT texture, levels below 4 x 4 may be Rgba8.
    std::vector<TextureLevel> levels;
    std::vector<std::uint8_t> data; ///< all levels
    /// From a folder of night textures: painted as it looks in the dark, with its lights.
    bool isNight = false;

    Bytes LevelBytes(std::size_t level) const
    {
        return Bytes(data).subspan(levels[level].first, levels[level].size);
    }
    /// Returns the number of levels at the front that have the format of the first one, and so can
    /// be one texture of the graphics card.
    std::size_t UniformLevels() const;
    /// Returns a level as Rgba8. If there are no alpha bits, every pixel is opaque.
    std::vector<std::uint8_t> Decoded(std::size_t level) const;
    /// Writes a level as Rgba8 to memory whose rows begin `stride` bytes after each other.
    void Decode(std::size_t level, std::uint8_t *to, std::size_t stride) const;
};

/// Returns the number of bytes of a level of this size.
std::size_t LevelSize(PixelFormat format, std::uint32_t width, std::uint32_t height);

struct TextureFile
{
    Texture texture;
    std::vector<std::string> notes; ///< what was repaired, one sentence each
    ReadError error;
};

/// Reads a texture in either form; its first bytes show which. Never throws on content; the texture
/// is at most eight times as large as the file's data. Without an error it has at least one level.
TextureFile ReadTexture(std::string_view bytes);

} // namespace korvat
