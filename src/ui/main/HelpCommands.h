// SPDX-License-Identifier: MIT
#pragma once

#include "app/ShellCommands.h"
#include "ui/dialogs/SystemInfo.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/dialogs/frmSystemInfo.h"
#include "ui/main/IconSet.h"
#include "ui/main/frmMain.h"

namespace app {

/// The Help menu, except for the pages that ShellCommands opens.
class HelpCommands
{
public:
    HelpCommands(frmMain &window, ShellCommands &shell)
        : m_window(window)
        , m_shell(shell)
    {
    }

    void About()
    {
        frmAbout box(
            ProgramIcon(), [this](QWidget &about) { showSystemInfo(about); }, &m_window);
        box.exec();
    }

private:
    void showSystemInfo(QWidget &parent)
    {
        const std::string tool = about::FindSystemTool(m_window.Environment().files);
        const bool started = !tool.empty() && m_shell.StartSystemTool(tool);
        if (started)
            return;
        frmSystemInfo window(about::TextOf(about::SystemFacts(m_window.Environment().installation)),
                             &parent);
        window.exec();
    }

    frmMain &m_window;
    ShellCommands &m_shell;
};

} // namespace app
