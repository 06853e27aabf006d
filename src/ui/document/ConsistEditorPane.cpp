// SPDX-License-Identifier: MIT
#include "ui/document/ConsistEditorPane.h"

#include "document/ConsistList.h"
#include "host/Dialogs.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Guard.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/ChangeKeeper.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/EditorControls.h"
#include "ui/document/EditorPreview.h"
#include "ui/document/Furnishing.h"
#include "ui/document/MissingMarks.h"
#include "ui/document/StockFigures.h"
#include "ui/document/StockLoader.h"
#include "ui/document/StockPictures.h"
#include "ui/document/TrainDrag.h"
#include "ui/document/UnitCommands.h"
#include "ui/document/frmDocument.h"
#include "viewer/VehicleReader.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMdiArea>

#include <algorithm>

namespace document {

using host::DialogAnswer;
using host::DialogIcon;

namespace {

constexpr char kSave[] = "Save Consist", kOpen[] = "Open File", kViewConsist[] = "View Consist",
               kViewShape[] = "View Shape";

/// A flipped unit has "*" after its type.
QStringList vehicleRow(std::size_t number, StockItem item)
{
    const bool flipped = item.type.ends_with('*');
    if (flipped)
        item.type.pop_back();
    return {QString::number(number), QString::fromStdString(item.type),
            QString::fromStdString(item.folder), QString::fromStdString(item.shape),
            QLatin1String(flipped ? "flipped" : "")};
}

} // namespace

ConsistEditorPane::ConsistEditorPane(frmDocument &window, DocumentHost &host,
                                     const Furnishing &furnishing)
    : m_window(window)
    , m_host(host)
    , m_consist(window.Environment().files)
    , m_figures(*furnishing.figures)
    , m_pictures(*furnishing.pictures)
    , m_controls(new EditorControls(furnishing))
    , m_loader(new StockLoader(window.Environment(), host, m_controls->Stock(), this))
    , m_marks(new TrainMarks(window.Environment(), m_controls->Train(), this))
    , m_units(new UnitCommands(window, host, m_consist, *m_controls, this))
    , m_keeper(new ChangeKeeper(this, [this] { return unsavedState(); }))
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setWidget(m_controls);
    setFocusProxy(m_controls);
    connectControls(furnishing);
    connectLoader();
    new TrainDrag(*m_controls->lvConsist, *m_units, this);
    new EditorPreview(
        *m_controls, m_pictures, m_figures, [this] { return selectedStockItem(); }, this);
    connect(&window, &QMdiSubWindow::windowStateChanged, this,
            &ConsistEditorPane::focusWhenRestored);
}

void ConsistEditorPane::connectControls(const Furnishing &furnishing)
{
    connect(m_controls, &EditorControls::MovePressed, this, &ConsistEditorPane::editTrain);
    connect(m_controls, &EditorControls::StockChosen, this,
            [this] { m_units->Run(UnitCommand::AddAtEnd); });
    connect(m_units, &UnitCommands::Edited, this, [this] {
        showChanged();
        showTitle();
    });
    connect(m_keeper, &ChangeKeeper::Failed, this, &ConsistEditorPane::reportNotKept);
    connect(m_controls, &EditorControls::ActionPressed, &m_window, &frmDocument::ActionClick);
    connect(m_controls, &EditorControls::MenuWanted, this,
            [popUp = furnishing.popUpStockMenu](const QPoint &at) { popUp(at); });
    connect(m_controls->lvConsist, &ListView::Focused, this, [this] { enterList(true); });
    connect(m_controls->lvStock, &ListView::Focused, this, [this] { enterList(false); });
    connect(m_controls->lvStock, &ListView::LeftPressed, this, &ConsistEditorPane::beginDrag);
    connect(m_controls->lvStock, &ListView::LeftReleased, this, &ConsistEditorPane::endDrag);
}

void ConsistEditorPane::connectLoader()
{
    connect(m_loader, &StockLoader::Progressed, this,
            [this] { m_controls->ShowStockHeading(m_window.Filter()); });
    connect(m_loader, &StockLoader::Finished, this,
            [this](bool stopped, const std::string &outcome) {
                m_controls->ShowStockHeading(m_window.Filter());
                m_controls->ReadStockFigures();
                m_host.WriteLog(stopped ? "Stopped" : "Done");
                m_host.SetStatus(m_note.empty() ? outcome : m_note + "  " + outcome);
                // The next refresh completes a list whose loading was stopped.
                m_stockLoaded = !stopped;
            });
}

