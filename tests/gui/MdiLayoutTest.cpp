// SPDX-License-Identifier: MIT
#include "ui/main/MdiLayout.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string textOf(const std::vector<QRect> &rects)
{
    std::string text;
    for (const QRect &rect : rects)
        text += std::to_string(rect.x()) + "," + std::to_string(rect.y()) + " " +
                std::to_string(rect.width()) + "x" + std::to_string(rect.height()) + "; ";
    return text;
}

} // namespace

TEST(MdiLayoutTest, TilesFillTheAreaExactly)
{
    const QRect area(10, 20, 101, 50);
    EXPECT_EQ(textOf(app::StackedTiles(area, 3)), "10,20 101x17; 10,37 101x17; 10,54 101x16; ");
    EXPECT_EQ(textOf(app::SideBySideTiles(area, 2)), "10,20 51x50; 61,20 50x50; ");
    EXPECT_EQ(textOf(app::StackedTiles(area, 1)), "10,20 101x50; ");
    EXPECT_TRUE(app::SideBySideTiles(area, 0).empty());
}

TEST(MdiLayoutTest, ManyWindowsShareRowsAndColumns)
{
    const QSize least(200, 120);
    EXPECT_EQ(textOf(app::StackedTiles(QRect(0, 0, 800, 400), 7, least)),
              "0,0 200x200; 200,0 200x200; 400,0 200x200; 600,0 200x200; "
              "0,200 267x200; 267,200 267x200; 534,200 266x200; ");
    EXPECT_EQ(textOf(app::SideBySideTiles(QRect(0, 0, 640, 400), 5, least)),
              "0,0 320x134; 0,134 320x133; 0,267 320x133; 320,0 320x200; 320,200 "
              "320x200; ");
    EXPECT_EQ(textOf(app::StackedTiles(QRect(0, 0, 300, 200), 3, least)),
              "0,0 300x120; 0,120 300x120; 0,240 300x120; ")
        << "too many for the area";
}

TEST(MdiLayoutTest, CascadeKeepsUsefulSizes)
{
    EXPECT_EQ(textOf(app::Cascaded(QRect(0, 0, 600, 500), 6, QSize(660, 440), 24)),
              "0,0 528x428; 24,24 528x428; 48,48 528x428; 72,72 528x428; "
              "24,0 528x428; 48,24 528x428; ")
        << "room for three steps";
    EXPECT_EQ(textOf(app::Cascaded(QRect(0, 0, 1500, 1200), 2, QSize(660, 440), 24)),
              "0,0 1000x800; 24,24 1000x800; ")
        << "two thirds of a large area";
    EXPECT_EQ(textOf(app::Cascaded(QRect(0, 0, 30, 30), 2, QSize(660, 440), 24)),
              "0,0 20x20; 0,0 20x20; ");
}

TEST(MdiLayoutTest, IconsFillRowsFromTheBottomLeft)
{
    EXPECT_EQ(textOf(app::IconRow(QRect(0, 0, 250, 100), QSize(100, 30), 3)),
              "0,70 100x30; 100,70 100x30; 0,40 100x30; ");
    EXPECT_EQ(textOf(app::IconRow(QRect(0, 0, 50, 100), QSize(100, 30), 2)),
              "0,70 100x30; 0,40 100x30; ")
        << "an area narrower than an icon";
}
