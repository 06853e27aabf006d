// SPDX-License-Identifier: MIT
#include "korvat/formats/Dxt.h"

#include <algorithm>

namespace korvat {
namespace {

using Block = std::array<Pixel, 16>;
using Palette = std::array<Pixel, 4>;

std::uint8_t mixed(unsigned a, unsigned b, unsigned partsOfA, unsigned partsOfB)
{
    return static_cast<std::uint8_t>((a * partsOfA + b * partsOfB) / (partsOfA + partsOfB));
}

Pixel mixed(const Pixel &a, const Pixel &b, unsigned partsOfA, unsigned partsOfB)
{
    Pixel result{0, 0, 0, 255};
    for (std::size_t i = 0; i < 3; ++i)
        result[i] = mixed(a[i], b[i], partsOfA, partsOfB);
    return result;
}

std::uint64_t numberAt(const std::uint8_t *bytes, std::size_t size)
{
    std::uint64_t number = 0;
    for (std::size_t i = size; i-- > 0;)
        number = number << 8 | bytes[i];
    return number;
}

/// `threeColours` permits the variant of three colours and a transparent fourth.
void decodeColours(const std::uint8_t *bytes, bool threeColours, Block &block)
{
    const auto first = static_cast<std::uint16_t>(numberAt(bytes, 2));
    const auto second = static_cast<std::uint16_t>(numberAt(bytes + 2, 2));
    const Pixel a = From565(first), b = From565(second);
    const bool four = first > second || !threeColours;
    const Palette palette = {a, b, four ? mixed(a, b, 2, 1) : mixed(a, b, 1, 1),
                             four ? mixed(a, b, 1, 2) : Pixel{0, 0, 0, 0}};
    const std::uint64_t indices = numberAt(bytes + 4, 4);
    for (unsigned i = 0; i < 16; ++i)
        block[i] = palette[indices >> (2 * i) & 3U];
}

void decodePlainAlpha(const std::uint8_t *bytes, Block &block)
{
    const std::uint64_t alphas = numberAt(bytes, 8);
    for (unsigned i = 0; i < 16; ++i)
        block[i][3] = static_cast<std::uint8_t>((alphas >> (4 * i) & 15U) * 17);
}

void decodeMixedAlpha(const std::uint8_t *bytes, Block &block)
{
    const unsigned a = bytes[0], b = bytes[1];
    std::array<std::uint8_t, 8> palette = {bytes[0], bytes[1], 0, 0, 0, 0, 0, 255};
    const unsigned steps = a > b ? 7 : 5;
    for (unsigned i = 1; i < steps; ++i)
        palette[i + 1] = mixed(a, b, steps - i, i);
    const std::uint64_t indices = numberAt(bytes + 2, 6);
    for (unsigned i = 0; i < 16; ++i)
        block[i][3] = palette[indices >> (3 * i) & 7U];
}

Block decodeBlock(PixelFormat format, const std::uint8_t *bytes)
{
    Block block;
    if (format == PixelFormat::Dxt1) {
        decodeColours(bytes, true, block);
        return block;
    }
    decodeColours(bytes + 8, false, block);
    if (format == PixelFormat::Dxt3)
        decodePlainAlpha(bytes, block);
    else
        decodeMixedAlpha(bytes, block);
    return block;
}

} // namespace

Pixel From565(std::uint16_t packed)
{
    const unsigned red = packed >> 11U, green = packed >> 5U & 63U, blue = packed & 31U;
    const auto byte = [](unsigned value) { return static_cast<std::uint8_t>(value); };
    return {byte(red << 3U | red >> 2U), byte(green << 2U | green >> 4U),
            byte(blue << 3U | blue >> 2U), 255};
}

void DecodeBlocks(PixelFormat format, Bytes blocks, const Canvas &to, bool hasAlpha)
{
    const std::size_t blockSize = format == PixelFormat::Dxt1 ? 8 : 16;
    const std::uint8_t *at = blocks.data();
    for (std::uint32_t top = 0; top < to.height; top += 4)
        for (std::uint32_t left = 0; left < to.width; left += 4, at += blockSize) {
            const Block block = decodeBlock(format, at);
            for (std::uint32_t y = top; y < std::min(top + 4, to.height); ++y)
                for (std::uint32_t x = left; x < std::min(left + 4, to.width); ++x) {
                    Pixel pixel = block[4 * (y - top) + x - left];
                    pixel[3] = hasAlpha ? pixel[3] : std::uint8_t{255};
                    std::copy(pixel.begin(), pixel.end(),
                              to.first + y * to.stride + std::size_t{x} * 4);
                }
        }
}

bool HasHoles(Bytes blocks)
{
    for (std::size_t at = 0; blocks.size() - at >= 8; at += 8) {
        const std::uint8_t *block = &blocks[at];
        if (numberAt(block, 2) > numberAt(block + 2, 2))
            continue;
        const std::uint64_t indices = numberAt(block + 4, 4);
        if (indices & indices >> 1 & 0x55555555U)
            return true;
    }
    return false;
}

} // namespace korvat
