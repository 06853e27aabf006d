// SPDX-License-Identifier: MIT
#include "document/frmDocument.h"

#include "document/ConsistEditorPane.h"
#include "document/ConsistList.h"
#include "document/ConsistListPane.h"
#include "document/DocumentHost.h"
#include "document/Guard.h"
#include "document/StockLoader.h"
#include "host/GameFiles.h"
#include "install/Installation.h"
#include "viewer/ViewerPane.h"

#include <QAction>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollArea>

using document::Guarded;
using document::ListView;
using host::DialogAnswer;

namespace {

constexpr int kListMode = 0, kEditorMode = 1;

} // namespace

frmDocument::frmDocument(document::DocumentHost &host, document::Furnishing furnishing,
                         int windowNumber)
    : m_host(host)
    , m_furnishing(std::move(furnishing))
    , m_windowNumber(windowNumber)
    , m_consist(host.Files())
{
    setObjectName("frmDocument");
    setAttribute(Qt::WA_DeleteOnClose);
    // The menu of the window's own frame would take Ctrl+F4 from the File menu.
    if (systemMenu())
        for (QAction *action : systemMenu()->actions())
            action->setShortcuts({});
}

frmDocument::~frmDocument()
{
    Q_EMIT Unloading();
}

std::string frmDocument::SelectedItem() const
{
    if (!m_editor)
        return {};
    const document::StockItem *item =
        m_consistIsActiveList ? m_editor->SelectedUnit() : m_editor->SelectedStock();
    return item ? document::StockPath(m_host.Installation().CurrentFolder(), *item) : std::string();
}

void frmDocument::SetMode(int mode)
{
    m_mode = mode;
    if (mode == kListMode)
        makeListPane();
    else if (mode == kEditorMode)
        makeEditorPane();
    else
        makeViewerPane();
}

void frmDocument::makeListPane()
{
    m_list = new document::ConsistListPane;
    setWidget(m_list);
    setMinimumSize(180, 120);
    connect(m_list, &document::ConsistListPane::EditRequested, this,
            [this](const std::vector<std::string> &names) {
                for (const std::string &name : names)
                    EditConsist(name);
            });
    connect(m_list, &document::ConsistListPane::ViewRequested, this, &frmDocument::viewConsists);
    connect(m_list, &document::ConsistListPane::MenuWanted, this,
            [this](const QPoint &at) { m_furnishing.popUpConsistMenu(at); });
}

void frmDocument::makeEditorPane()
{
    m_editor = new document::ConsistEditorPane(m_furnishing);
    auto *scroller = new QScrollArea;
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    scroller->setWidget(m_editor);
    scroller->setFocusProxy(m_editor);
    setWidget(scroller);
    setMinimumSize(200, 120);
    m_loader = new document::StockLoader(m_host, m_editor->Stock(), this);
    connectEditor();
}

void frmDocument::connectEditor()
{
    using Pane = document::ConsistEditorPane;
    connect(m_editor, &Pane::MovePressed, this, &frmDocument::editTrain);
    connect(m_editor, &Pane::ActionPressed, this, &frmDocument::ActionClick);
    connect(m_editor, &Pane::MenuWanted, this,
            [this](const QPoint &at) { m_furnishing.popUpStockMenu(at); });
    connect(m_editor->lvConsist, &ListView::Focused, this,
            [this] { m_consistIsActiveList = true; });
    connect(m_editor->lvStock, &ListView::Focused, this, [this] { m_consistIsActiveList = false; });
    connect(m_editor->lvStock, &ListView::LeftPressed, this, &frmDocument::beginDrag);
    connect(m_editor->lvStock, &ListView::LeftReleased, this, &frmDocument::endDrag);
    connect(m_loader, &document::StockLoader::Progressed, this,
            [this] { m_editor->ShowStockHeading(m_filter); });
    connect(m_loader, &document::StockLoader::Finished, this,
            [this](bool stopped, const std::string &outcome) {
                m_editor->ShowStockHeading(m_filter);
                m_host.WriteLog(stopped ? "Stopped" : "Done");
                m_host.SetStatus(m_note.empty() ? outcome : m_note + "  " + outcome);
                // A list that was cut short is completed by the next refresh.
                m_stockLoaded = !stopped;
            });
}

