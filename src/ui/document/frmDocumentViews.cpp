// SPDX-License-Identifier: MIT
// What a document window does in 3D, and what the others do to get there.
#include "ui/document/frmDocument.h"

#include "host/Filter.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Guard.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/ConsistEditorPane.h"
#include "ui/document/ConsistListPane.h"
#include "ui/document/DocumentHost.h"
#include "ui/view3d/ViewerPane.h"
#include "viewer/StockShape.h"

#include <QMdiArea>

using document::Guarded;
using host::DialogAnswer;
using host::DialogIcon;

namespace {

constexpr int kConsistViewMode = 2, kShapeViewMode = 3;
constexpr char kViewConsist[] = "View Consist", kViewShape[] = "View Shape";

bool isActivity(const std::string &file)
{
    return host::ToUpper(file).ends_with(".ACT");
}

} // namespace

void frmDocument::makeViewerPane()
{
    const viewer::Services services{m_host.Files(), m_host.Dialogs(), m_host.Shapes()};
    // The pane outlives this part of the window, and reports when it goes.
    document::DocumentHost &host = m_host;
    m_viewer =
        new viewer::ViewerPane({services,
                                [&host, remark = m_viewRemark](const std::string &text) {
                                    host.SetStatus(text + *remark);
                                },
                                [&host](int done, int total) { host.SetProgress(done, total); },
                                [&host](const std::string &path) { host.OpenOutside(path); }});
    connect(m_viewer, &viewer::ViewerPane::Loaded, this, [this] { m_viewRemark->clear(); });
    setWidget(m_viewer);
    setMinimumSize(200, 160);
}

void frmDocument::loadView()
{
    if (m_fileName.empty())
        return;
    const std::string folder = m_host.Installation().CurrentFolder();
    const bool loose = m_mode == kConsistViewMode && isActivity(m_fileName);
    if (!loose && !m_host.Files().FileExists(m_fileName)) {
        m_host.SetStatus(m_fileName + " does not exist!");
        return;
    }
    if (m_mode == kShapeViewMode) {
        m_viewer->RenderShape(m_fileName);
        return;
    }
    if (loose)
        m_viewer->RenderLooseConsist(m_node, folder, m_fileName);
    else
        m_viewer->RenderConsist(m_fileName, folder);
    // The opener's caption says more; refreshing must not change it.
    if (Caption().empty())
        SetCaption(m_viewer->Caption());
}

void frmDocument::viewConsists(const std::vector<std::string> &names)
{
    for (const std::string &name : names)
        ViewConsist(name);
}

void frmDocument::ViewConsist(const std::string &name)
{
    m_host.SetStatus({});
    m_host.OpenDocumentWindow(m_host.Installation().ConsistPath(name), kConsistViewMode,
                              "Consist - " + name, {});
}

void frmDocument::viewConsist()
{
    if (!m_editor)
        return;
    std::string file = m_fileName;
    if (Changed()) {
        const DialogAnswer answer = m_host.Dialogs().Message(
            "Consist has changed.  Do you want to save it before viewing the consist?",
            kViewConsist, DialogIcon::Question, host::DialogButtons::YesNoCancel);
        if (answer == DialogAnswer::Cancel || (answer == DialogAnswer::Yes && !saveByHost(true)))
            return;
        file = answer == DialogAnswer::Yes ? m_fileName : saveScratchCopy();
    }
    if (!file.empty())
        m_host.OpenDocumentWindow(file, kConsistViewMode, Caption(), {});
}

/// Writes the consist as it is now to a file beside the program. Returns the path, or "" after a
/// failure, which was reported. The document stays changed.
std::string frmDocument::saveScratchCopy()
{
    const std::string scratch = host::path::Join(host::ProgramFolder(), "Temporary Consist.con");
    const bool written = Guarded(m_host.Dialogs(), kViewConsist, [&] {
        if (m_host.Files().FileExists(scratch))
            m_host.Files().RemoveFile(scratch);
        m_consist.SaveCopy(scratch);
    });
    return written ? scratch : std::string();
}

void frmDocument::viewShape()
{
    const document::StockItem *item = nullptr;
    if (m_editor)
        item = m_consistIsActiveList ? m_editor->SelectedUnit() : m_editor->SelectedStock();
    if (!item) {
        m_host.Dialogs().Message("Nothing selected to view", kViewShape, DialogIcon::Critical);
        return;
    }
    const std::string caption = item->type + " - " + item->shape;
    Guarded(m_host.Dialogs(), kViewShape, [&] {
        const auto stock = viewer::ReadStockShapeToShow(m_host.Files(), SelectedItem());
        m_host.OpenDocumentWindow(stock.shapeFile, kShapeViewMode, caption, {});
    });
}

void frmDocument::ResetView()
{
    if (m_viewer)
        m_viewer->ResetView();
}

void frmDocument::ShowProperties()
{
    if (m_list)
        showListProperties();
    else if (m_viewer)
        if (const std::string report = m_viewer->Report(); !report.empty())
            m_host.ShowTextWindow(Caption(), report);
}

void frmDocument::showListProperties()
{
    std::string text = "Path:\t" + m_host.Installation().PathOf("Trains\\Consists") +
                       "\r\n\r\nCount:\t" + std::to_string(m_list->Count());
    if (!host::MatchesEverything(m_filter))
        text += " (Filtered on " + m_filter + ")";
    m_host.Dialogs().Message(text, "All Consists Properties", DialogIcon::Information);
}

QImage frmDocument::Picture()
{
    if (!m_viewer)
        throw host::RuntimeError(host::ErrorNumber::InvalidCall, "this window shows no picture");
    return m_viewer->Picture();
}

void frmDocument::SaveSnapshot(const std::string &folder)
{
    if (!m_viewer)
        return;
    const bool consist = m_mode == kConsistViewMode;
    m_viewer->SaveSnapshot(host::path::Join(folder, consist ? "ZELKC" : "ZELKS"),
                           consist ? "consist" : "stock");
}
