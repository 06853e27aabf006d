// SPDX-License-Identifier: MIT
#include "ui/main/MdiLayout.h"

#include <algorithm>

namespace app {

namespace {

struct Span
{
    int start, length;
};

std::vector<Span> shares(int start, int length, int count)
{
    std::vector<Span> spans;
    for (int i = 0; i < count; ++i) {
        const int share = length / count + (i < length % count ? 1 : 0);
        spans.push_back({start, share});
        start += share;
    }
    return spans;
}

QRect transposed(const QRect &rect)
{
    return QRect(rect.y(), rect.x(), rect.height(), rect.width());
}

/// Returns the number of rows for `count` tiles. Rows are much higher than the minimum height,
/// unless the minimum width requires more rows.
int rowsOf(const QSize &area, int count, const QSize &least)
{
    const int inRow = std::max(1, area.width() / least.width());
    const int fewest = (count + inRow - 1) / inRow;
    return std::max(fewest, std::min(count, area.height() * 2 / (least.height() * 3)));
}

} // namespace

std::vector<QRect> StackedTiles(const QRect &area, int count, const QSize &least)
{
    std::vector<QRect> tiles;
    if (count <= 0)
        return tiles;
    const int rows = rowsOf(area.size(), count, least);
    const std::vector<Span> heights =
        shares(area.y(), std::max(area.height(), rows * least.height()), rows);
    const std::vector<Span> counts = shares(0, count, rows);
    for (std::size_t row = 0; row < heights.size(); ++row)
        for (const Span &span : shares(area.x(), area.width(), counts[row].length))
            tiles.emplace_back(span.start, heights[row].start, span.length, heights[row].length);
    return tiles;
}

std::vector<QRect> SideBySideTiles(const QRect &area, int count, const QSize &least)
{
    std::vector<QRect> tiles = StackedTiles(transposed(area), count, least.transposed());
    std::transform(tiles.begin(), tiles.end(), tiles.begin(), transposed);
    return tiles;
}

std::vector<QRect> Cascaded(const QRect &area, int count, const QSize &wanted, int step)
{
    constexpr int leastSteps = 3;
    const QSize room = area.size() - QSize(step, step) * leastSteps;
    const QSize size = wanted.boundedTo(room).expandedTo(area.size() * 2 / 3);
    const int across = (area.width() - size.width()) / step + 1;
    const int down = (area.height() - size.height()) / step + 1;
    std::vector<QRect> places;
    for (int i = 0; i < count; ++i) {
        // Each new cascade begins one step further to the right, so that earlier titles stay
        // visible.
        const QPoint steps((i % down + i / down) % across, i % down);
        places.emplace_back(area.topLeft() + steps * step, size);
    }
    return places;
}

std::vector<QRect> IconRow(const QRect &area, const QSize &icon, int count)
{
    const int inRow = std::max(1, area.width() / std::max(1, icon.width()));
    std::vector<QRect> places;
    for (int i = 0; i < count; ++i) {
        const int x = area.x() + i % inRow * icon.width();
        const int y = area.y() + area.height() - (i / inRow + 1) * icon.height();
        places.emplace_back(QPoint(x, y), icon);
    }
    return places;
}

} // namespace app