/// Minimising hides the list that has the focus, and so takes the focus away.
void ConsistEditorPane::focusWhenRestored(Qt::WindowStates before, Qt::WindowStates now)
{
    if (!before.testFlag(Qt::WindowMinimized) || now.testFlag(Qt::WindowMinimized))
        return;
    const auto focusActiveList = [this] {
        if (m_window.mdiArea() && m_window.mdiArea()->activeSubWindow() == &m_window)
            m_controls->setFocus();
    };
    // The window is not active yet, and its controls are not visible.
    QMetaObject::invokeMethod(m_controls, focusActiveList, Qt::QueuedConnection);
}

/// Remembers the list that gets the focus when the user returns to the window.
void ConsistEditorPane::enterList(bool consist)
{
    m_consistIsActiveList = consist;
    m_controls->setFocusProxy(consist ? m_controls->lvConsist : m_controls->lvStock);
}

void ConsistEditorPane::beginDrag()
{
    m_dragRow = m_controls->lvStock->SelectedRow();
    if (m_dragRow >= 0)
        m_host.WriteLog("Dragging " + m_controls->Stock().Item(m_dragRow).type);
}

void ConsistEditorPane::endDrag()
{
    // The list may have been loaded again since the press.
    if (m_dragRow >= 0 && m_dragRow < m_controls->Stock().rowCount())
        m_host.WriteLog("Dragged " + m_controls->Stock().Item(m_dragRow).type);
    m_dragRow = -1;
}

void ConsistEditorPane::Load()
{
    m_note.clear();
    if (!m_window.FileName().empty() &&
        m_window.Environment().files.FileExists(m_window.FileName()))
        loadConsist();
    else
        startConsist();
    showChanged();
    if (!m_note.empty())
        m_host.SetStatus(m_note);
    loadStock();
    reportHiddenUnits();
}

void ConsistEditorPane::loadConsist()
{
    const bool dropsChanges = Changed() && m_controls->isVisible();
    try {
        m_consist.Load(m_window.FileName());
    } catch (...) {
        m_controls->ShowConsist(m_consist);
        showChanged();
        throw;
    }
    m_controls->ShowConsist(m_consist);
    showTitle();
    if (dropsChanges)
        m_note = m_window.FileName() + " was read again; unsaved changes were dropped.";
}

void ConsistEditorPane::startConsist()
{
    m_consist.New(m_window.FileName());
    m_controls->ShowConsist(m_consist);
    if (!m_window.FileName().empty())
        m_note = m_window.FileName() + " does not exist yet: it is made when you save.";
}

void ConsistEditorPane::reportHiddenUnits()
{
    if (m_consist.WhyRowsEnd().empty())
        return;
    m_window.Environment().dialogs.Message(
        m_consist.WhyRowsEnd() + ".\n\nThis unit and all units behind it are not shown.  Saving "
                                 "keeps them as they are.",
        kOpen, DialogIcon::Information);
}

void ConsistEditorPane::loadStock()
{
    m_host.WriteLog("Loading installed stock list...");
    if (m_stockLoaded)
        return;
    m_stockLoaded = true;
    m_loader->Start(m_window.Filter());
    m_controls->ShowStockHeading(m_window.Filter());
}

void ConsistEditorPane::ReloadStock()
{
    m_note.clear();
    rereadStock();
}

/// Keeps the note about the file just read, to show it again when the stock is loaded.
void ConsistEditorPane::rereadStock()
{
    m_stockLoaded = false;
    loadStock();
}

void ConsistEditorPane::Refresh()
{
    if (m_window.Environment().files.FileExists(m_window.FileName()))
        Load();
    else
        keepConsist();
    rereadStock();
    m_figures.Forget();
    m_pictures.LookAgain();
    m_marks->Refresh();
}

/// The window may hold the only remaining copy.
void ConsistEditorPane::keepConsist()
{
    if (m_window.FileName().empty()) {
        m_note = "There is no file to read again: the consist stays as it is.";
    } else {
        m_note = m_window.FileName() + " does not exist: the consist stays as it is, not saved.";
        m_consist.SetChanged(true);
        showChanged();
    }
    m_host.SetStatus(m_note);
}

void ConsistEditorPane::FollowSave(const std::string &path)
{
    if (m_window.FileName().empty() || !m_consist.ChangedOnDisk(path))
        return;
    if (Changed())
        m_host.SetStatus(path + " was saved in one window and has unsaved changes in another.");
    else
        Guarded(m_window.Environment().dialogs, kOpen, [this] { readAgain(); });
}

void ConsistEditorPane::FollowChanges(const std::vector<std::string> &paths)
{
    const auto onDisk = m_window.Environment().files.FindFile(m_window.FileName());
    if (onDisk &&
        std::find(paths.begin(), paths.end(), host::path::FromDisk(*onDisk)) != paths.end())
        FollowSave(m_window.FileName());
}

