// SPDX-License-Identifier: MIT
#include "app/MdiLayout.h"

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

TEST(MdiLayoutTest, IconsFillRowsFromTheBottomLeft)
{
    EXPECT_EQ(textOf(app::IconRow(QRect(0, 0, 250, 100), QSize(100, 30), 3)),
              "0,70 100x30; 100,70 100x30; 0,40 100x30; ");
    EXPECT_EQ(textOf(app::IconRow(QRect(0, 0, 50, 100), QSize(100, 30), 2)),
              "0,70 100x30; 0,40 100x30; ")
        << "an area narrower than an icon";
}
