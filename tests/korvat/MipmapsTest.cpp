// SPDX-License-Identifier: MIT
#include "korvat/formats/Mipmaps.h"

#include "korvat/formats/Dxt.h"
#include "korvat/formats/DxtEncode.h"
#include "korvat/formats/TextureBuilder.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdlib>
#include <functional>

using namespace korvat;

namespace {

using Painter = std::function<Pixel(std::uint32_t x, std::uint32_t y)>;

/// A texture with one level, painted and compressed.
Texture painted(PixelFormat format, std::uint32_t width, std::uint32_t height, int alphaBits,
                const Painter &paint)
{
    std::vector<std::uint8_t> pixels;
    for (std::uint32_t y = 0; y < height; ++y)
        for (std::uint32_t x = 0; x < width; ++x) {
            const Pixel pixel = paint(x, y);
            pixels.insert(pixels.end(), pixel.begin(), pixel.end());
        }
    Texture texture;
    texture.width = width;
    texture.height = height;
    texture.alphaBits = alphaBits;
    EncodeBlocks(format, pixels, width, height, AddLevel(texture, 0, format));
    return texture;
}

/// Colours on a line, like the four of a block: red rises while blue falls.
Pixel hills(std::uint32_t x, std::uint32_t y)
{
    const auto wave = [](double at) {
        return static_cast<std::uint8_t>(std::lround(128 + 40 * std::sin(at)));
    };
    const std::uint8_t red = wave((x + 2 * y) / 9.0);
    const auto blue = static_cast<std::uint8_t>(255 - red);
    return {red, 60, blue, wave((2 * x + y) / 13.0)};
}

/// Returns the mean of the pixels in the first level that a pixel of a smaller level covers.
Pixel meanOf(const std::vector<std::uint8_t> &pixels, std::uint32_t width, std::uint32_t height,
             std::uint32_t left, std::uint32_t top, std::uint32_t side)
{
    std::array<unsigned, 4> sum{};
    unsigned count = 0;
    for (std::uint32_t y = top; y < std::min(top + side, height); ++y)
        for (std::uint32_t x = left; x < std::min(left + side, width); ++x, ++count)
            for (std::size_t i = 0; i < 4; ++i)
                sum[i] += pixels[(std::size_t{y} * width + x) * 4 + i];
    Pixel mean;
    for (std::size_t i = 0; i < 4; ++i)
        mean[i] = static_cast<std::uint8_t>(sum[i] / count);
    return mean;
}

/// Returns the error of a level: the mean difference per channel from the means of the first level.
double errorOf(const Texture &texture, std::size_t level)
{
    const std::vector<std::uint8_t> first = texture.Decoded(0), small = texture.Decoded(level);
    const TextureLevel &at = texture.levels[level];
    double sum = 0;
    for (std::uint32_t y = 0; y < at.height; ++y)
        for (std::uint32_t x = 0; x < at.width; ++x) {
            const Pixel mean =
                meanOf(first, texture.width, texture.height, x << level, y << level, 1U << level);
            for (std::size_t i = 0; i < 4; ++i)
                sum += std::abs(mean[i] - small[(std::size_t{y} * at.width + x) * 4 + i]);
        }
    return sum / static_cast<double>(small.size());
}

double solidShare(const Texture &texture, std::size_t level)
{
    const std::vector<std::uint8_t> pixels = texture.Decoded(level);
    std::size_t solid = 0;
    for (std::size_t at = 3; at < pixels.size(); at += 4)
        solid += pixels[at] == 255;
    return static_cast<double>(solid) * 4 / static_cast<double>(pixels.size());
}

} // namespace