void ConsistEditorPane::readAgain()
{
    m_consist.Load(m_window.FileName());
    m_controls->ShowConsistAgain(m_consist);
    showChanged();
    showTitle();
}

/// A new consist has no title until it is saved, so its window keeps its caption.
void ConsistEditorPane::showTitle()
{
    if (const std::string title = m_consist.Title(); !title.empty())
        m_window.SetCaption("Consist - " + title);
}

void ConsistEditorPane::showChanged()
{
    m_controls->ShowChanged(m_consist.Changed());
    Q_EMIT m_window.StepsChanged();
    m_keeper->Follow(m_consist.Changed());
}

/// Does not interrupt the work: the changes are in the window and can be saved.
void ConsistEditorPane::reportNotKept(const std::string &reason)
{
    const std::string text = "Unsaved changes would not survive a crash: " + reason;
    m_host.WriteLog(text);
    m_host.SetStatus(text);
}

/// A new consist without units holds nothing that could be lost.
std::optional<UnsavedConsist> ConsistEditorPane::unsavedState() const
{
    const bool isNew = !m_window.Environment().files.FileExists(m_window.FileName());
    if (!Changed() || (isNew && m_consist.Rows().empty()))
        return std::nullopt;
    return UnsavedStateOf(m_consist, m_window.FileName(), m_window.Caption());
}

void ConsistEditorPane::Restore(const UnsavedConsist &unsaved)
{
    m_consist.Restore(unsaved.path, unsaved.bytes, unsaved.changedOnDisk);
    m_controls->ShowConsist(m_consist);
    showChanged();
    m_keeper->KeepNow();
}

void ConsistEditorPane::editTrain(Move move)
{
    m_units->Press(move);
    m_controls->lvConsist->setFocus();
    enterList(true);
}

void ConsistEditorPane::RunOnUnits(UnitCommand command)
{
    m_units->Run(command);
}

/// In a text field, Ctrl+Y must not change the train.
bool ConsistEditorPane::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride &&
        qobject_cast<QLineEdit *>(QApplication::focusWidget())) {
        const auto &key = *static_cast<QKeyEvent *>(event);
        if (key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier) {
            event->accept();
            return true;
        }
    }
    return QScrollArea::event(event);
}

void ConsistEditorPane::Act(EditorAction action)
{
    switch (action) {
    case EditorAction::Cancel:
        cancel();
        break;
    case EditorAction::Apply:
        apply();
        break;
    case EditorAction::Ok:
        saveAndClose();
        break;
    case EditorAction::ViewConsist:
        viewConsist();
        break;
    case EditorAction::ViewShape:
        viewShape();
        break;
    }
}

void ConsistEditorPane::cancel()
{
    if (Changed()) {
        if (!m_window.OfferToSave("Cancel", "Consist has changed.  All changes will be lost if you "
                                            "do not save it.  Do you want to save it before "
                                            "closing the consist?"))
            return;
        m_consist.SetChanged(false);
        showChanged();
    }
    m_window.close();
}

void ConsistEditorPane::apply()
{
    if (m_window.FileName().empty())
        m_window.SaveByHost(false); // asks for a name
    else
        saveInPlace();
}

void ConsistEditorPane::saveAndClose()
{
    if (saveInPlace())
        m_window.close();
}

/// Returns false if writing failed, or if the user keeps another program's change.
bool ConsistEditorPane::saveInPlace()
{
    if (m_window.FileName().empty())
        return true;
    const install::Environment &environment = m_window.Environment();
    bool saved = false;
    Guarded(environment.dialogs, kSave, [&] {
        saved = SaveInPlace(m_consist, m_window.FileName(), environment.files, environment.dialogs);
        if (saved)
            showSaved(false);
    });
    return saved;
}

void ConsistEditorPane::Write(bool quiet)
{
    if (m_window.FileName().empty())
        return;
    m_consist.Save(m_window.FileName());
    showSaved(quiet);
}

void ConsistEditorPane::Save(bool quiet)
{
    finishSave(SaveConsist(m_consist, m_window.FileName(), saveQuestions(), quiet), quiet);
}

void ConsistEditorPane::SaveAs()
{
    finishSave(SaveConsistAs(m_consist, m_window.FileName(), saveQuestions()), false);
}

SaveQuestions ConsistEditorPane::saveQuestions()
{
    return {m_window.Environment().dialogs, m_window.Environment().files,
            ConsistFolder(m_window.Environment().installation, m_window.Environment().files)};
}

