// SPDX-License-Identifier: MIT
#pragma once

#include "app/ShellCommands.h"
#include "ui/main/frmMain.h"

#include <string>

namespace app {

/// The commands that start other programs. The status bar reports a start.
class ToolCommands
{
public:
    ToolCommands(frmMain &window, ShellCommands &shell, const std::string &picturesFolder)
        : m_window(window)
        , m_shell(shell)
        , m_picturesFolder(picturesFolder)
    {
    }

    void StartSimulator()
    {
        if (m_shell.StartSimulator())
            m_window.SetStatus("Starting Train Simulator...");
    }

    void StartEditors()
    {
        if (m_shell.StartEditors())
            m_window.SetStatus("Starting the tools of Train Simulator...");
    }

    void StartShapeViewer()
    {
        if (m_shell.StartShapeViewer())
            m_window.SetStatus("Starting the shape viewer...");
    }

    void OpenPicturesFolder() { m_shell.Open(m_picturesFolder, "Open Pictures Folder"); }

private:
    frmMain &m_window;
    ShellCommands &m_shell;
    const std::string &m_picturesFolder;
};

} // namespace app
