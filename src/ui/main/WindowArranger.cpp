// SPDX-License-Identifier: MIT
#include "ui/main/WindowArranger.h"

#include "document/WindowMode.h"
#include "ui/document/frmDocument.h"

#include <QMdiArea>
#include <QStyle>

#include <algorithm>

namespace app {

namespace {

constexpr QSize kListSize(340, 400), kEditorSize(660, 440), kViewSize(880, 520);
constexpr QSize kLeastSize(320, 260);

void place(QMdiSubWindow &window, const QRect &bounds)
{
    if (window.isMaximized())
        window.showNormal();
    window.setGeometry(bounds);
}

} // namespace

WindowArranger::WindowArranger(QMdiArea &area, std::vector<const QWidget *> bars,
                               const std::vector<frmDocument *> &windows)
    : m_area(area)
    , m_bars(std::move(bars))
    , m_windows(windows)
{
}

void WindowArranger::Add(frmDocument &window)
{
    const QSize wanted = window.Mode() == document::WindowMode::ConsistList     ? kListSize
                         : window.Mode() == document::WindowMode::ConsistEditor ? kEditorSize
                                                                                : kViewSize;
    window.resize(wanted.boundedTo(areaSize()).expandedTo(kLeastSize));
    m_givenSizes[&window] = window.size();
}

void WindowArranger::KeepInside(frmDocument &window) const
{
    const QSize area = areaSize();
    if (window.isMaximized())
        return;
    window.move(std::clamp(window.x(), 0, std::max(0, area.width() - window.width())),
                std::clamp(window.y(), 0, std::max(0, area.height() - window.height())));
}

void WindowArranger::Arrange(Arrangement how)
{
    m_tiling = how;
    const std::vector<frmDocument *> open = shown(false);
    if (how == Arrangement::Cascade)
        cascade();
    else if (how != Arrangement::ArrangeIcons && !open.empty())
        tile(open, how);
    arrangeIcons();
}

void WindowArranger::AreaResized(bool tilingLocked)
{
    if (tilingLocked &&
        (m_tiling == Arrangement::TileHorizontally || m_tiling == Arrangement::TileVertically))
        Arrange(m_tiling);
    else
        growWindows();
}

/// Returns the room for windows, even before the main window is laid out for the first time.
QSize WindowArranger::areaSize() const
{
    const QWidget &frame = *m_area.window();
    if (frame.isVisible())
        return m_area.maximumViewportSize();
    int height = 4;
    for (const QWidget *bar : m_bars)
        height += bar->sizeHint().height();
    return frame.size() - QSize(4, height);
}

/// Returns the area above the row of minimised windows.
QRect WindowArranger::roomForTiles() const
{
    QRect area(QPoint(0, 0), m_area.maximumViewportSize());
    if (const auto icons = shown(true); !icons.empty())
        area.setHeight(area.height() - icons.front()->height());
    return area;
}

/// Cascades in stacking order, so that the active window stays in front.
void WindowArranger::cascade()
{
    std::vector<QMdiSubWindow *> windows;
    for (QMdiSubWindow *window : m_area.subWindowList(QMdiArea::StackingOrder))
        if (window->isVisible() && !window->isMinimized())
            windows.push_back(window);
    if (windows.empty())
        return;
    const int titleHeight = m_area.window()->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const std::vector<QRect> places =
        Cascaded(roomForTiles(), static_cast<int>(windows.size()), kEditorSize, titleHeight);
    for (std::size_t i = 0; i < windows.size(); ++i)
        place(*windows[i], places[i]);
}

void WindowArranger::tile(const std::vector<frmDocument *> &windows, Arrangement how)
{
    QSize least(1, 1);
    for (const frmDocument *window : windows)
        least = least.expandedTo(window->minimumSize());
    const int count = static_cast<int>(windows.size());
    const std::vector<QRect> tiles = how == Arrangement::TileHorizontally
                                         ? StackedTiles(roomForTiles(), count, least)
                                         : SideBySideTiles(roomForTiles(), count, least);
    for (std::size_t i = 0; i < windows.size(); ++i)
        place(*windows[i], tiles[i]);
}

void WindowArranger::arrangeIcons()
{
    const std::vector<frmDocument *> icons = shown(true);
    if (icons.empty())
        return;
    const std::vector<QRect> places =
        IconRow(m_area.viewport()->rect(), icons.front()->size(), static_cast<int>(icons.size()));
    for (std::size_t i = 0; i < icons.size(); ++i)
        icons[i]->move(places[i].topLeft());
}

void WindowArranger::growWindows()
{
    const QSize room = areaSize();
    for (frmDocument *window : shown(false)) {
        const QSize size = window->size();
        if (window->isMaximized() || size != m_givenSizes[window] || room != room.expandedTo(size))
            continue;
        Add(*window);
        KeepInside(*window);
    }
}

/// Returns the visible windows that are minimised, or those that are not.
std::vector<frmDocument *> WindowArranger::shown(bool minimised) const
{
    std::vector<frmDocument *> found;
    for (frmDocument *window : m_windows)
        if (window->isVisible() && window->isMinimized() == minimised)
            found.push_back(window);
    return found;
}

} // namespace app
