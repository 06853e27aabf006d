// SPDX-License-Identifier: MIT
#pragma once

#include "app/OpenRules.h"
#include "document/WindowMode.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "ui/main/FileOpener.h"
#include "ui/main/Printing.h"
#include "ui/main/frmMain.h"
#include "ui/print/PrintJobs.h"

#include <QMdiArea>

namespace app {

/// The File menu.
class FileCommands
{
public:
    FileCommands(frmMain &window, FileOpener &opener, Printing &printing)
        : m_window(window)
        , m_opener(opener)
        , m_printing(printing)
    {
    }

    void NewConsist() { m_window.NewDocumentWindow(document::WindowMode::ConsistEditor, {}); }

    void NewConsistList() { m_window.NewDocumentWindow(document::WindowMode::ConsistList, {}); }

    void Open()
    {
        const auto last = m_window.Environment().files.FindFolder(m_opener.LastFolder());
        const std::string path = m_window.Environment().dialogs.OpenFile(
            {"Open", kOpenFilter, "",
             last ? host::path::FromDisk(*last) : m_window.ConsistFolder()});
        if (!path.empty())
            m_window.OpenFile(path);
    }

    void Close()
    {
        if (frmDocument *active = m_window.ActiveDocument())
            active->close();
    }

    void Save() { m_window.SaveDocument(false); }

    void SaveAs() { m_window.SaveDocumentAs(); }

    void SaveAll()
    {
        for (frmDocument *document : m_window.Documents()) {
            document->mdiArea()->setActiveSubWindow(document);
            m_window.SaveDocument(false);
        }
    }

    void Print()
    {
        if (frmDocument *active = m_window.ActiveDocument())
            m_printing.Print(active->Print());
    }

    void ShowProperties()
    {
        if (frmDocument *active = m_window.ActiveDocument())
            active->ShowProperties();
    }

    void Exit() { m_window.close(); }

private:
    frmMain &m_window;
    FileOpener &m_opener;
    Printing &m_printing;
};

} // namespace app
