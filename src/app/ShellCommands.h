// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace host {
class Dialogs;
class GameFiles;
} // namespace host
namespace install {
class Installation;
}

namespace app {

class Desktop;

/// A page of the guide: its contents, and the one to search it.
enum class GuidePage
{
    Contents,
    Search
};

/// The file of a page of the guide, "" when it is not there. It lies in the folder "guide" beside
/// the program, or in share/zelk/guide of what the program is installed in.
std::string FindGuide(GuidePage page);

/// The commands that reach outside the program. Each tells the user itself what cannot be done;
/// RuntimeError only for what the machine refuses.
class ShellCommands
{
public:
    /// All of them must outlive it.
    ShellCommands(host::Dialogs &dialogs, host::GameFiles &files, Desktop &desktop,
                  const install::Installation &installation);

    /// These start a program and do not wait for it; true when it was started.
    bool StartSimulator();
    bool StartEditors();
    bool StartShapeViewer();
    bool StartSystemTool(const std::string &path) { return start(path, {}, "System Info"); }

    /// Asks, and makes this program what opens consist files.
    void SetFileAssociation();
    void ShowGuide(GuidePage page);
    /// Opens a file or a folder with the program that the desktop has for it. `title` is that of
    /// the message if that fails.
    void Open(const std::string &path, const std::string &title);
    /// Opens the web site of the community in the default browser.
    void ShowWebSite();

private:
    bool start(const std::string &path, const std::vector<std::string> &arguments,
               const std::string &title);
    bool refuse(const std::string &title);

    host::Dialogs &m_dialogs;
    host::GameFiles &m_files;
    Desktop &m_desktop;
    const install::Installation &m_installation;
};

} // namespace app
