// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

namespace host {
class Dialogs;
class GameFiles;
} // namespace host

namespace app {

/// What saving needs of the editor window that is saved.
struct SaveTarget
{
    std::function<std::string()> fileName;
    std::function<void(const std::string &)> setFileName;
    std::function<std::string()> caption;
    std::function<void(const std::string &)> setCaption;
    std::function<void()> checkForm; ///< throws host::RuntimeError when saveForm could not succeed
    /// True when the path is the window's file and somebody else has changed it since it was read.
    std::function<bool(const std::string &path)> changedOnDisk;
    std::function<void(bool quiet)> saveForm; ///< writes the consist; throws host::RuntimeError
    std::function<void()> markChanged;        ///< the consist is no longer what its file holds
};

/// Saves a consist: asks for a name when there is none, asks before overwriting what somebody else
/// has changed (anything but Yes stops), asks before overwriting any file (Yes deletes and writes,
/// No drops the window's name and asks for another one, Cancel reports that and stops), sets the
/// caption unless `quiet`, writes. A name chosen in the dialog always ends in ".con".
///
/// True when the consist was written. A failure is reported with the whole path and the reason;
/// name and caption are then as before. If the old file was deleted by then, the window counts as
/// changed.
bool SaveConsist(const SaveTarget &target, host::Dialogs &dialogs, host::GameFiles &files,
                 const std::string &consistFolder, bool quiet);

/// Saves a consist under a name that is asked for. The window keeps its old name unless the consist
/// was written.
bool SaveConsistAs(const SaveTarget &target, host::Dialogs &dialogs, host::GameFiles &files,
                   const std::string &consistFolder);

} // namespace app
