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
    std::function<void(const std::string &)> setCaption;
    std::function<void()> checkForm; ///< throws host::RuntimeError when saveForm could not succeed
    std::function<void(bool quiet)> saveForm; ///< writes the consist; throws host::RuntimeError
};

/// Saves a consist: asks for a name when there is none, asks before overwriting (Yes deletes and
/// writes, No asks for another name, Cancel says so), sets the caption unless `quiet`, writes.
/// True when the consist was written. A failure is told with the whole path and the reason.
bool SaveConsist(const SaveTarget &target, host::Dialogs &dialogs, host::GameFiles &files,
                 const std::string &consistFolder, bool quiet);

} // namespace app
