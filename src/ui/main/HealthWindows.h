// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

class frmHealth;
class frmMain;

namespace app {

class FileOpener;
class Printing;
class ShellCommands;

/// The windows with health reports, which stay above the main window. One report runs at a time.
class HealthWindows
{
public:
    /// All must outlive the object.
    HealthWindows(frmMain &window, FileOpener &opener, ShellCommands &shell, Printing &printing);

    /// Makes the report of the installation, or of these consists (paths), in a window with this
    /// caption. The window of an earlier report on the same is used again. Shows a message if there
    /// is no installation, or while another report runs.
    void Show(const std::string &caption, const std::vector<std::string> &consists);
    /// Returns the open windows, in the order of opening.
    std::vector<frmHealth *> Open() const;
    bool Running() const { return running() != nullptr; }
    /// Ends a running report; its window shows the findings so far.
    void Stop();
    /// Ends a running report and closes all windows.
    void CloseAll();

private:
    frmHealth *running() const;
    frmHealth *find(const std::string &folder, const std::vector<std::string> &consists) const;
    frmHealth &newWindow(const std::string &folder, const std::vector<std::string> &consists);
    void connectWindow(frmHealth &health);
    void place(frmHealth &health) const;
    void refuse() const;
    void open(const std::string &path);
    void openFolder(const std::string &path);
    bool showsShape(const std::string &stockFile) const;

    frmMain &m_window;
    FileOpener &m_opener;
    ShellCommands &m_shell;
    Printing &m_printing;
};

} // namespace app
