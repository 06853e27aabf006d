// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <vector>

namespace app {

/// The arrangements of the Window menu, with the codes that the commands pass.
enum class Arrangement
{
    Cascade = 0,
    TileHorizontally = 1,
    TileVertically = 2,
    ArrangeIcons = 3
};

/// Returns places for `count` windows, one above the other, each as wide as the area. Windows that
/// would be little higher than `least` share rows instead. The tiles fill the area exactly. They
/// extend below it only if tiles of the minimum size do not fit.
std::vector<QRect> StackedTiles(const QRect &area, int count, const QSize &least = {1, 1});
/// Returns places for `count` windows side by side, each as high as the area. Like StackedTiles,
/// but with columns in place of rows.
std::vector<QRect> SideBySideTiles(const QRect &area, int count, const QSize &least = {1, 1});
/// Returns places for `count` windows of one size, each `step` pixels to the right of and below the
/// one before. The windows have the size `wanted`, or less to leave room for some steps, but at
/// least two thirds of the area.
std::vector<QRect> Cascaded(const QRect &area, int count, const QSize &wanted, int step);
/// Returns places for minimised windows: rows from the bottom left upwards.
std::vector<QRect> IconRow(const QRect &area, const QSize &icon, int count);

} // namespace app
