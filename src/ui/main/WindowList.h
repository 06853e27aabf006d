// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

class QAction;
class QMenu;
class QString;
class QWidget;
class frmMain;

namespace app {

class HealthWindows;
class ResultsWindows;

/// The list of the open windows at the end of the Window menu.
class WindowList
{
public:
    WindowList(frmMain &window, const ResultsWindows &results, const HealthWindows &health);

    /// Lists the windows that are open now, in place of those listed before.
    void Fill(QMenu &menu);

private:
    void addItem(QMenu &menu, QWidget &window, QString caption,
                 const std::function<void()> &activate);
    void addTopLevel(QMenu &menu, QWidget &window);

    frmMain &m_window;
    const ResultsWindows &m_results;
    const HealthWindows &m_health;
    std::vector<QAction *> m_items;
};

} // namespace app
