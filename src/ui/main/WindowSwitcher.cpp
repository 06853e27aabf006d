// SPDX-License-Identifier: MIT
#include "ui/main/WindowSwitcher.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

namespace app {

WindowSwitcher::WindowSwitcher(QMdiArea &area)
    : m_area(area)
{
    // Without this filter, the area would activate the window used longest ago.
    QCoreApplication::instance()->installEventFilter(this);
}

void WindowSwitcher::Leave(const QMdiSubWindow &window)
{
    if (m_area.currentSubWindow() != &window)
        return;
    for (QMdiSubWindow *other : byLastUse())
        if (other != &window && !other->isMinimized()) {
            m_area.setActiveSubWindow(other);
            return;
        }
}

WindowSwitcher::Windows WindowSwitcher::byLastUse() const
{
    Windows windows;
    for (QMdiSubWindow *window : m_area.subWindowList(QMdiArea::ActivationHistoryOrder))
        if (window->isVisible())
            windows.emplace_back(window);
    std::reverse(windows.begin(), windows.end());
    return windows;
}

bool WindowSwitcher::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    const auto &key = *static_cast<QKeyEvent *>(event);
    if (event->type() == QEvent::KeyRelease && key.key() == Qt::Key_Control)
        settle();
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    const auto *widget = qobject_cast<const QWidget *>(watched);
    if (!isTab || !(key.modifiers() & Qt::ControlModifier) || !widget ||
        widget->window() != m_area.window())
        return false;
    if (event->type() == QEvent::KeyPress)
        step(key.key() == Qt::Key_Backtab || key.modifiers() & Qt::ShiftModifier ? -1 : 1);
    return true;
}

void WindowSwitcher::step(int by)
{
    if (m_windows.empty()) {
        m_windows = byLastUse();
        m_at = 0;
    }
    std::erase_if(m_windows, [](const auto &window) { return window.isNull(); });
    if (m_windows.empty())
        return;
    const auto count = static_cast<int>(m_windows.size());
    m_at = static_cast<std::size_t>((static_cast<int>(m_at) % count + count + by) % count);
    m_area.setActiveSubWindow(m_windows[m_at]);
}

/// Restores the order of use of the windows passed on the way: activates all of them again, the
/// chosen one last.
void WindowSwitcher::settle()
{
    Windows windows;
    windows.swap(m_windows);
    if (m_at == 0 || m_at >= windows.size())
        return;
    std::rotate(windows.begin(), windows.begin() + static_cast<std::ptrdiff_t>(m_at),
                windows.begin() + static_cast<std::ptrdiff_t>(m_at) + 1);
    m_area.setUpdatesEnabled(false);
    for (auto window = windows.rbegin(); window != windows.rend(); ++window)
        if (*window)
            m_area.setActiveSubWindow(*window);
    m_area.setUpdatesEnabled(true);
}

} // namespace app
