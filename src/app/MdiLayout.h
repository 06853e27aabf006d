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

/// `count` windows one above the other, each as wide as the area. Left-over pixels go one each to
/// the first ones, so that the area is filled exactly.
std::vector<QRect> StackedTiles(const QRect &area, int count);
/// The same side by side, each as high as the area.
std::vector<QRect> SideBySideTiles(const QRect &area, int count);
/// Minimised windows in rows from the bottom left upwards.
std::vector<QRect> IconRow(const QRect &area, const QSize &icon, int count);

} // namespace app