TEST(MipmapsTest, SmallerLevelsAreMeansOfTheFirst)
{
    const struct
    {
        PixelFormat format;
        int alphaBits;
    } formats[] = {{PixelFormat::Dxt1, 0}, {PixelFormat::Dxt3, 8}, {PixelFormat::Dxt5, 8}};
    const std::array<std::uint32_t, 2> sizes[] = {{64, 64}, {64, 16}, {4, 128}, {8, 1}, {2, 2}};
    for (const auto &[format, alphaBits] : formats)
        for (const auto &[width, height] : sizes) {
            SCOPED_TRACE(std::to_string(static_cast<int>(format)) + ", " + std::to_string(width) +
                         " x " + std::to_string(height));
            Texture texture = painted(format, width, height, alphaBits, hills);
            MakeSmallerLevels(texture);
            ASSERT_EQ(texture.levels.size(), std::bit_width(std::max(width, height)));
            EXPECT_EQ(texture.UniformLevels(), texture.levels.size());
            EXPECT_EQ(texture.levels.back().width, 1u);
            EXPECT_EQ(texture.levels.back().height, 1u);
            std::size_t end = 0;
            for (std::size_t level = 0; level < texture.levels.size(); ++level) {
                const TextureLevel &one = texture.levels[level];
                EXPECT_EQ(one.size, LevelSize(format, one.width, one.height));
                EXPECT_EQ(one.first, end);
                end += one.size;
                EXPECT_LT(errorOf(texture, level), 10) << level;
            }
            EXPECT_EQ(texture.data.size(), end);
        }
}

TEST(MipmapsTest, OddSizesAreRoundedDown)
{
    for (const PixelFormat format : {PixelFormat::Dxt1, PixelFormat::Dxt5})
        for (std::uint32_t width = 1; width < 20; ++width)
            for (std::uint32_t height = 1; height < 20; ++height) {
                Texture texture = painted(format, width, height, 8, [](auto, auto) {
                    return Pixel{255, 0, 255, 255};
                });
                MakeSmallerLevels(texture);
                ASSERT_EQ(texture.levels.size(), std::bit_width(std::max(width, height)));
                for (std::size_t level = 0; level < texture.levels.size(); ++level) {
                    ASSERT_EQ(texture.levels[level].width, SideOf(width, level));
                    ASSERT_EQ(texture.levels[level].height, SideOf(height, level));
                    const std::vector<std::uint8_t> pixels = texture.Decoded(level);
                    for (std::size_t at = 0; at < pixels.size(); ++at)
                        ASSERT_EQ(pixels[at], at % 4 == 1 ? 0 : 255) << width << " x " << height;
                }
            }
}

TEST(MipmapsTest, HolesKeepTheirShareAndDarkenNoNeighbours)
{
    const struct
    {
        const char *name;
        bool (*isSolid)(std::uint32_t x, std::uint32_t y);
        double share;
    } rows[] = {
        {"half a picture", [](std::uint32_t x, std::uint32_t) { return x < 32; }, 0.5},
        {"a fence of wires",
         [](std::uint32_t x, std::uint32_t y) { return x % 4 == 0 || y % 8 == 0; }, 0.34375},
        {"fully transparent", [](std::uint32_t, std::uint32_t) { return false; }, 0},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        Texture texture =
            painted(PixelFormat::Dxt1, 64, 64, 1, [&row](std::uint32_t x, std::uint32_t y) {
                const std::uint8_t alpha = row.isSolid(x, y) ? 255 : 0;
                return Pixel{255, 0, 0, alpha};
            });
        ASSERT_NEAR(solidShare(texture, 0), row.share, 1e-9);
        MakeSmallerLevels(texture);
        for (std::size_t level = 1; level < 5; ++level) { // at least 4 x 4 pixels
            EXPECT_NEAR(solidShare(texture, level), row.share, 0.07) << level;
            const std::vector<std::uint8_t> pixels = texture.Decoded(level);
            for (std::size_t at = 0; at < pixels.size(); at += 4)
                ASSERT_EQ(pixels[at], pixels[at + 3]) << "red, or a hole";
        }
    }
}

TEST(MipmapsTest, LeavesOtherTexturesUnchanged)
{
    Texture plain;
    plain.width = plain.height = 8;
    AddLevel(plain, 0, PixelFormat::Rgba8);
    Texture two = painted(PixelFormat::Dxt1, 8, 8, 0, hills);
    AddLevel(two, 1, PixelFormat::Dxt1);
    Texture smallest = painted(PixelFormat::Dxt5, 1, 1, 8, hills);
    for (Texture *texture : {&plain, &two, &smallest}) {
        const std::size_t levels = texture->levels.size(), size = texture->data.size();
        MakeSmallerLevels(*texture);
        EXPECT_EQ(texture->levels.size(), levels);
        EXPECT_EQ(texture->data.size(), size);
    }
}
