// SPDX-License-Identifier: MIT
#include "korvat/formats/DxtEncode.h"

#include "korvat/formats/Dxt.h"

#include <algorithm>

namespace korvat {
namespace {

using Block = std::array<Pixel, 16>;

void put(std::uint8_t *to, std::uint64_t number, std::size_t size)
{
    for (std::size_t i = 0; i < size; ++i, number >>= 8)
        to[i] = static_cast<std::uint8_t>(number & 255U);
}

std::uint16_t to565(const Pixel &pixel)
{
    const auto part = [](unsigned value, unsigned most) { return (value * most + 127) / 255; };
    return static_cast<std::uint16_t>(part(pixel[0], 31) << 11U | part(pixel[1], 63) << 5U |
                                      part(pixel[2], 31));
}

bool isHole(const Pixel &pixel)
{
    return pixel[3] < 128;
}

/// The two colours that a block's palette is interpolated from; black for a block that has only
/// holes.
struct Ends
{
    Pixel first{255, 255, 255, 255}, second{0, 0, 0, 255};
};

/// Returns the corners of the box around the colours.
Ends boxOf(const Block &block, bool holes)
{
    Ends box;
    bool any = false;
    for (const Pixel &pixel : block) {
        if (holes && isHole(pixel))
            continue;
        any = true;
        for (std::size_t i = 0; i < 3; ++i) {
            box.first[i] = std::min(box.first[i], pixel[i]);
            box.second[i] = std::max(box.second[i], pixel[i]);
        }
    }
    return any ? box : Ends{{0, 0, 0, 255}, {0, 0, 0, 255}};
}

/// Returns the diagonal of the box along which the colours lie: a channel that falls while the
/// widest one rises swaps its ends. The outermost colours are rare, so the ends move inwards a
/// little.
Ends endsOf(const Block &block, bool holes)
{
    Ends ends = boxOf(block, holes);
    std::array<int, 3> middle{}, range{};
    for (std::size_t i = 0; i < 3; ++i) {
        middle[i] = (ends.first[i] + ends.second[i]) / 2;
        range[i] = ends.second[i] - ends.first[i];
    }
    const auto widest = static_cast<std::size_t>(
        std::distance(range.begin(), std::max_element(range.begin(), range.end())));
    for (std::size_t i = 0; i < 3; ++i) {
        int together = 0;
        for (const Pixel &pixel : block)
            if (!holes || !isHole(pixel))
                together += (pixel[i] - middle[i]) * (pixel[widest] - middle[widest]);
        const int inset = range[i] / 16;
        ends.first[i] = static_cast<std::uint8_t>(ends.first[i] + inset);
        ends.second[i] = static_cast<std::uint8_t>(ends.second[i] - inset);
        if (together < 0)
            std::swap(ends.first[i], ends.second[i]);
    }
    return ends;
}

/// Returns the position of a colour between `b` (0) and `a` (`steps`).
unsigned stepOf(const Pixel &pixel, const Pixel &a, const Pixel &b, int steps)
{
    int along = 0, length = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        along += (pixel[i] - b[i]) * (a[i] - b[i]);
        length += (a[i] - b[i]) * (a[i] - b[i]);
    }
    if (length == 0)
        return static_cast<unsigned>(steps);
    return static_cast<unsigned>(std::clamp((2 * along * steps + length) / (2 * length), 0, steps));
}

/// With holes, the block uses the variant with a transparent fourth colour, in which the first
/// colour is the smaller number.
void encodeColours(const Block &block, bool holes, std::uint8_t *to)
{
    const Ends ends = endsOf(block, holes);
    std::uint16_t first = to565(ends.second), second = to565(ends.first);
    if (holes ? first > second : first < second)
        std::swap(first, second);
    const Pixel a = From565(first), b = From565(second);
    constexpr std::array<unsigned, 4> kOfThree = {1, 2, 0, 0}, kOfFour = {1, 3, 2, 0};
    std::uint32_t indices = 0;
    for (unsigned i = 0; i < 16; ++i) {
        const unsigned index = holes && isHole(block[i]) ? 3
                               : holes                   ? kOfThree[stepOf(block[i], a, b, 2)]
                               : first == second         ? 0
                                                         : kOfFour[stepOf(block[i], a, b, 3)];
        indices |= index << (2 * i);
    }
    put(to, first, 2);
    put(to + 2, second, 2);
    put(to + 4, indices, 4);
}

void encodePlainAlpha(const Block &block, std::uint8_t *to)
{
    std::uint64_t alphas = 0;
    for (unsigned i = 0; i < 16; ++i)
        alphas |= std::uint64_t{(block[i][3] + 8U) / 17} << (4 * i);
    put(to, alphas, 8);
}

void encodeMixedAlpha(const Block &block, std::uint8_t *to)
{
    unsigned least = 255, most = 0;
    for (const Pixel &pixel : block) {
        least = std::min<unsigned>(least, pixel[3]);
        most = std::max<unsigned>(most, pixel[3]);
    }
    std::uint64_t indices = 0;
    const unsigned range = most - least;
    for (unsigned i = 0; range && i < 16; ++i) {
        const unsigned step = ((block[i][3] - least) * 14 + range) / (2 * range); // 0 to 7
        const std::uint64_t index = step == 7 ? 0 : step == 0 ? 1 : 8 - step;
        indices |= index << (3 * i);
    }
    to[0] = static_cast<std::uint8_t>(most);
    to[1] = static_cast<std::uint8_t>(least);
    put(to + 2, indices, 6);
}

/// Repeats the last row and column beyond the edge of the image.
Block blockAt(Bytes pixels, std::uint32_t width, std::uint32_t height, std::uint32_t left,
              std::uint32_t top)
{
    Block block;
    for (std::uint32_t i = 0; i < 16; ++i) {
        const std::uint32_t x = std::min(left + i % 4, width - 1);
        const std::uint32_t y = std::min(top + i / 4, height - 1);
        std::copy_n(&pixels[(std::size_t{y} * width + x) * 4], 4, block[i].begin());
    }
    return block;
}

} // namespace

void EncodeBlocks(PixelFormat format, Bytes pixels, std::uint32_t width, std::uint32_t height,
                  std::span<std::uint8_t> blocks)
{
    std::uint8_t *to = blocks.data();
    for (std::uint32_t top = 0; top < height; top += 4) {
        for (std::uint32_t left = 0; left < width; left += 4) {
            const Block block = blockAt(pixels, width, height, left, top);
            if (format == PixelFormat::Dxt1) {
                encodeColours(block, std::any_of(block.begin(), block.end(), isHole), to);
                to += 8;
                continue;
            }
            if (format == PixelFormat::Dxt3)
                encodePlainAlpha(block, to);
            else
                encodeMixedAlpha(block, to);
            encodeColours(block, false, to + 8);
            to += 16;
        }
    }
}

} // namespace korvat
