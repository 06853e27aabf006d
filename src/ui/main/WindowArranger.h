// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/MdiLayout.h"

#include <QSize>

#include <map>
#include <vector>

class QMdiArea;
class QRect;
class QWidget;
class frmDocument;

namespace app {

/// Places and sizes the document windows in the main window.
class WindowArranger
{
public:
    /// `windows` are the document windows in the order in which they were opened. `bars` are the
    /// bars above and below `area`. All must outlive the object.
    WindowArranger(QMdiArea &area, std::vector<const QWidget *> bars,
                   const std::vector<frmDocument *> &windows);

    /// Sizes a new window for its kind, as far as there is room.
    void Add(frmDocument &window);
    /// Call this when a window is destroyed.
    void Forget(const frmDocument &window) { m_givenSizes.erase(&window); }
    /// Moves a window so that as much of it as fits is visible.
    void KeepInside(frmDocument &window) const;
    /// Arranges the windows and remembers the arrangement.
    void Arrange(Arrangement how);
    /// Adapts the windows to a new size of the area. Tiled windows are tiled again if the tiling is
    /// locked. Otherwise windows that had too little room grow, unless the user has resized them.
    void AreaResized(bool tilingLocked);

private:
    QSize areaSize() const;
    QRect roomForTiles() const;
    void cascade();
    void tile(const std::vector<frmDocument *> &windows, Arrangement how);
    void arrangeIcons();
    void growWindows();
    std::vector<frmDocument *> shown(bool minimised) const;

    QMdiArea &m_area;
    std::vector<const QWidget *> m_bars;
    const std::vector<frmDocument *> &m_windows;
    std::map<const frmDocument *, QSize> m_givenSizes; ///< sizes that Add assigned
    Arrangement m_tiling = Arrangement::Cascade;
};

} // namespace app
