// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

#include <vector>

namespace app {

/// How the Window menu arranges the windows, by the code that the commands pass.
enum class Arrangement
{
    Cascade = 0,
    TileHorizontally = 1,
    TileVertically = 2,
    ArrangeIcons = 3
};

/// `count` windows one above the other, each as wide as the area. Windows that would become hardly
/// higher than `least` share rows instead. The tiles fill the area exactly; they extend below it
/// only if it has no room for tiles of the least size.
std::vector<QRect> StackedTiles(const QRect &area, int count, const QSize &least = {1, 1});
/// `count` windows side by side, each as high as the area; like StackedTiles, with columns for
/// rows.
std::vector<QRect> SideBySideTiles(const QRect &area, int count, const QSize &least = {1, 1});
/// `count` windows of one size, each `step` pixels to the right of and below the one before. They
/// are as large as `wanted`, and at least two thirds of the area, but leave room for some steps.
std::vector<QRect> Cascaded(const QRect &area, int count, const QSize &wanted, int step);
/// Minimised windows in rows from the bottom left upwards.
std::vector<QRect> IconRow(const QRect &area, const QSize &icon, int count);

} // namespace app
