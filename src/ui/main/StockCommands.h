// SPDX-License-Identifier: MIT
#pragma once

#include "ui/main/ReplaceWindows.h"
#include "ui/main/frmMain.h"

namespace app {

/// The commands that replace vehicles.
class StockCommands
{
public:
    StockCommands(frmMain &window, ReplaceWindows &windows)
        : m_window(window)
        , m_windows(windows)
    {
    }

    /// With the vehicle that is selected in the active editor, if any.
    void ReplaceInConsists()
    {
        const frmDocument *active = m_window.ActiveDocument();
        m_windows.Show(active ? active->SelectedVehicle() : std::nullopt);
    }

    /// With the vehicle of the selected unit.
    void ReplaceUnit()
    {
        const frmDocument *active = m_window.ActiveDocument();
        if (const auto unit = active ? active->SelectedUnit() : std::nullopt)
            m_windows.Show(unit);
        else
            m_window.SetStatus("No unit is selected.");
    }

    void FindCandidates() { m_windows.FindCandidates(); }
    void UndoReplace() { m_windows.Undo(); }

private:
    frmMain &m_window;
    ReplaceWindows &m_windows;
};

} // namespace app
