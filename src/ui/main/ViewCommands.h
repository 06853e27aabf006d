// SPDX-License-Identifier: MIT
#pragma once

#include "document/WindowMode.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/SavedIndex.h"
#include "install/Environment.h"
#include "ui/main/MainStatusBar.h"
#include "ui/main/frmMain.h"

#include <QMdiArea>
#include <QToolBar>

namespace app {

/// The View menu, except for the programs and the folder that it opens.
class ViewCommands
{
public:
    ViewCommands(frmMain &window, QToolBar &toolBar, MainStatusBar &statusBar)
        : m_window(window)
        , m_toolBar(toolBar)
        , m_statusBar(statusBar)
    {
    }

    void ShowToolBar(bool shown) { m_toolBar.setVisible(shown); }

    void ShowStatusBar(bool shown) { m_statusBar.setVisible(shown); }

    void ShowPreview(bool shown) { m_window.ShowPreview(shown); }

    void Refresh()
    {
        m_window.Environment().files.Refresh();
        if (frmDocument *active = m_window.ActiveDocument())
            refresh(*active);
    }

    void RefreshEverything()
    {
        m_window.Environment().files.Refresh();
        forgetIndexes();
        for (frmDocument *document : m_window.Documents())
            refresh(*document);
        forgetIndexes(); // the figures that were being read may have been saved since
    }

    void Reset()
    {
        if (frmDocument *active = m_window.ActiveDocument())
            active->ResetView();
    }

    void ShowLoads(bool shown) { m_window.ShowLoads(shown); }
    void MoveCamera(viewer::CameraCommand command)
    {
        if (frmDocument *active = m_window.ActiveDocument())
            active->MoveCamera(command);
    }

    void Filter()
    {
        frmDocument *active = m_window.ActiveDocument();
        if (!active || document::Is3D(active->Mode()))
            return;
        const bool list = active->Mode() == document::WindowMode::ConsistList;
        const std::optional<std::string> answer = m_window.Environment().dialogs.Input(
            list ? "Enter a filter string for consists:" : "Enter a filter string for stock:",
            list ? "Filter Consist List" : "Filter Stock List", active->Filter());
        if (!answer)
            return;
        active->SetFilter(*answer);
        if (list)
            active->LoadForm();
        else
            active->ReloadAllStock();
    }

private:
    void refresh(frmDocument &document)
    {
        const bool drops =
            document.Changed() && m_window.Environment().files.FileExists(document.FileName());
        if (drops)
            document.mdiArea()->setActiveSubWindow(&document);
        if (!drops || mayDropChanges())
            document.RefreshForm();
    }
    void forgetIndexes()
    {
        host::SavedIndex::Forget(host::SavedIndex::UserFolder(),
                                 m_window.Environment().installation.CurrentFolder());
    }
    bool mayDropChanges()
    {
        return m_window.Environment().dialogs.Message(
                   "Consist has changed.  Reading it again drops all "
                   "changes.  Do you want to continue?",
                   "Refresh", host::DialogIcon::Question,
                   host::DialogButtons::YesNoDefaultNo) == host::DialogAnswer::Yes;
    }

    frmMain &m_window;
    QToolBar &m_toolBar;
    MainStatusBar &m_statusBar;
};

} // namespace app
