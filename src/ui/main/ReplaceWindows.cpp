// SPDX-License-Identifier: MIT
#include "ui/main/ReplaceWindows.h"

#include "app/ShellCommands.h"
#include "host/ChangeJournal.h"
#include "host/Dialogs.h"
#include "host/Disk.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "ui/main/IconSet.h"
#include "ui/main/WindowBounds.h"
#include "ui/main/frmMain.h"
#include "ui/replace/frmCandidates.h"
#include "ui/replace/frmReplace.h"

#include <QScreen>

#include <algorithm>
#include <memory>
#include <utility>

namespace app {

namespace {

constexpr char kReplace[] = "Replace in Consists", kCandidates[] = "Find Candidates",
               kUndo[] = "Undo Replace";

std::vector<std::string> pathsOf(const host::ChangeRecord &record)
{
    std::vector<std::string> paths;
    for (const host::ChangeRecord::File &file : record.files)
        paths.push_back(file.path);
    return paths;
}

} // namespace

ReplaceWindows::ReplaceWindows(frmMain &window, ShellCommands &shell)
    : m_window(window)
    , m_shell(shell)
{
    QObject::connect(&m_undo, &replace::BackgroundJob::Ended, &m_window,
                     [this](bool, const std::string &failure) {
                         if (!failure.empty()) {
                             m_window.SetStatus("Nothing was taken back.");
                             m_window.Environment().dialogs.Message(failure, kUndo,
                                                                    host::DialogIcon::Critical);
                         }
                         m_window.UpdateCommands();
                     });
}

frmReplace &ReplaceWindows::shown()
{
    if (!m_replace) {
        m_replace = new frmReplace(
            m_window.Environment(), TintedIcon("missing"), [this] { return unsavedFiles(); },
            &m_window);
        QObject::connect(m_replace, &frmReplace::Replaced, &m_window,
                         [this](const std::vector<std::string> &paths) { showChanged(paths); });
        QObject::connect(m_replace, &frmReplace::StatusChanged, &m_window,
                         [this](const std::string &text) { m_window.SetStatus(text); });
    }
    if (!m_replace->isVisible()) {
        QRect bounds(QPoint(), m_replace->size());
        bounds.moveCenter(m_window.geometry().center());
        bounds = WithinScreen(bounds, m_window.screen()->availableGeometry());
        m_replace->move(bounds.topLeft());
        m_replace->resize(bounds.size());
    }
    m_replace->setWindowState(m_replace->windowState() & ~Qt::WindowMinimized);
    m_replace->show();
    m_replace->raise();
    m_replace->activateWindow();
    return *m_replace;
}

void ReplaceWindows::Show(const std::optional<install::StockItem> &vehicle)
{
    if (m_shell.HasInstallation(kReplace))
        shown().Begin(vehicle);
}

void ReplaceWindows::FindCandidates()
{
    frmDocument *active = m_window.ActiveDocument();
    const auto vehicle = active ? active->SelectedUnit() : std::nullopt;
    if (!vehicle) {
        m_window.SetStatus("No unit is selected.");
        return;
    }
    if (!m_shell.HasInstallation(kCandidates))
        return;
    frmCandidates candidates(m_window.Environment(), *vehicle, TintedIcon("missing"), &m_window);
    candidates.exec();
    if (const auto choice = candidates.Choice())
        active->ReplaceUnit(*choice);
}

std::vector<std::string> ReplaceWindows::unsavedFiles() const
{
    std::vector<std::string> files;
    for (const frmDocument *document : m_window.Documents())
        if (document->Changed() && !document->FileName().empty())
            files.push_back(document->FileName());
    return files;
}

/// Returns the first of the paths, which are on disk, that has unsaved changes; "" if none has.
std::string ReplaceWindows::unsavedAmong(const std::vector<std::string> &paths) const
{
    for (const std::string &file : unsavedFiles())
        if (const auto onDisk = m_window.Environment().files.FindFile(file);
            onDisk &&
            std::find(paths.begin(), paths.end(), host::path::FromDisk(*onDisk)) != paths.end())
            return file;
    return {};
}

std::optional<std::string> ReplaceWindows::Undoable()
{
    const host::ChangeJournal journal;
    const auto stamp = host::disk::StampOf(journal.LastFile());
    if (!stamp || m_undo.Running() || (m_replace && m_replace->Writing()))
        return std::nullopt;
    if (m_recordTime == stamp->modified)
        return m_title;
    m_recordTime = stamp->modified;
    try {
        const auto record = journal.Last();
        m_title = record ? "Take back \"" + record->title + "\" in " +
                               host::Counted(record->files.size(), "file", "files")
                         : "";
        m_paths = record ? pathsOf(*record) : std::vector<std::string>();
    } catch (const host::RuntimeError &) { // Undo reports the reason
        m_title = "Take back the last replacement";
        m_paths.clear();
    }
    return m_title;
}

void ReplaceWindows::Undo()
{
    if (!Undoable())
        return;
    if (const std::string unsaved = unsavedAmong(m_paths); !unsaved.empty()) {
        m_window.SetStatus("Nothing was taken back.");
        m_window.Environment().dialogs.Message(
            unsaved + " has unsaved changes in a window.  Nothing was taken back.\n\nClose that "
                      "window without saving, then undo the replacement.",
            kUndo, host::DialogIcon::Critical);
        return;
    }
    m_window.SetStatus("The old files are being written...");
    m_undo.Start([this](replace::BackgroundJob::Control &) {
        host::ChangeJournal journal;
        std::string text;
        for (const std::string &message : journal.Recover())
            text += message + "  ";
        const host::ChangeRecord taken = journal.Undo();
        text += "Took back \"" + taken.title + "\" in " +
                host::Counted(taken.files.size(), "file", "files") + ".";
        return [this, text, paths = pathsOf(taken)] {
            showChanged(paths);
            m_window.SetStatus(text);
            if (m_replace && m_replace->isVisible())
                m_replace->Begin(std::nullopt);
        };
    });
    m_window.UpdateCommands();
}

void ReplaceWindows::showChanged(const std::vector<std::string> &paths)
{
    for (frmDocument *document : m_window.Documents())
        document->ShowChangedElsewhere(paths);
    m_window.UpdateCommands();
}

void ReplaceWindows::FollowSave()
{
    if (m_replace && m_replace->isVisible())
        m_replace->SearchAgain();
}

void ReplaceWindows::CloseAll()
{
    m_undo.Abandon();
    if (!m_replace)
        return;
    m_replace->Abandon();
    m_replace->hide();
}

} // namespace app
