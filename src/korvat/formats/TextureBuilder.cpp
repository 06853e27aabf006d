// SPDX-License-Identifier: MIT
#include "korvat/formats/TextureBuilder.h"

#include "korvat/formats/Dxt.h"
#include "korvat/formats/Limits.h"

#include <algorithm>

namespace korvat {
namespace {

Pixel from1555(unsigned packed)
{
    const Pixel six =
        From565(static_cast<std::uint16_t>((packed & 0x7FE0U) << 1U | (packed & 0x1FU)));
    const unsigned green = packed >> 5U & 31U;
    return {six[0], static_cast<std::uint8_t>(green << 3U | green >> 2U), six[2],
            static_cast<std::uint8_t>(packed & 0x8000U ? 255 : 0)};
}

Pixel from4444(unsigned packed)
{
    const auto part = [packed](unsigned shift) {
        return static_cast<std::uint8_t>((packed >> shift & 15U) * 17);
    };
    return {part(8), part(4), part(0), part(12)};
}

} // namespace

ReadError CheckTextureSize(std::uint32_t width, std::uint32_t height, std::size_t where)
{
    const std::string size = std::to_string(width) + " x " + std::to_string(height);
    if (width == 0 || height == 0)
        return {Status::Damaged, where, "the texture's size is given as " + size};
    if (width > kMaxTextureSide || height > kMaxTextureSide)
        return {Status::TooLarge, where,
                "the texture's size is given as " + size + "; no side may be longer than " +
                    std::to_string(kMaxTextureSide)};
    return {};
}

std::span<std::uint8_t> AddLevel(Texture &texture, std::size_t level, PixelFormat format)
{
    TextureLevel made{SideOf(texture.width, level), SideOf(texture.height, level), format,
                      texture.data.size(), 0};
    made.size = LevelSize(format, made.width, made.height);
    if (texture.levels.empty())
        texture.data.reserve(made.size + made.size / 2); // the smaller levels add a third
    texture.data.resize(made.first + made.size);
    texture.levels.push_back(made);
    return std::span(texture.data).subspan(made.first);
}

Share ShareOf(std::size_t there, std::size_t wanted, std::size_t level)
{
    if (there >= wanted)
        return Share::Whole;
    return level == 0 && there >= wanted - there ? Share::Part : Share::None;
}

void Unpack16(const std::string &storage, Bytes packed, std::span<std::uint8_t> pixels)
{
    ByteReader reader(packed);
    for (std::size_t at = 0; pixels.size() - at >= 4; at += 4) {
        const auto value = reader.ReadU16();
        if (!value)
            return;
        const Pixel pixel = storage == "565"    ? From565(*value)
                            : storage == "1555" ? from1555(*value)
                                                : from4444(*value);
        std::copy(pixel.begin(), pixel.end(), &pixels[at]);
    }
}

} // namespace korvat
