// SPDX-License-Identifier: MIT
#include "Build.h"
#include "Pixels.h"
#include "korvat/formats/ReadDds.h"

#include <gtest/gtest.h>

#include <array>

using korvat::ReadDds;
using korvat::Status;
using korvat::TextureFile;

namespace {

constexpr std::uint32_t kAlpha = 1, kFourCc = 4, kColours = 0x40;

std::string dds(std::uint32_t width, std::uint32_t height, std::uint32_t levels,
                std::string_view code, std::uint32_t flags, std::uint32_t bits,
                const std::array<std::uint32_t, 4> &masks, std::string_view data)
{
    std::string out = "DDS " + U32s({124, 0x1007, height, width, 0, 0, levels});
    out.resize(76, '\0');
    out += U32s({32, flags}) + (code.empty() ? std::string(4, '\0') : std::string(code)) +
           U32s({bits, masks[0], masks[1], masks[2], masks[3]});
    out.resize(128, '\0');
    return out.append(data);
}

std::string blocks(std::string_view code, std::uint32_t levels, std::string_view data)
{
    return dds(4, 4, levels, code, kFourCc, 0, {}, data);
}

std::string plain(std::uint32_t bits, std::uint32_t flags,
                  const std::array<std::uint32_t, 4> &masks, std::string_view data)
{
    return dds(2, 1, 1, "", flags, bits, masks, data);
}

TEST(DdsTest, ReadsEveryPixelFormat)
{
    const std::string red = Bytes8({0x00, 0xF8, 0x00, 0x00, 0, 0, 0, 0});
    const std::string hole = Bytes8({0x00, 0x00, 0x00, 0xF8, 0x03, 0, 0, 0});
    const std::array<std::uint32_t, 4> argb = {0xFF0000, 0xFF00, 0xFF, 0xFF000000};
    struct Row
    {
        const char *what;
        std::string bytes;
        const char *storage;
        int alphaBits;
        std::size_t levels;
        const char *start;
    };
    const Row rows[] = {
        {"dxt1", blocks("DXT1", 1, red), "dxt1", 0, 1, "FF0000FF FF0000FF"},
        {"dxt1 with holes", blocks("DXT1", 0, hole), "dxt1", 1, 1, "00000000 000000FF"},
        {"dxt3", blocks("DXT3", 1, Bytes8({0x21, 0, 0, 0, 0, 0, 0, 0}) + red), "dxt3", 8, 1,
         "FF000011 FF000022"},
        {"dxt5", blocks("DXT5", 1, Bytes8({9, 7, 8, 0, 0, 0, 0, 0}) + red), "dxt5", 8, 1,
         "FF000009 FF000007"},
        {"dxt5, six and eight alphas", blocks("DXT5", 1, Bytes8({9, 2, 0x3A, 0, 0, 0, 0, 0}) + red),
         "dxt5", 8, 1, "FF000008 FF000003"},
        {"dxt5, equal ends", blocks("DXT5", 1, Bytes8({9, 9, 0x3E, 0, 0, 0, 0, 0}) + red), "dxt5",
         8, 1, "FF000000 FF0000FF"},
        {"all levels", blocks("DXT1", 3, red + red + red), "dxt1", 0, 3, "FF0000FF FF0000FF"},
        {"24 bits", plain(24, kColours, argb, Bytes8({3, 2, 1, 6, 5, 4})), "uncompressed", 0, 1,
         "010203FF 040506FF"},
        {"32 bits", plain(32, kColours | kAlpha, argb, Bytes8({3, 2, 1, 9, 6, 5, 4, 8})),
         "uncompressed", 8, 1, "01020309 04050608"},
        {"32 bits, no alpha", plain(32, kColours, argb, Bytes8({3, 2, 1, 9, 6, 5, 4, 8})),
         "uncompressed", 0, 1, "010203FF 040506FF"},
        {"other masks", plain(32, kColours, {0xFF, 0xFF00, 0xF0000, 0}, U32s({0xF0201, 0x30504})),
         "uncompressed", 0, 1, "0102FFFF 040533FF"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        const TextureFile file = korvat::ReadTexture(row.bytes);
        ASSERT_EQ(file.error.text, "");
        EXPECT_EQ(file.texture.storage, row.storage);
        EXPECT_EQ(file.texture.alphaBits, row.alphaBits);
        EXPECT_EQ(file.texture.levels.size(), row.levels);
        EXPECT_EQ(file.texture.UniformLevels(), row.levels);
        EXPECT_EQ(Pixels(file.texture).substr(0, 17), row.start);
    }
}

TEST(DdsTest, ReportsTheFault)
{
    const std::string good = blocks("DXT1", 1, std::string(8, '\0'));
    const std::tuple<const char *, std::string, Status> rows[] = {
        {"another file", "DDX " + good.substr(4), Status::NotThisFormat},
        {"header cut", good.substr(0, 100), Status::Damaged},
        {"header length", WithU32(good, 4, 123), Status::Damaged},
        {"width 0", WithU32(good, 16, 0), Status::Damaged},
        {"height -1", WithU32(good, 12, 0xFFFFFFFF), Status::TooLarge},
        {"large and empty", WithU32(WithU32(good, 12, 16384), 16, 16384), Status::Damaged},
        {"unknown blocks", blocks("ATI2", 1, std::string(16, '\0')), Status::Unsupported},
        {"16 bits", plain(16, kColours, {0xF800, 0x7E0, 0x1F, 0}, "1234"), Status::Unsupported},
        {"no red", plain(24, kColours, {0, 0xFF00, 0xFF, 0}, "123456"), Status::Unsupported},
    };
    for (const auto &[what, bytes, status] : rows) {
        SCOPED_TRACE(what);
        const TextureFile file = ReadDds(bytes);
        EXPECT_EQ(file.error.status, status) << file.error.text;
        EXPECT_TRUE(file.texture.levels.empty());
    }
}

TEST(DdsTest, SurvivesEveryLengthAndEveryWrongNumber)
{
    const std::string valid =
        dds(8, 8, 4, "", kColours, 24, {0xFF0000, 0xFF00, 0xFF, 0}, std::string(255, '\x55'));
    for (const std::string &bytes : {valid, blocks("DXT5", 3, std::string(48, '\x55'))})
        for (std::size_t at = 4; at < 128; at += 4)
            for (const std::uint32_t value : {0U, 1U, 0x7FFFFFFFU, 0xFFFFFFFFU})
                ExpectSound(WithU32(bytes, at, value));
    for (std::size_t size = 0; size < valid.size(); ++size) {
        const TextureFile file = ReadDds(std::string_view(valid).substr(0, size));
        const bool enough = size >= 128 + 96; // half of the largest level
        ASSERT_EQ(!file.error, enough) << size;
        ASSERT_EQ(!file.notes.empty(), enough) << size;
    }
}

} // namespace
