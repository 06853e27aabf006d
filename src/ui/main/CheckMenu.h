// SPDX-License-Identifier: MIT
#pragma once

#include "app/CheckCommands.h"
#include "document/WindowMode.h"
#include "ui/main/MainStatusBar.h"
#include "ui/main/SelectionRemark.h"
#include "ui/main/frmMain.h"

namespace app {

/// The check commands of the Consist and Stock menus. They run app::CheckCommands on the selection
/// of the active window.
class CheckMenu
{
public:
    CheckMenu(frmMain &window, CheckCommands &checking, const MainStatusBar &statusBar)
        : m_window(window)
        , m_checking(checking)
        , m_statusBar(statusBar)
    {
    }

    void Dependencies() { m_checking.CheckDependencies(target()); }

    void ConsistStock()
    {
        const frmDocument *active = m_window.ActiveDocument();
        const bool busy = m_checking.Running();
        const std::string only = active ? OnlyOneRemark(*active, "was checked") : std::string();
        m_checking.CheckConsistStock(target());
        if (!only.empty() && !busy)
            m_window.SetStatus(m_statusBar.Status().toStdString() + "  " + only);
    }

    void AllStock() { m_checking.CheckAllStock(); }

    void StockTextures() { m_checking.CheckStockTextures(target()); }

private:
    /// Returns the selection of the active window, or nothing without a window.
    std::optional<CheckTarget> target() const
    {
        const frmDocument *active = m_window.ActiveDocument();
        if (!active)
            return std::nullopt;
        return CheckTarget{active->Mode(), active->SelectedConsists(), active->SelectedConsist(),
                           active->Mode() == document::WindowMode::ConsistEditor
                               ? active->SelectedItem()
                               : active->FileName()};
    }

    frmMain &m_window;
    CheckCommands &m_checking;
    const MainStatusBar &m_statusBar;
};

} // namespace app
