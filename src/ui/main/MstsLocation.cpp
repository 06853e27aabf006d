// SPDX-License-Identifier: MIT
#include "ui/main/MstsLocation.h"

#include "app/CheckCommands.h"
#include "document/WindowMode.h"
#include "host/Dialogs.h"
#include "host/Folders.h"
#include "install/Installation.h"
#include "ui/dialogs/frmSetLoc.h"
#include "ui/main/frmMain.h"

#include <algorithm>

namespace app {

MstsLocation::MstsLocation(frmMain &window, const CheckCommands &checking)
    : m_window(window)
    , m_checking(checking)
{
}

void MstsLocation::Ask()
{
    if (!mayChange())
        return;
    const std::string folder = m_window.Environment().installation.CurrentFolder();
    frmSetLoc dialog(m_window.Environment().files, &m_window);
    dialog.SetLocation(folder.empty() ? host::HomeFolder() : folder);
    dialog.exec();
    if (!dialog.Cancelled)
        change(dialog.Location);
}

void MstsLocation::Offer(const std::string &folder)
{
    const bool isWanted =
        mayChange() && m_window.Environment().dialogs.Message(
                           "Do you want to work on the Train Simulator folder " + folder + "?",
                           "Set MSTS Location", host::DialogIcon::Question,
                           host::DialogButtons::YesNo) == host::DialogAnswer::Yes;
    if (isWanted)
        change(install::ChosenLocation(folder));
}

/// Returns false, and shows a message, while an editor or a check uses the present location.
bool MstsLocation::mayChange()
{
    const std::vector<frmDocument *> open = m_window.Documents();
    const bool editing = std::any_of(open.begin(), open.end(), [](const frmDocument *document) {
        return document->Mode() == document::WindowMode::ConsistEditor;
    });
    if (!editing && !m_checking.Running())
        return true;
    m_window.Environment().dialogs.Message(
        editing ? "Can't change MSTS location whilst editting a consist!"
                : "Can't change MSTS location whilst a check is running!",
        "Set MSTS Location", host::DialogIcon::Critical);
    return false;
}

void MstsLocation::change(const std::string &location)
{
    m_window.Environment().installation.SetLocation(location);
    for (frmDocument *document : m_window.Documents())
        if (document->Mode() == document::WindowMode::ConsistList)
            document->LoadForm();
}

} // namespace app
