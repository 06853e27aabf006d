// SPDX-License-Identifier: MIT
#include "korvat/formats/Mipmaps.h"

#include "korvat/formats/Dxt.h"
#include "korvat/formats/DxtEncode.h"
#include "korvat/formats/TextureBuilder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace korvat {
namespace {

/// A level that is being built, four bytes per pixel.
struct Image
{
    std::uint32_t width = 0, height = 0;
    std::vector<std::uint8_t> pixels;

    std::uint8_t *Row(std::uint32_t y) { return &pixels[std::size_t{y} * width * 4]; }
    const std::uint8_t *Row(std::uint32_t y) const { return &pixels[std::size_t{y} * width * 4]; }
};

Image halfOf(std::uint32_t width, std::uint32_t height)
{
    Image image{SideOf(width, 1), SideOf(height, 1), {}};
    image.pixels.resize(LevelSize(PixelFormat::Rgba8, image.width, image.height));
    return image;
}

using Four = std::array<const std::uint8_t *, 4>;

void average(const Four &from, std::uint8_t *to)
{
    for (std::size_t i = 0; i < 4; ++i) {
        const unsigned sum = 0U + from[0][i] + from[1][i] + from[2][i] + from[3][i];
        to[i] = static_cast<std::uint8_t>((sum + 2) / 4);
    }
}

/// Averages the colours by alpha: a hole has no colour and must not darken the edges beside it.
void averageOfSolid(const Four &from, std::uint8_t *to)
{
    const unsigned solid = 0U + from[0][3] + from[1][3] + from[2][3] + from[3][3];
    for (std::size_t i = 0; i < 3; ++i) {
        unsigned sum = solid / 2;
        for (const std::uint8_t *pixel : from)
            sum += unsigned{pixel[i]} * pixel[3];
        to[i] = static_cast<std::uint8_t>(solid ? sum / solid : 0);
    }
    to[3] = static_cast<std::uint8_t>((solid + 2) / 4);
}

/// Halves two rows of `width` pixels into one.
void halveRows(const std::uint8_t *upper, const std::uint8_t *lower, std::uint32_t width,
               bool holes, std::uint8_t *to)
{
    for (std::uint32_t x = 0; x < SideOf(width, 1); ++x) {
        const std::size_t left = std::size_t{x} * 8;
        const std::size_t right = std::size_t{4} * std::min(2 * x + 1, width - 1);
        const Four four = {upper + left, upper + right, lower + left, lower + right};
        std::uint8_t *const out = to + std::size_t{x} * 4;
        holes ? averageOfSolid(four, out) : average(four, out);
    }
}

/// Returns the second level, made from the blocks of the first. Decodes one row of blocks at a
/// time: the whole first level of a large texture would need much memory.
Image halfOfBlocks(const Texture &texture, bool holes)
{
    const TextureLevel &from = texture.levels.front();
    const std::size_t rowSize = LevelSize(from.format, from.width, 4);
    Image half = halfOf(from.width, from.height);
    const std::size_t row = std::size_t{4} * from.width;
    std::vector<std::uint8_t> pixels(4 * row);
    for (std::uint32_t top = 0; top < from.height; top += 4) {
        const std::uint32_t rows = std::min(4U, from.height - top);
        const Bytes blocks = texture.LevelBytes(0).subspan(top / 4 * rowSize, rowSize);
        DecodeBlocks(from.format, blocks, {from.width, rows, pixels.data(), row},
                     texture.alphaBits != 0);
        for (std::uint32_t y = 0; y < rows && (top + y) / 2 < half.height; y += 2)
            halveRows(&pixels[y * row], &pixels[std::min(y + 1, rows - 1) * row], from.width, holes,
                      half.Row((top + y) / 2));
    }
    return half;
}

Image halfOfImage(const Image &from, bool holes)
{
    Image half = halfOf(from.width, from.height);
    for (std::uint32_t y = 0; y < half.height; ++y)
        halveRows(from.Row(2 * y), from.Row(std::min(2 * y + 1, from.height - 1)), from.width,
                  holes, half.Row(y));
    return half;
}

double solidShare(const Image &image)
{
    std::uint64_t sum = 0;
    for (std::size_t at = 3; at < image.pixels.size(); at += 4)
        sum += image.pixels[at];
    return static_cast<double>(sum) / 255 / static_cast<double>(image.pixels.size() / 4);
}

/// Returns how solid a pixel is, 0 to 4095. An even pattern orders pixels of equal alpha.
std::size_t solidity(const Image &image, std::size_t pixel)
{
    static constexpr std::array<std::uint8_t, 16> kSpread = {0, 8,  2, 10, 12, 4, 14, 6,
                                                             3, 11, 1, 9,  15, 7, 13, 5};
    const std::size_t x = pixel % image.width, y = pixel / image.width;
    return std::size_t{image.pixels[4 * pixel + 3]} * 16 + kSpread[y % 4 * 4 + x % 4];
}

/// Makes `share` of the image's pixels solid, the most solid ones first, and the others holes.
Image withHoles(Image image, double share)
{
    const std::size_t count = image.pixels.size() / 4;
    std::vector<std::size_t> pixelsOf(4096);
    std::vector<std::size_t> all(count);
    for (std::size_t i = 0; i < count; ++i)
        ++pixelsOf[all[i] = solidity(image, i)];
    const auto wanted = static_cast<std::size_t>(std::lround(share * static_cast<double>(count)));
    std::size_t least = pixelsOf.size(), solid = 0;
    while (solid < wanted && least > 16) // below 16 there are only holes
        solid += pixelsOf[--least];
    for (std::size_t i = 0; i < count; ++i)
        image.pixels[4 * i + 3] = all[i] >= least ? 255 : 0;
    return image;
}

} // namespace

void MakeSmallerLevels(Texture &texture)
{
    if (texture.levels.size() != 1 || texture.levels.front().format == PixelFormat::Rgba8)
        return;
    const PixelFormat format = texture.levels.front().format;
    const bool holes = format == PixelFormat::Dxt1 && texture.alphaBits != 0;
    const std::size_t count = std::bit_width(std::max(texture.width, texture.height));
    if (count == 1)
        return;
    Image image = halfOfBlocks(texture, holes);
    const double share = holes ? solidShare(image) : 1;
    for (std::size_t level = 1; level < count; ++level) {
        if (level > 1)
            image = halfOfImage(image, holes);
        const std::span<std::uint8_t> blocks = AddLevel(texture, level, format);
        if (holes)
            EncodeBlocks(format, withHoles(image, share).pixels, image.width, image.height, blocks);
        else
            EncodeBlocks(format, image.pixels, image.width, image.height, blocks);
    }
}

} // namespace korvat
