// SPDX-License-Identifier: MIT
#include "Build.h"
#include "Pixels.h"
#include "korvat/formats/ReadAce.h"
#include "samples/AceWriter.h"

#include <gtest/gtest.h>

using korvat::PixelFormat;
using korvat::ReadAce;
using korvat::Status;
using korvat::TextureFile;

namespace {

constexpr int kMask = 2, kRed = 3, kGreen = 4, kBlue = 5, kAlpha = 6;

/// The file up to and including the table of offsets, which is filled with rubbish because no
/// reader uses it.
std::string head(std::uint32_t options, std::uint32_t width, std::uint32_t height,
                 std::uint32_t surface, const std::vector<int> &channels, std::size_t offsets)
{
    std::string out =
        U32s({1, options, width, height, surface, static_cast<std::uint32_t>(channels.size()), 0});
    out.resize(152, '\0');
    for (const int channel : channels)
        out += U32s({channel == kMask ? 1U : 8U, 0, static_cast<std::uint32_t>(channel), 0});
    return samples::StorePayload(out + std::string(4 * offsets, '\xEE'));
}

const std::vector<int> kRgb = {kRed, kGreen, kBlue};
const std::vector<int> kRgbMask = {kRed, kGreen, kBlue, kMask};

std::string masked2x2()
{
    return head(4, 2, 2, 0x10, kRgbMask, 2) +
           Bytes8({0xFF, 0, 0, 0xFF, 0, 0, 0x80, 0, 0x10, 0, 0x20, 0xFF, 0x30, 0xC0});
}

std::string dxt4x4(const std::vector<int> &channels = kRgbMask, std::uint32_t surface = 0x12)
{
    return head(0x15, 4, 4, surface, channels, 3) + U32s({8}) +
           Bytes8({0x00, 0xF8, 0x1F, 0x00, 0xE4, 0xE4, 0xE4, 0xE4}) +
           Bytes8({1, 2, 3, 4, 5, 6, 0xC0, 1, 2, 3, 4, 5, 6, 0x40}) + Bytes8({1, 3, 5, 0x80});
}

TEST(AceTest, ReadsStructuredPixels)
{
    struct Row
    {
        const char *what;
        std::string bytes;
        int alphaBits;
        std::string pixels;
    };
    const std::string nine = Bytes8({1, 2, 3, 4, 5, 6, 7, 8, 9});
    const std::string black = std::string(9, '\0');
    const Row rows[] = {
        {"mask", masked2x2(), 1, "FF0000FF 00FF0000\n0000FFFF 102030FF"},
        {"opaque", head(0, 1, 2, 0x0E, kRgb, 2) + Bytes8({1, 2, 3, 4, 5, 6}), 0,
         "010203FF\n040506FF"},
        {"nine wide: the mask takes two bytes, leftmost bit first",
         head(0, 9, 1, 0x10, kRgbMask, 1) + nine + black + black + Bytes8({0xA0, 0x80}), 1,
         "010000FF 02000000 030000FF 04000000 05000000 06000000 07000000 08000000 090000FF"},
        {"alpha overrides the mask",
         head(0, 1, 1, 0x11, {kRed, kGreen, kBlue, kMask, kAlpha}, 1) +
             Bytes8({1, 2, 3, 0x80, 0x77}),
         8, "01020377"},
        {"alpha overrides the mask in any order",
         head(0, 1, 1, 0x11, {kAlpha, kMask, kBlue, kGreen, kRed}, 1) + Bytes8({0x77, 0, 3, 2, 1}),
         8, "01020377"},
        {"bytes after the picture", head(0, 1, 1, 0x0E, kRgb, 1) + Bytes8({1, 2, 3}) + "8BIM", 0,
         "010203FF"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const TextureFile file = ReadAce(row.bytes);
        ASSERT_EQ(file.error.text, "");
        EXPECT_EQ(file.texture.storage, "structured");
        EXPECT_EQ(file.texture.alphaBits, row.alphaBits);
        EXPECT_EQ(file.texture.levels.size(), 1u);
        EXPECT_EQ(Pixels(file.texture), row.pixels);
    }
}

TEST(AceTest, ReadsBlocksAndTheirSmallLevels)
{
    const auto rowsOf = [](const std::string &row) {
        return row + "\n" + row + "\n" + row + "\n" + row;
    };
    const TextureFile masked = ReadAce(dxt4x4());
    ASSERT_EQ(masked.error.text, "");
    EXPECT_EQ(masked.texture.storage, "dxt1");
    ASSERT_EQ(masked.texture.levels.size(), 3u);
    EXPECT_EQ(masked.texture.UniformLevels(), 1u);
    EXPECT_EQ(masked.texture.levels[0].format, PixelFormat::Dxt1);
    EXPECT_EQ(Pixels(masked.texture, 0), rowsOf("FF0000FF 0000FFFF AA0055FF 5500AAFF"));
    EXPECT_EQ(Pixels(masked.texture, 1), "010305FF 020406FF\n01030500 020406FF");
    EXPECT_EQ(Pixels(masked.texture, 2), "010305FF");

    // Three colours: the fourth is transparent if there is a mask, else black.
    std::string three = dxt4x4();
    three.replace(three.size() - 26, 4, Bytes8({0x1F, 0x00, 0x00, 0xF8}));
    EXPECT_EQ(Pixels(ReadAce(three).texture), rowsOf("0000FFFF FF0000FF 7F007FFF 00000000"));
    std::string opaque = head(0x10, 4, 4, 0x12, kRgb, 1) + U32s({8}) +
                         Bytes8({0x1F, 0x00, 0x00, 0xF8, 0xE4, 0xE4, 0xE4, 0xE4});
    EXPECT_EQ(Pixels(ReadAce(opaque).texture), rowsOf("0000FFFF FF0000FF 7F007FFF 000000FF"));

    // With alpha but no mask the small levels have three channels.
    const std::string alpha = head(0x15, 4, 4, 0x12, {kRed, kGreen, kBlue, kAlpha}, 3) + U32s({8}) +
                              std::string(8, '\0') +
                              Bytes8({1, 2, 3, 4, 5, 6, 1, 2, 3, 4, 5, 6, 1, 3, 5});
    EXPECT_EQ(Pixels(ReadAce(alpha).texture, 2), "010305FF");
}

TEST(AceTest, ReadsRareKindsOfRawPixels)
{
    struct Row
    {
        const char *what;
        std::uint32_t surface;
        std::string data;
        const char *start;
    };
    // DXT3: alpha 0 1 2 ... in the first two rows. DXT5: end points 255 and 0, then indices 0 1 2.
    const std::string colours = Bytes8({0x00, 0xF8, 0x1F, 0x00, 0, 0, 0, 0});
    const Row rows[] = {
        {"dxt3", 0x14, Bytes8({0x10, 0x32, 0x54, 0x76, 0, 0, 0, 0}) + colours,
         "FF000000 FF000011 FF000022 FF000033\n"},
        {"dxt5", 0x16, Bytes8({0xFF, 0, 0x88, 0x0E, 0, 0, 0, 0}) + colours,
         "FF0000FF FF000000 FF0000DA FF000024\n"},
        {"dxt5, six steps", 0x16, Bytes8({0, 0xFF, 0x88, 0x0E, 0, 0, 0, 0}) + colours,
         "FF000000 FF0000FF FF000033 FF0000FF\n"},
        {"dxt5, equal end points", 0x16, Bytes8({0x80, 0x80, 0x3E, 0x02, 0, 0, 0, 0}) + colours,
         "FF000000 FF0000FF FF000080 FF000080\n"},
        {"565", 0x0E, Bytes8({0x00, 0xF8, 0xE0, 0x07, 0x1F, 0}) + std::string(26, '\0'),
         "FF0000FF 00FF00FF 0000FFFF 000000FF\n"},
        {"1555", 0x10, Bytes8({0x00, 0xFC, 0xE0, 0x03}) + std::string(28, '\0'),
         "FF0000FF 00FF0000 00000000 00000000\n"},
        {"4444", 0x11, Bytes8({0x23, 0x81}) + std::string(30, '\0'),
         "11223388 00000000 00000000 00000000\n"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const TextureFile file =
            ReadAce(head(0x10, 4, 4, row.surface, {kRed, kGreen, kBlue, kAlpha}, 1) +
                    U32s({static_cast<std::uint32_t>(row.data.size())}) + row.data);
        ASSERT_EQ(file.error.text, "");
        EXPECT_EQ(Pixels(file.texture).substr(0, 36), row.start);
    }
}

/// A panel with a transparent hole of one block.
samples::Picture panel()
{
    samples::Picture picture = samples::PanelPicture(16, {200, 40, 32, 255}, {248, 248, 248, 255});
    for (std::size_t y = 4; y < 8; ++y)
        for (std::size_t x = 4; x < 8; ++x)
            picture.pixels[16 * y + x].alpha = 0;
    return picture;
}

TEST(AceTest, EveryFormGivesTheSamePicture)
{
    for (const bool mipmaps : {false, true})
        for (const bool compressed : {false, true}) {
            const auto read = [&](samples::AceAlpha alpha, bool dxt) {
                return ReadAce(AceBytes(panel(), {alpha, mipmaps, dxt, compressed})).texture;
            };
            const korvat::Texture mask = read(samples::AceAlpha::Mask, false);
            ASSERT_EQ(mask.levels.size(), mipmaps ? 5u : 1u);
            EXPECT_EQ(read(samples::AceAlpha::Full, false).alphaBits, 8);
            EXPECT_EQ(Pixels(mask), Pixels(read(samples::AceAlpha::Full, false)));
            const auto expected = mask.Decoded(0);
            const auto blocks = read(samples::AceAlpha::Mask, true).Decoded(0);
            ASSERT_EQ(blocks.size(), expected.size());
            for (std::size_t i = 0; i < expected.size(); ++i)
                ASSERT_TRUE(expected[i | 3] == 0 ? blocks[i | 3] == 0
                                                 : std::abs(expected[i] - blocks[i]) < 16)
                    << "byte " << i;
        }
}

TEST(AceTest, ReadsSizesThatAreNotMultiplesOfABlock)
{
    const std::string bytes = head(0x10, 5, 6, 0x12, kRgb, 1) + U32s({32}) + std::string(32, '\0');
    const TextureFile file = ReadAce(bytes);
    ASSERT_EQ(file.error.text, "");
    EXPECT_EQ(file.texture.Decoded(0).size(), 5u * 6 * 4);
}

TEST(AceTest, ReportsTheFaultAndItsPlace)
{
    const std::string good = masked2x2(), blocks = dxt4x4();
    struct Row
    {
        const char *what;
        std::string bytes;
        Status status;
        std::size_t where;
        const char *text;
    };
    const Row rows[] = {
        {"a shape", samples::StorePayload("JINX0s1b______\r\n"), Status::NotThisFormat, 0,
         "there is no texture in the file"},
        {"different first number", WithU32(good, 16, 2), Status::NotThisFormat, 16,
         "there is no texture in the file"},
        {"truncated header", good.substr(0, 60), Status::Damaged, 16,
         "the texture ends within its header"},
        {"width 0", WithU32(good, 24, 0), Status::Damaged, 24,
         "the texture's size is given as 0 x 2"},
        {"height too large", WithU32(good, 28, 0xFFFFFFFF), Status::TooLarge, 24,
         "the texture's size is given as 2 x 4294967295; no side may be longer than 16384"},
        {"large and empty", WithU32(WithU32(good, 24, 16384), 28, 16384), Status::Damaged, 232,
         "the texture ends before most of its picture"},
        {"no channels", WithU32(good, 36, 0), Status::Unsupported, 168,
         "the texture has 0 channels"},
        {"too many channels", WithU32(good, 36, 6), Status::Unsupported, 168,
         "the texture has 6 channels"},
        {"a channel twice", WithU32(good, 192, kRed), Status::Unsupported, 184,
         "the texture has a channel of type 3 with 8 bits"},
        {"wrong bits of a channel", WithU32(good, 168, 4), Status::Unsupported, 168,
         "the texture has a channel of type 3 with 4 bits"},
        {"unknown channel", WithU32(good, 176, 7), Status::Unsupported, 168,
         "the texture has a channel of type 7 with 8 bits"},
        {"no blue", WithU32(good, 36, 2), Status::Unsupported, 168,
         "the texture lacks red, green or blue"},
        {"unknown raw pixels", WithU32(blocks, 32, 0x13), Status::Unsupported, 232,
         "the texture's pixels are of the unknown kind 19"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const TextureFile file = ReadAce(row.bytes);
        EXPECT_EQ(file.error.status, row.status);
        EXPECT_EQ(file.error.text, row.text);
        EXPECT_EQ(file.error.where, row.where);
        EXPECT_TRUE(file.texture.levels.empty());
    }
}

TEST(AceTest, MissingPixelsAreBlack)
{
    const std::string cut = masked2x2().substr(0, 255 - 3);
    const TextureFile file = ReadAce(cut);
    ASSERT_EQ(file.error.text, "");
    ASSERT_EQ(file.texture.levels.size(), 1u);
    EXPECT_EQ(file.notes, std::vector<std::string>{"the last 1 rows of the picture are missing"});
    EXPECT_EQ(Pixels(file.texture), "FF0000FF 00FF0000\n000000FF 000000FF");

    const TextureFile smaller = ReadAce(dxt4x4().substr(0, dxt4x4().size() - 4));
    EXPECT_EQ(smaller.notes, std::vector<std::string>{"the smaller levels are missing"});
    EXPECT_EQ(smaller.texture.levels.size(), 2u);
}

TEST(AceTest, SurvivesEveryLengthAndEveryWrongNumber)
{
    for (const bool dxt : {false, true}) {
        const std::string valid = AceBytes(panel(), {samples::AceAlpha::Mask, true, dxt, false});
        for (std::size_t size = 0; size < valid.size(); ++size)
            ExpectSound(valid.substr(0, size));
        for (std::size_t at = 16; at + 4 <= 240; at += 4)
            for (const std::uint32_t value : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFFU})
                ExpectSound(WithU32(valid, at, value));
    }
}

} // namespace
