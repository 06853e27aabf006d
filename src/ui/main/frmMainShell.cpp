// SPDX-License-Identifier: MIT
// What the main window does with the world around it: clipboard, other programs, printers, help.
#include "ui/main/frmMain.h"

#include "app/ConsistFiles.h"
#include "app/modZELK.h"
#include "host/GameFiles.h"
#include "host/Guard.h"
#include "host/RuntimeError.h"
#include "ui/dialogs/SystemInfo.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/dialogs/frmSystemInfo.h"
#include "ui/main/IconSet.h"
#include "ui/print/PrintJobs.h"
#include "ui/print/Printers.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPrinter>

using document::WindowMode;
using host::DialogIcon;

namespace {

constexpr double kMargin = 15; ///< millimetres around what is printed, until Page Setup

} // namespace

void frmMain::copyConsist()
{
    const frmDocument *window = ActiveDocument();
    if (!window || window->Mode() != WindowMode::ConsistList)
        return;
    QClipboard &clipboard = *QGuiApplication::clipboard();
    clipboard.clear();
    if (const std::string name = window->SelectedConsist(); !name.empty())
        clipboard.setText(QString::fromStdString(name));
    SetStatus(onlyOne(*window, "was copied"));
}

void frmMain::pasteConsist()
{
    app::PasteConsist(QGuiApplication::clipboard()->text().toStdString(), m_services.dialogs,
                      m_services.files, m_installation);
}

void frmMain::cutConsist()
{
    const frmDocument *window = ActiveDocument();
    if (!window || window->Mode() != WindowMode::ConsistList)
        return;
    const std::string name = window->SelectedConsist(), only = onlyOne(*window, "was deleted");
    document::Guarded(m_services.dialogs, "Delete", [&] {
        const std::string result = app::CutConsist(name, m_services.dialogs, m_services.files,
                                                   m_services.desktop, m_installation);
        SetStatus(result.empty() || only.empty() ? result : result + "  " + only);
    });
}

void frmMain::startSimulator()
{
    if (m_shell.StartSimulator())
        SetStatus("Starting Train Simulator...");
}

void frmMain::startEditors()
{
    if (m_shell.StartEditors())
        SetStatus("Starting the tools of Train Simulator...");
}

void frmMain::startShapeViewer()
{
    if (m_shell.StartShapeViewer())
        SetStatus("Starting the shape viewer...");
}

void frmMain::setFileAssociation()
{
    m_shell.SetFileAssociation();
}

void frmMain::showHelpContents()
{
    m_shell.ShowGuide(app::GuidePage::Contents);
}

void frmMain::showHelpSearch()
{
    m_shell.ShowGuide(app::GuidePage::Search);
}

void frmMain::showWebSite()
{
    m_shell.ShowWebSite();
}

void frmMain::showAbout()
{
    frmAbout box(
        app::ProgramIcon(), [this](QWidget &about) { showSystemInfo(about); }, this);
    box.exec();
}

void frmMain::showSystemInfo(QWidget &parent)
{
    const std::string tool = about::FindSystemTool(m_services.files);
    const bool started = !tool.empty() && m_shell.StartSystemTool(tool);
    if (started)
        return;
    frmSystemInfo window(about::TextOf(about::SystemFacts(m_installation)), &parent);
    window.exec();
}

void frmMain::SendFile()
{
    saying("File Send not yet implemented")();
}

QPrinter &frmMain::printer()
{
    if (!m_printer) {
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
        m_printer->setPageMargins({kMargin, kMargin, kMargin, kMargin}, QPageLayout::Millimeter);
        m_printer->setCreator(QString::fromStdString(modZELK::MainCaption()));
    }
    return *m_printer;
}

void frmMain::printActive()
{
    frmDocument *window = ActiveDocument();
    if (!window)
        return;
    print(window->Print());
}

void frmMain::print(const app::PrintJob &job)
{
    printer().setDocName(QString::fromStdString(job.name));
    printer().setFromTo(0, 0);
    if (!m_services.printers.Choose(printer(), printer().docName()))
        return;
    if (app::Print(printer(), job.frame, *job.content))
        SetStatus(job.name + ": done");
    else
        m_services.dialogs.Message("Nothing could be printed: the printer, or the file to print "
                                   "to, cannot be used.",
                                   job.name, DialogIcon::Critical);
}

void frmMain::pageSetup()
{
    m_services.printers.SetUpPage(printer());
}
