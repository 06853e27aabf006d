// SPDX-License-Identifier: MIT
#include "korvat/formats/Texture.h"

#include "korvat/formats/Dxt.h"
#include "korvat/formats/ReadAce.h"
#include "korvat/formats/ReadDds.h"

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
    const TextureLevel &from = levels[level];
    const Bytes bytes = LevelBytes(level);
    if (from.format == PixelFormat::Rgba8)
        return {bytes.begin(), bytes.end()};
    return DecodeBlocks(from.format, bytes, from.width, from.height, alphaBits != 0);
}

TextureFile ReadTexture(std::string_view bytes)
{
    return bytes.starts_with("DDS ") ? ReadDds(bytes) : ReadAce(bytes);
}

} // namespace korvat