void frmDocument::SetCaption(const std::string &caption)
{
    setWindowTitle(QString::fromStdString(caption));
    Q_EMIT CaptionChanged();
}

void frmDocument::LoadForm()
{
    if (m_list)
        loadList();
    else if (m_editor)
        loadEditor();
    else if (m_viewer)
        loadView();
}

void frmDocument::loadList()
{
    SetCaption(document::ConsistListCaption(m_windowNumber, m_filter));
    m_list->ShowHint(document::EmptyListHint(m_host.Installation(), m_host.Files(), m_filter));
    m_list->ShowNames(document::ListConsists(m_host.Installation(), m_host.Files(), m_filter));
    const std::string folder = m_host.Installation().PathOf(document::kConsists);
    m_host.SetStatus(m_host.Files().IsClosed(folder)
                         ? folder + " cannot be read"
                         : std::to_string(m_list->Count()) + " consists");
}

void frmDocument::loadEditor()
{
    const bool dropsChanges = Changed() && m_editor->isVisible();
    m_note.clear();
    if (!m_fileName.empty() && m_host.Files().FileExists(m_fileName)) {
        try {
            m_consist.Load(m_fileName);
        } catch (...) {
            m_editor->ShowConsist(m_consist);
            m_editor->ShowChanged(m_consist.Changed());
            throw;
        }
        m_editor->ShowConsist(m_consist);
        showTitle();
        if (dropsChanges)
            m_note = m_fileName + " was read again; unsaved changes were dropped.";
    } else {
        m_consist.New();
        m_editor->ShowConsist(m_consist);
        if (!m_fileName.empty())
            m_note = m_fileName + " does not exist yet: it is made when you save.";
    }
    m_editor->ShowChanged(m_consist.Changed());
    if (!m_note.empty())
        m_host.SetStatus(m_note);
    loadStock();
}

void frmDocument::loadStock()
{
    m_host.WriteLog("Loading installed stock list...");
    if (m_stockLoaded)
        return;
    m_stockLoaded = true;
    m_loader->Start(m_filter);
    m_editor->ShowStockHeading(m_filter);
}

void frmDocument::ReloadAllStock()
{
    if (!m_editor)
        return;
    m_stockLoaded = false;
    m_note.clear();
    loadStock();
}

void frmDocument::showTitle()
{
    SetCaption("Consist - " + m_consist.Title());
}

void frmDocument::editTrain(int index)
{
    const document::EditResult result =
        m_consist.Edit(static_cast<document::Move>(index), m_editor->SelectedConsistRow(),
                       m_editor->SelectedStock());
    m_editor->ShowConsist(m_consist);
    m_editor->ShowChanged(m_consist.Changed());
    m_editor->SelectConsistRow(result.selectedRow);
    showTitle();
    m_editor->lvConsist->setFocus();
    m_consistIsActiveList = true;
    m_host.SetStatus(result.message);
}

void frmDocument::ActionClick(int index)
{
    m_host.SetStatus({});
    switch (index) {
    case 0:
        cancel();
        break;
    case 1:
        apply();
        break;
    case 2:
        saveAndClose();
        break;
    case 3:
        viewConsist();
        break;
    case 4:
        viewShape();
        break;
    default:
        break;
    }
}

void frmDocument::cancel()
{
    if (Changed()) {
        bringForward();
        const DialogAnswer answer = m_host.Dialogs().Message(
            "Consist has changed.  All changes will be lost if you do not save it.  Do you want to "
            "save it before closing the consist?",
            "Cancel", host::DialogIcon::Question, host::DialogButtons::YesNoCancel);
        if (answer == DialogAnswer::Cancel || (answer == DialogAnswer::Yes && !saveByHost(false)))
            return;
        if (answer == DialogAnswer::No) {
            m_consist.SetChanged(false);
            m_editor->ShowChanged(false);
        }
    }
    close();
}

