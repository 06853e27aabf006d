// SPDX-License-Identifier: MIT
#include "samples/Painter.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using samples::Area;
using samples::Brush;
using samples::Colour;
using samples::Sheet;

constexpr Colour kBlack{0, 0, 0, 255};
constexpr Colour kWhite{255, 255, 255, 255};

/// Returns the red values of one row of a sheet.
std::vector<int> row(const Sheet &sheet, int y, int from, int to)
{
    std::vector<int> reds;
    for (int x = from; x < to; ++x)
        reds.push_back(sheet.Pixels().pixels[static_cast<std::size_t>(y * sheet.Side() + x)].red);
    return reds;
}

TEST(SheetTest, AreasDoNotOverlapAndEndWhenTheSheetIsFull)
{
    Sheet sheet(64, kBlack);
    std::vector<Area> areas;
    EXPECT_THROW(while (true) areas.push_back(sheet.Take(20, 12)), std::length_error);
    EXPECT_EQ(areas.size(), 6U);
    for (std::size_t i = 0; i < areas.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_TRUE(std::abs(areas[i].left - areas[k].left) >= 26 ||
                        std::abs(areas[i].top - areas[k].top) >= 18);
    EXPECT_THROW(Sheet(16, kBlack).Take(20, 4), std::length_error);
}

TEST(BrushTest, MetresCountUpwardsAndEdgesAreSoft)
{
    Sheet sheet(32, kBlack);
    const Area area = sheet.Take(16, 16);
    Brush brush(sheet, area, {0, 0, 4, 4});
    brush.Rect({1, 3, 2.125F, 4}, kWhite); // four pixels per metre
    EXPECT_EQ(row(sheet, area.top + 1, area.left, area.left + 10),
              (std::vector<int>{0, 0, 0, 0, 255, 255, 255, 255, 128, 0}));
    EXPECT_EQ(row(sheet, area.top + 5, area.left + 4, area.left + 8), std::vector<int>(4, 0));
}

TEST(BrushTest, PaintsOnlyItsAreaAndTheMargin)
{
    Sheet sheet(64, kBlack);
    const Area first = sheet.Take(10, 10);
    const Area second = sheet.Take(10, 10);
    Brush(sheet, second, {}).Fill(kWhite);
    Brush(sheet, second, {}).Disc(0.5F, 0.5F, 40, kWhite);
    EXPECT_EQ(row(sheet, first.top + 5, first.left, first.left + 10), std::vector<int>(10, 0));
    EXPECT_EQ(row(sheet, second.top - 1, second.left, second.left + 10), std::vector<int>(10, 255));
}

TEST(BrushTest, TransparentColoursMakeHoles)
{
    Sheet sheet(32, kBlack);
    Brush brush(sheet, sheet.Take(20, 20), {-1, -1, 2, 2});
    brush.Disc(0, 0, 0.5F, {9, 9, 9, 0});
    const auto alpha = [&](int x, int y) {
        return sheet.Pixels().pixels[static_cast<std::size_t>(y * 32 + x)].alpha;
    };
    EXPECT_EQ(alpha(13, 13), 0);
    EXPECT_EQ(alpha(4, 4), 255);
    brush.Clear({-1, -1, 1, 1}, 77);
    EXPECT_EQ(alpha(4, 4), 77);
}

TEST(BrushTest, WeatheringIsDeterministicAndLimited)
{
    Sheet a(64, {120, 120, 120, 255});
    Sheet b(64, {120, 120, 120, 255});
    for (Sheet *sheet : {&a, &b})
        Brush(*sheet, sheet->Take(50, 50), {}).Weather(5, 0.3F);
    int least = 255;
    int most = 0;
    for (std::size_t i = 0; i < a.Pixels().pixels.size(); ++i) {
        ASSERT_EQ(a.Pixels().pixels[i].red, b.Pixels().pixels[i].red);
        least = std::min<int>(least, a.Pixels().pixels[i].red);
        most = std::max<int>(most, a.Pixels().pixels[i].red);
    }
    EXPECT_GT(most - least, 15);
    EXPECT_GT(least, 80);
    EXPECT_LT(most, 160);
}

TEST(BrushTest, TextIsInPlaceAndReadsFromLeftToRight)
{
    Sheet sheet(64, kBlack);
    const Area area = sheet.Take(56, 28);
    Brush(sheet, area, {0, 0, 20, 10}).Text(10, 2, 6, "L", kWhite, 0.2F);
    // The stem is on the left; the foot runs to the right at the bottom.
    const int left = area.left + static_cast<int>(8 * 2.8F);
    EXPECT_GT(row(sheet, area.top + 8, left, left + 1)[0], 200);
    EXPECT_EQ(row(sheet, area.top + 8, left + 9, left + 10)[0], 0);
    EXPECT_GT(row(sheet, area.top + 22, left + 9, left + 10)[0], 200);
}

TEST(LetteringTest, EveryLetterInUseHasStrokesWithinItsBox)
{
    for (const char letter : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789&.-#/")) {
        const auto strokes = samples::StrokesOf(std::string(1, letter));
        EXPECT_FALSE(strokes.empty()) << letter;
        for (const samples::Stroke &s : strokes)
            EXPECT_TRUE(std::min({s.x0, s.y0, s.x1, s.y1}) >= 0 && std::max(s.x0, s.x1) <= 4 &&
                        std::max(s.y0, s.y1) <= samples::kLetterHeight)
                << letter;
    }
    EXPECT_TRUE(samples::StrokesOf(" ~").empty());
    EXPECT_EQ(samples::StrokesOf("l").size(), samples::StrokesOf("L").size());
    EXPECT_EQ(samples::StrokesOf(" I").front().x0,
              samples::StrokesOf("I").front().x0 + samples::kLetterPitch);
}

TEST(PatchTest, PartsAreMeasuredFromTheBottom)
{
    const samples::Patch part = samples::Patch{0, 0.2F, 0.5F, 0.6F}.Part(0.5F, 0, 1, 0.25F);
    EXPECT_FLOAT_EQ(part.u0, 0.25F);
    EXPECT_FLOAT_EQ(part.u1, 0.5F);
    EXPECT_FLOAT_EQ(part.v0, 0.5F);
    EXPECT_FLOAT_EQ(part.v1, 0.6F);
}

} // namespace
