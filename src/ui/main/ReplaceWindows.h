// SPDX-License-Identifier: MIT
#pragma once

#include "install/Train.h"
#include "ui/replace/BackgroundJob.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class frmMain;
class frmReplace;

namespace app {

class ShellCommands;

/// The window that replaces a vehicle in all consists, and the command that takes the last such
/// change back. Makes the document windows show what was changed.
class ReplaceWindows
{
public:
    /// Both must outlive the object.
    ReplaceWindows(frmMain &window, ShellCommands &shell);

    /// Opens the window, with this vehicle picked to be replaced. Shows a message if there is no
    /// installation.
    void Show(const std::optional<install::StockItem> &vehicle);
    /// Lists the candidates for the unit that is selected in the active editor, and puts the chosen
    /// one into its place.
    void FindCandidates();
    /// Takes back the last change of several files, on a thread.
    void Undo();

    /// Returns a sentence about the change that Undo takes back; nothing if there is none, or while
    /// a change is being made. Reads the record of the change only if it is new.
    std::optional<std::string> Undoable();
    /// Follows a save of an editor.
    void FollowSave();
    /// Closes the window. A change that is being written is completed first.
    void CloseAll();

private:
    frmReplace &shown();
    std::vector<std::string> unsavedFiles() const;
    std::string unsavedAmong(const std::vector<std::string> &paths) const;
    void showChanged(const std::vector<std::string> &paths);

    frmMain &m_window;
    ShellCommands &m_shell;
    frmReplace *m_replace = nullptr; ///< a child of the main window; null before it is needed
    replace::BackgroundJob m_undo;
    std::int64_t m_recordTime = 0; ///< of the record that the next two were read from
    std::string m_title;
    std::vector<std::string> m_paths;
};

} // namespace app
