// SPDX-License-Identifier: MIT
#include "app/ShellCommands.h"

#include "app/Desktop.h"
#include "host/Dialogs.h"
#include "host/Disk.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "install/Installation.h"

namespace app {

using host::DialogIcon;

namespace {

constexpr char kWebSite[] = "https://www.openrails.org";
constexpr char kViewSimulator[] = "View MSTS", kViewEditors[] = "View MSTS Tools";

} // namespace

std::string FindGuide(GuidePage page)
{
    const char *const name = page == GuidePage::Contents ? "/index.html" : "/search.html";
    for (const char *folder : {"guide", "../share/zelk/guide"}) {
        const std::string file = host::path::Normalise(
            host::path::Join(host::ExecutableFolder(), std::string(folder) + name));
        if (host::disk::KindOf(file) == host::disk::Kind::File)
            return file;
    }
    return {};
}

ShellCommands::ShellCommands(const install::Environment &environment, Desktop &desktop)
    : m_environment(environment)
    , m_desktop(desktop)
{
}

bool ShellCommands::StartSimulator()
{
    return HasInstallation(kViewSimulator) &&
           start(m_environment.installation.PathOf("train.exe"), {}, kViewSimulator);
}

bool ShellCommands::StartEditors()
{
    return HasInstallation(kViewEditors) &&
           start(m_environment.installation.PathOf("launcher.exe"), {"-runeditor"}, kViewEditors);
}

bool ShellCommands::StartShapeViewer()
{
    const std::string viewer = install::FindShapeViewer();
    return viewer.empty() ? refuse(kViewSimulator) : start(viewer, {}, kViewSimulator);
}

bool ShellCommands::HasInstallation(const std::string &title)
{
    return !m_environment.installation.CurrentFolder().empty() || refuse(title);
}

bool ShellCommands::refuse(const std::string &title)
{
    m_environment.dialogs.Message("MSTS does not appear to be installed on this system!", title,
                                  DialogIcon::Critical);
    return false;
}

bool ShellCommands::start(const std::string &path, const std::vector<std::string> &arguments,
                          const std::string &title)
{
    try {
        const ProgramStart how = StartOf(m_environment.files, path, arguments);
        if (!how.program.empty()) {
            m_desktop.Start(how);
            return true;
        }
        m_environment.dialogs.Message(
            path + " is a Windows program. It can be started here once Wine is "
                   "installed (the package \"wine\" of your distribution).",
            title, DialogIcon::Critical);
    } catch (const host::RuntimeError &error) {
        m_environment.dialogs.Message(host::Explained(error), title, DialogIcon::Critical);
    }
    return false;
}

void ShellCommands::SetFileAssociation()
{
    if (m_environment.dialogs.Message(
            "Do you want to associate .CON files with ZELK?\n\n(Doing this will make "
            "ZELK load when you double click on a consist file)",
            "Set File Association", DialogIcon::Question,
            host::DialogButtons::YesNo) != host::DialogAnswer::Yes)
        return;
    try {
        m_desktop.AssociateConsistFiles();
    } catch (const host::RuntimeError &error) {
        m_environment.dialogs.Message(host::Explained(error), "Set File Association",
                                      DialogIcon::Critical);
        return;
    }
    m_environment.dialogs.Message("Consist files now associations with ZELK.", "Set Association",
                                  DialogIcon::Information);
}

void ShellCommands::ShowGuide(GuidePage page)
{
    const std::string file = FindGuide(page);
    if (file.empty())
        m_environment.dialogs.Message(
            "Unable to display Help Contents. There is no Help currently associated "
            "with this application.",
            "ZELK", DialogIcon::Information);
    else if (!m_desktop.Open(file))
        m_environment.dialogs.Message(file + " cannot be shown: there is no browser for it.",
                                      "ZELK", DialogIcon::Critical);
}

void ShellCommands::Open(const std::string &path, const std::string &title)
{
    const auto file = m_environment.files.FindFile(path);
    const auto found = file ? file : m_environment.files.FindFolder(path);
    if (!found)
        m_environment.dialogs.Message(path + " does not exist!", title, DialogIcon::Critical);
    else if (!m_desktop.Open(host::path::FromDisk(*found)))
        m_environment.dialogs.Message(path + " cannot be opened: there is no program for it.",
                                      title, DialogIcon::Critical);
}

void ShellCommands::ShowWebSite()
{
    if (!m_desktop.OpenWeb(kWebSite))
        m_environment.dialogs.Message(std::string(kWebSite) +
                                          " cannot be shown: there is no browser for it.",
                                      "ZELK", DialogIcon::Critical);
}

} // namespace app
