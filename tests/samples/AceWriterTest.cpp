// SPDX-License-Identifier: MIT
#include "samples/AceWriter.h"
#include "InstallationScan.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using samples::AceAlpha;
using samples::AceBytes;
using samples::Colour;
using samples::Picture;
using std::string_literals::operator""s;

Picture evenPicture(int width, int height, Colour colour)
{
    return {width, height, std::vector<Colour>(static_cast<std::size_t>(width * height), colour)};
}

TEST(AceWriterTest, WritesMaskedPictureByteForByte)
{
    const Picture picture{2, 2, {{255, 0, 0}, {0, 255, 0, 0}, {0, 0, 255}, {16, 32, 48}}};
    std::string expected = "SIMISA@@@@@@@@@@"s + "\1\0\0\0\4\0\0\0\2\0\0\0\2\0\0\0"s +
                           "\x10\0\0\0\4\0\0\0\0\0\0\0Unknown"s;
    expected.resize(16 + 152, '\0');
    expected += "\10\0\0\0\0\0\0\0\3\0\0\0\0\0\0\0"s + "\10\0\0\0\0\0\0\0\4\0\0\0\0\0\0\0"s +
                "\10\0\0\0\0\0\0\0\5\0\0\0\0\0\0\0"s + "\1\0\0\0\0\0\0\0\2\0\0\0\0\0\0\0"s +
                "\xE0\0\0\0\xE7\0\0\0"s + "\xFF\0\0\xFF\0\0\x80"s + "\0\x10\0\x20\xFF\x30\xC0"s;
    EXPECT_EQ(AceBytes(picture, {.alpha = AceAlpha::Mask}), expected);
    EXPECT_EQ(scan::Payload(AceBytes(picture, {.alpha = AceAlpha::Mask, .compressed = true})),
              expected.substr(16));
}

TEST(AceWriterTest, LeftmostPixelIsTheHighestMaskBit)
{
    Picture picture = evenPicture(9, 1, {0, 0, 0, 255});
    picture.pixels[1].alpha = 0;
    picture.pixels[8].alpha = 127;
    const std::string bytes = AceBytes(picture, {.alpha = AceAlpha::Mask});
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\xBF\0"s);
}

TEST(AceWriterTest, SmallerLevelsAreMeansAndTheirRowsAreListed)
{
    Picture picture = evenPicture(2, 2, {10, 20, 30, 255});
    picture.pixels[3] = {50, 60, 70, 255};
    const std::string payload = scan::Payload(AceBytes(picture, {.mipmaps = true}));
    const std::size_t table = 152 + 3 * 16;
    EXPECT_EQ(payload.substr(table, 12), "\xD4\0\0\0\xDA\0\0\0\xE0\0\0\0"s);
    EXPECT_EQ(payload.substr(payload.size() - 3), "\x14\x1E\x28");
}

TEST(AceWriterTest, WritesBlocksWithSmallLevelsAsRows)
{
    Picture picture = evenPicture(4, 4, {255, 0, 0, 255});
    for (std::size_t i = 0; i < 4; ++i)
        picture.pixels[i * 4] = {255, 255, 255, 255};
    const std::string payload = scan::Payload(AceBytes(picture, {.mipmaps = true, .dxt1 = true}));
    EXPECT_EQ(payload[4], 0x15);
    EXPECT_EQ(payload[16], 0x12);
    const std::size_t table = 152 + 3 * 16;
    // White, the greater colour, comes first, so the block has four colours: index 0 on the left, 1
    // elsewhere.
    EXPECT_EQ(payload.substr(table),
              "\xD4\0\0\0\xE0\0\0\0\xEC\0\0\0"s + "\10\0\0\0\xFF\xFF\0\xF8\x54\x54\x54\x54"s +
                  "\xFF\xFF\x7F\0\x7F\0\xFF\xFF\x7F\0\x7F\0"s + "\xFF\x3F\x3F"s);
}

TEST(AceWriterTest, HolesInBlocksTakeTheFourthIndex)
{
    Picture picture = evenPicture(4, 4, {0, 0, 255, 255});
    picture.pixels[0].alpha = 0;
    picture.pixels[15] = {255, 255, 255, 255};
    const std::string bytes = AceBytes(picture, {.alpha = AceAlpha::Mask, .dxt1 = true});
    // The smaller colour comes first: index 3 is transparent.
    EXPECT_EQ(bytes.substr(bytes.size() - 8), "\x1F\0\xFF\xFF\x03\0\0\x40"s);
}

TEST(AceWriterTest, RefusesPicturesThatDoNotFit)
{
    const Colour grey{9, 9, 9, 255};
    EXPECT_THROW(AceBytes(evenPicture(4, 2, grey), {.mipmaps = true}), std::invalid_argument);
    EXPECT_THROW(AceBytes(evenPicture(6, 6, grey), {.mipmaps = true}), std::invalid_argument);
    EXPECT_THROW(AceBytes(evenPicture(6, 4, grey), {.dxt1 = true}), std::invalid_argument);
    EXPECT_THROW(AceBytes({2, 2, {grey}}, {}), std::invalid_argument);
    EXPECT_THROW(AceBytes({0, 0, {}}, {}), std::invalid_argument);
    EXPECT_NO_THROW(AceBytes(evenPicture(60, 30, grey), {}));
}

} // namespace
