// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"

#include <string>
#include <vector>

namespace app {

class Desktop;

/// The pages of the guide that commands open: its contents and its search page.
enum class GuidePage
{
    Contents,
    Search
};

/// Returns the file of a guide page, or "" if it does not exist. The file is in the folder "guide"
/// beside the program, or in share/zelk/guide under the folder where the program is installed.
std::string FindGuide(GuidePage page);

/// The commands that use other programs and the desktop. They report in a message what cannot be
/// done, and throw RuntimeError only for failures of the machine.
class ShellCommands
{
public:
    /// All arguments must outlive the object.
    ShellCommands(const install::Environment &environment, Desktop &desktop);

    /// The Start functions start a program without waiting for it; they return true if it was
    /// started.
    bool StartSimulator();
    bool StartEditors();
    bool StartShapeViewer();
    bool StartSystemTool(const std::string &path) { return start(path, {}, "System Info"); }

    /// Returns false, after a message with this title, if no installation is known.
    bool HasInstallation(const std::string &title);
    /// Asks, and associates consist files with this program.
    void SetFileAssociation();
    void ShowGuide(GuidePage page);
    /// Opens a file or a folder with the desktop's program for it. `title` is the title of the
    /// message if that fails.
    void Open(const std::string &path, const std::string &title);
    /// Opens the web site of the community in the default browser.
    void ShowWebSite();

private:
    bool start(const std::string &path, const std::vector<std::string> &arguments,
               const std::string &title);
    bool refuse(const std::string &title);

    install::Environment m_environment;
    Desktop &m_desktop;
};

} // namespace app
