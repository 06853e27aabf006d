// SPDX-License-Identifier: MIT
#include "korvat/formats/Texture.h"

#include "korvat/formats/Dxt.h"
#include "korvat/formats/ReadAce.h"
#include "korvat/formats/ReadDds.h"

#include <algorithm>

namespace korvat {

std::size_t LevelSize(PixelFormat format, std::uint32_t width, std::uint32_t height)
{
    if (format == PixelFormat::Rgba8)
        return std::size_t{width} * height * 4;
    const std::size_t blocks = (std::size_t{width} + 3) / 4 * ((std::size_t{height} + 3) / 4);
    return blocks * (format == PixelFormat::Dxt1 ? 8 : 16);
}

std::size_t Texture::UniformLevels() const
{
    std::size_t count = 0;
    while (count < levels.size() && levels[count].format == levels.front().format)
        ++count;
    return count;
}

std::vector<std::uint8_t> Texture::Decoded(std::size_t level) const
{
    const std::size_t row = std::size_t{levels[level].width} * 4;
    std::vector<std::uint8_t> pixels(row * levels[level].height);
    Decode(level, pixels.data(), row);
    return pixels;
}

void Texture::Decode(std::size_t level, std::uint8_t *to, std::size_t stride) const
{
    const TextureLevel &from = levels[level];
    const Bytes bytes = LevelBytes(level);
    if (from.format != PixelFormat::Rgba8)
        return DecodeBlocks(from.format, bytes, {from.width, from.height, to, stride},
                            alphaBits != 0);
    const std::size_t row = std::size_t{from.width} * 4;
    for (std::size_t y = 0; y < from.height; ++y)
        std::copy_n(bytes.data() + y * row, row, to + y * stride);
}

TextureFile ReadTexture(std::string_view bytes)
{
    return bytes.starts_with("DDS ") ? ReadDds(bytes) : ReadAce(bytes);
}

} // namespace korvat
