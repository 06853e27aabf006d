// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"
#include "host/Dialogs.h"
#include "host/Text.h"
#include "ui/main/HealthWindows.h"
#include "ui/main/frmMain.h"

#include <string>
#include <vector>

namespace app {

/// The commands that make health reports.
class HealthCommands
{
public:
    HealthCommands(frmMain &window, HealthWindows &windows)
        : m_window(window)
        , m_windows(windows)
    {
    }

    void WholeInstallation() { m_windows.Show("Health Report", {}); }

    void SelectedConsists()
    {
        const frmDocument *active = m_window.ActiveDocument();
        const bool isList = active && active->Mode() == document::WindowMode::ConsistList;
        const std::vector<std::string> names =
            isList ? active->SelectedConsists() : std::vector<std::string>();
        if (names.empty()) {
            m_window.Environment().dialogs.Message(
                "Nothing selected!", "Health of Selected Consists", host::DialogIcon::Critical);
            return;
        }
        std::vector<std::string> paths;
        for (const std::string &name : names)
            paths.push_back(m_window.Environment().installation.ConsistPath(name));
        m_windows.Show("Health of " + (names.size() == 1
                                           ? names.front()
                                           : host::Counted(names.size(), "consist", "consists")),
                       paths);
    }

private:
    frmMain &m_window;
    HealthWindows &m_windows;
};

} // namespace app
