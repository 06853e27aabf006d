// SPDX-License-Identifier: MIT
#include "app/MdiLayout.h"

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

} // namespace

std::vector<QRect> StackedTiles(const QRect &area, int count)
{
    std::vector<QRect> tiles;
    for (const Span &span : shares(area.y(), area.height(), count))
        tiles.emplace_back(area.x(), span.start, area.width(), span.length);
    return tiles;
}

std::vector<QRect> SideBySideTiles(const QRect &area, int count)
{
    std::vector<QRect> tiles;
    for (const Span &span : shares(area.x(), area.width(), count))
        tiles.emplace_back(span.start, area.y(), span.length, area.height());
    return tiles;
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
