// SPDX-License-Identifier: MIT
#include "ui/document/frmDocument.h"

#include "document/ConsistList.h"
#include "host/GameFiles.h"
#include "host/Guard.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/ConsistEditorPane.h"
#include "ui/document/ConsistListPane.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/StockLoader.h"
#include "ui/view3d/ViewerPane.h"

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
    connect(this, &QMdiSubWindow::windowStateChanged, this, &frmDocument::focusWhenRestored);
    connect(m_editor->lvConsist, &ListView::Focused, this, [this] { enterList(true); });
    connect(m_editor->lvStock, &ListView::Focused, this, [this] { enterList(false); });
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
    m_list->ShowNames(document::ListConsists(m_host.Installation(), m_host.Files(), m_filter),
                      m_filter != m_listedFilter);
    m_listedFilter = m_filter;
    const std::string folder = m_host.Installation().PathOf(document::kConsists);
    m_host.SetStatus(
        m_host.Files().IsClosed(folder)
            ? folder + " cannot be read"
            : host::Counted(static_cast<std::size_t>(m_list->Count()), "consist", "consists"));
}

void frmDocument::loadEditor()
{
    const bool dropsChanges = Changed() && m_editor->isVisible();
    m_note.clear();
    if (!m_fileName.empty() && m_host.Files().FileExists(m_fileName)) {
        loadConsist();
        if (dropsChanges)
            m_note = m_fileName + " was read again; unsaved changes were dropped.";
    } else {
        m_consist.New(m_fileName);
        m_editor->ShowConsist(m_consist);
        if (!m_fileName.empty())
            m_note = m_fileName + " does not exist yet: it is made when you save.";
    }
    m_editor->ShowChanged(m_consist.Changed());
    if (!m_note.empty())
        m_host.SetStatus(m_note);
    loadStock();
    tellWhyRowsEnd();
}

void frmDocument::loadConsist()
{
    try {
        m_consist.Load(m_fileName);
    } catch (...) {
        m_editor->ShowConsist(m_consist);
        m_editor->ShowChanged(m_consist.Changed());
        throw;
    }
    m_editor->ShowConsist(m_consist);
    showTitle();
}

void frmDocument::tellWhyRowsEnd()
{
    if (m_consist.WhyRowsEnd().empty())
        return;
    m_host.Dialogs().Message(m_consist.WhyRowsEnd() +
                                 ".\n\nThis unit and all units behind it are not shown.  Saving "
                                 "keeps them as they are.",
                             "Open File", host::DialogIcon::Information);
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
    m_note.clear();
    reloadStock();
}

/// The note about the file just read is shown again when the stock is loaded.
void frmDocument::reloadStock()
{
    if (!m_editor)
        return;
    m_stockLoaded = false;
    loadStock();
}

void frmDocument::RefreshForm()
{
    if (!m_editor || m_host.Files().FileExists(m_fileName))
        LoadForm();
    else
        keepConsist();
    reloadStock();
}

/// What the window shows may be the only copy that is left.
void frmDocument::keepConsist()
{
    if (m_fileName.empty()) {
        m_note = "There is no file to read again: the consist stays as it is.";
    } else {
        m_note = m_fileName + " does not exist: the consist stays as it is, not saved.";
        markChanged();
    }
    m_host.SetStatus(m_note);
}

void frmDocument::markChanged()
{
    if (!m_editor)
        return;
    m_consist.SetChanged(true);
    m_editor->ShowChanged(true);
}

void frmDocument::ShowSavedElsewhere(const std::string &path)
{
    if (!m_editor || m_fileName.empty() || !m_consist.ChangedOnDisk(path))
        return;
    if (Changed())
        m_host.SetStatus(path + " was saved in one window and has unsaved changes in another.");
    else
        Guarded(m_host.Dialogs(), "Open File", [this] { readAgain(); });
}

void frmDocument::readAgain()
{
    m_consist.Load(m_fileName);
    m_editor->ShowConsistAgain(m_consist);
    m_editor->ShowChanged(m_consist.Changed());
    showTitle();
}

/// A new consist has no title before it is saved: its window keeps the caption that it has.
void frmDocument::showTitle()
{
    if (const std::string title = m_consist.Title(); !title.empty())
        SetCaption("Consist - " + title);
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
    enterList(true);
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
    if (m_fileName.empty())
        saveByHost(false); // asks for a name
    else
        saveInPlace();
}

void frmDocument::saveAndClose()
{
    if (saveInPlace())
        close();
}

/// False when writing failed, or when the file was changed by somebody else and stays so.
bool frmDocument::saveInPlace()
{
    return document::MayOverwrite(m_consist, m_fileName, m_host.Dialogs()) &&
           Guarded(m_host.Dialogs(), "Save Consist", [this] { SaveForm(false); });
}

void frmDocument::SaveForm(bool quiet)
{
    if (!m_editor || m_fileName.empty())
        return;
    m_consist.Save(m_fileName);
    showSaved(quiet);
}

void frmDocument::SaveConsist(bool quiet)
{
    if (m_editor)
        finishSave(document::SaveConsist(m_consist, m_fileName, saveQuestions(), quiet), quiet);
}

void frmDocument::SaveConsistAs()
{
    if (m_editor)
        finishSave(document::SaveConsistAs(m_consist, m_fileName, saveQuestions()), false);
}

document::SaveQuestions frmDocument::saveQuestions()
{
    return {m_host.Dialogs(), m_host.Files(),
            document::ConsistFolder(m_host.Installation(), m_host.Files())};
}

void frmDocument::finishSave(const document::SaveOutcome &outcome, bool quiet)
{
    m_fileName = outcome.fileName;
    if (!outcome.caption.empty())
        SetCaption(outcome.caption);
    if (outcome.saved)
        showSaved(quiet);
    else
        m_editor->ShowChanged(m_consist.Changed());
}

void frmDocument::showSaved(bool quiet)
{
    m_note.clear();
    if (!quiet)
        m_host.Dialogs().Message(m_fileName + " saved", "Save Consist",
                                 host::DialogIcon::Information);
    m_editor->ShowChanged(m_consist.Changed());
    Q_EMIT Saved(m_fileName);
}

/// Minimising hides the list that has the focus, and so takes it away.
void frmDocument::focusWhenRestored(Qt::WindowStates before, Qt::WindowStates now)
{
    if (!before.testFlag(Qt::WindowMinimized) || now.testFlag(Qt::WindowMinimized))
        return;
    const auto focusActiveList = [this] {
        if (mdiArea() && mdiArea()->activeSubWindow() == this)
            m_editor->setFocus();
    };
    // The window is not active yet, and its controls are not visible.
    QMetaObject::invokeMethod(m_editor, focusActiveList, Qt::QueuedConnection);
}

/// The window gives the focus to this list when the user returns to it.
void frmDocument::enterList(bool consist)
{
    m_consistIsActiveList = consist;
    m_editor->setFocusProxy(consist ? m_editor->lvConsist : m_editor->lvStock);
}

void frmDocument::Remark(const std::string &remark)
{
    m_note += (m_note.empty() ? "" : "  ") + remark;
    *m_viewRemark = "  " + remark;
    m_host.SetStatus(remark);
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
    Q_EMIT Closing();
    m_host.SetStatus({}); // it may be about this window
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