void frmDocument::apply()
{
    Guarded(m_host.Dialogs(), "Save Consist", [this] { SaveForm(false); });
}

void frmDocument::saveAndClose()
{
    if (Guarded(m_host.Dialogs(), "Save Consist", [this] { SaveForm(false); }))
        close();
}

void frmDocument::SaveForm(bool quiet)
{
    if (!m_editor)
        return;
    if (m_fileName.empty()) {
        m_host.SetStatus("This consist has no file name yet: choose File > Save As.");
        return;
    }
    if (m_savingCopy) {
        m_consist.SaveCopy(m_fileName);
        return;
    }
    m_consist.Save(m_fileName);
    m_note.clear();
    if (!quiet)
        m_host.Dialogs().Message(m_fileName + " saved", "Save Consist",
                                 host::DialogIcon::Information);
    m_editor->ShowChanged(m_consist.Changed());
}

std::vector<std::string> frmDocument::SelectedConsists() const
{
    return m_list ? m_list->SelectedNames() : std::vector<std::string>();
}

std::string frmDocument::SelectedConsist() const
{
    return m_list ? m_list->SelectedName() : std::string();
}

std::vector<std::string> frmDocument::ShownConsists() const
{
    return m_list ? m_list->Names() : std::vector<std::string>();
}

void frmDocument::EditConsist(const std::string &name)
{
    m_host.SetStatus({});
    m_host.OpenDocumentWindow(m_host.Installation().ConsistPath(name), kEditorMode,
                              "Consist - " + name, {});
}

bool frmDocument::Changed() const
{
    return m_editor && m_consist.Changed();
}

/// True when the consist was saved: not when the user gave up on the way or writing failed.
bool frmDocument::saveByHost(bool quiet)
{
    if (mdiArea())
        mdiArea()->setActiveSubWindow(this);
    m_host.SaveDocument(quiet);
    return !Changed();
}

/// Brings the window in front of the others, for a question about it.
void frmDocument::bringForward()
{
    if (isMinimized())
        showNormal();
    if (mdiArea())
        mdiArea()->setActiveSubWindow(this);
}

bool frmDocument::QueryUnload()
{
    if (m_unloadAllowed || !Changed())
        return true;
    if (m_asking)
        return false;
    const QScopedValueRollback<bool> asking(m_asking, true);
    bringForward();
    const DialogAnswer answer = m_host.Dialogs().Message(
        "Consist has changed.  All changes will be lost if you do not save it.  Do you want to "
        "save it before closing?",
        "Close", host::DialogIcon::Question, host::DialogButtons::YesNoCancel);
    if (answer == DialogAnswer::Yes)
        return saveByHost(false);
    return answer == DialogAnswer::No;
}

void frmDocument::closeEvent(QCloseEvent *event)
{
    if (!QueryUnload()) {
        event->ignore();
        return;
    }
    m_unloadAllowed = true;
    m_host.SetStatus({}); // it may tell of this window
    QMdiSubWindow::closeEvent(event);
}

void frmDocument::StopWork()
{
    if (m_loader)
        m_loader->Stop();
    if (m_viewer)
        m_viewer->Stop();
}

void frmDocument::beginDrag()
{
    m_dragRow = m_editor->lvStock->SelectedRow();
    if (m_dragRow >= 0)
        m_host.WriteLog("Dragging " + m_editor->Stock().Item(m_dragRow).type);
}

void frmDocument::endDrag()
{
    // The list may have been loaded anew since the press.
    if (m_dragRow >= 0 && m_dragRow < m_editor->Stock().rowCount())
        m_host.WriteLog("Dragged " + m_editor->Stock().Item(m_dragRow).type);
    m_dragRow = -1;
}
