// SPDX-License-Identifier: MIT
#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

#include <vector>

namespace app {

/// Switches between document windows in the order of their last use. Ctrl+Tab activates the window
/// used before the active one, and further presses activate older ones while Ctrl is held.
/// Ctrl+Shift+Tab goes the other way. Windows passed on the way do not count as used.
class WindowSwitcher : public QObject
{
public:
    /// `area` must outlive the object, which acts only while the area's main window is active.
    explicit WindowSwitcher(QMdiArea &area);

    /// Call this when `window` is about to close. If it is the active one, the window used before
    /// becomes active; a minimised one only if there is no other.
    void Leave(const QMdiSubWindow &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Windows = std::vector<QPointer<QMdiSubWindow>>;

    Windows byLastUse() const;
    void step(int by);
    void settle();

    QMdiArea &m_area;
    Windows m_windows; ///< while Ctrl is held: the windows to step through, last used first
    std::size_t m_at = 0;
};

} // namespace app
