// SPDX-License-Identifier: MIT
#pragma once

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>

#include <vector>

namespace app {

/// Goes from one document window to another in the order of their last use. Ctrl+Tab leads to the
/// window used before the active one, further presses to older ones as long as Ctrl is held;
/// Ctrl+Shift+Tab goes the other way. The windows passed on the way do not count as used.
class WindowSwitcher : public QObject
{
public:
    /// `area` must outlive the object, which acts while the area's main window is the active one.
    explicit WindowSwitcher(QMdiArea &area);

    /// Call this when `window` is about to close: if it is the active one, the window used before
    /// becomes active, a minimised one only when there is no other.
    void Leave(const QMdiSubWindow &window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Windows = std::vector<QPointer<QMdiSubWindow>>;

    Windows byLastUse() const;
    void step(int by);
    void settle();

    QMdiArea &m_area;
    Windows m_windows; ///< while Ctrl is held: those to go through, the one used last first
    std::size_t m_at = 0;
};

} // namespace app