void ConsistEditorPane::finishSave(const SaveOutcome &outcome, bool quiet)
{
    m_window.SetFileName(outcome.fileName);
    if (!outcome.caption.empty())
        m_window.SetCaption(outcome.caption);
    if (outcome.saved)
        showSaved(quiet);
    else
        showChanged();
}

void ConsistEditorPane::showSaved(bool quiet)
{
    m_note.clear();
    if (!quiet)
        m_window.Environment().dialogs.Message(m_window.FileName() + " saved", kSave,
                                               DialogIcon::Information);
    showChanged();
    Q_EMIT m_window.Saved(m_window.FileName());
}

const StockItem *ConsistEditorPane::selectedStockItem() const
{
    return m_consistIsActiveList ? m_controls->SelectedUnit() : m_controls->SelectedStock();
}

std::string ConsistEditorPane::SelectedItem() const
{
    const StockItem *item = selectedStockItem();
    return item ? StockPath(m_window.Environment().installation.CurrentFolder(), *item)
                : std::string();
}

std::optional<StockItem> ConsistEditorPane::SelectedVehicle() const
{
    const StockItem *item = selectedStockItem();
    if (!item)
        return std::nullopt;
    StockItem vehicle = *item;
    if (vehicle.type.ends_with('*'))
        vehicle.type.pop_back();
    return vehicle;
}

std::optional<StockItem> ConsistEditorPane::SelectedUnit() const
{
    return m_consistIsActiveList ? SelectedVehicle() : std::nullopt;
}

bool ConsistEditorPane::UnitIsMissing() const
{
    const int row = m_controls->lvConsist->SelectedRow();
    return m_consistIsActiveList && row >= 0 && m_controls->Train().HasRemark(row);
}

void ConsistEditorPane::ReplaceUnit(const StockItem &vehicle)
{
    m_units->Replace(vehicle);
}

void ConsistEditorPane::viewConsist()
{
    std::string file = m_window.FileName();
    if (Changed()) {
        const DialogAnswer answer = m_window.Environment().dialogs.Message(
            "Consist has changed.  Do you want to save it before viewing the consist?",
            kViewConsist, DialogIcon::Question, host::DialogButtons::YesNoCancel);
        if (answer == DialogAnswer::Cancel ||
            (answer == DialogAnswer::Yes && !m_window.SaveByHost(true)))
            return;
        file = answer == DialogAnswer::Yes ? m_window.FileName() : saveScratchCopy();
    }
    if (!file.empty())
        m_host.OpenDocumentWindow(file, WindowMode::ConsistView, m_window.Caption(), {});
}

/// Writes the consist as it is now to a file beside the program. Returns the path, or "" after a
/// failure, which was reported. The document stays changed.
std::string ConsistEditorPane::saveScratchCopy()
{
    const std::string scratch = host::path::Join(host::ProgramFolder(), "Temporary Consist.con");
    const bool written = Guarded(m_window.Environment().dialogs, kViewConsist, [&] {
        if (m_window.Environment().files.FileExists(scratch))
            m_window.Environment().files.RemoveFile(scratch);
        m_consist.SaveCopy(scratch);
    });
    return written ? scratch : std::string();
}

void ConsistEditorPane::viewShape()
{
    const StockItem *item = selectedStockItem();
    if (!item) {
        m_window.Environment().dialogs.Message("Nothing selected to view", kViewShape,
                                               DialogIcon::Critical);
        return;
    }
    const std::string caption = item->type + " - " + item->shape;
    Guarded(m_window.Environment().dialogs, kViewShape, [&] {
        const std::string vehicle = SelectedItem();
        const auto stock = viewer::ReadVehicleToShow(m_window.Environment(), vehicle);
        m_host.OpenVehicleWindow(stock.shapeFile, vehicle, caption);
    });
}

void ConsistEditorPane::StopWork()
{
    m_loader->Stop();
}

void ConsistEditorPane::AddRemark(const std::string &remark)
{
    m_note += (m_note.empty() ? "" : "  ") + remark;
}

app::PrintJob ConsistEditorPane::Print()
{
    std::vector<QStringList> rows;
    for (const ConsistRow &row : m_consist.Rows())
        rows.push_back(vehicleRow(rows.size() + 1, row.item));
    return {"Print Consist",
            app::FrameOf(m_window.Caption(),
                         {host::Counted(rows.size(), "vehicle", "vehicles"), m_window.FileName(),
                          m_consist.Changed() ? "not saved yet" : ""}),
            app::PrintTable({{QStringLiteral("No."), 0.07},
                             {QStringLiteral("Type"), 0.12},
                             {QStringLiteral("Folder"), 0.34},
                             {QStringLiteral("Shape"), 0.36},
                             {QStringLiteral("Flip"), 0.11}},
                            std::move(rows))};
}

} // namespace document
