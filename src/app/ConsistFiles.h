// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace host {
class Dialogs;
class GameFiles;
} // namespace host
namespace install {
class Installation;
}

/// What the Edit menu does with whole consist files of the installation. Nothing of their content
/// is read; the lists of consists are not filled anew.
namespace app {

/// Asks for a new name and copies the consist of the name `source` to it, over a consist of that
/// name if there is one. An empty source does nothing. Failures are told, with the file and the
/// reason.
void PasteConsist(const std::string &source, host::Dialogs &dialogs, host::GameFiles &files,
                  const install::Installation &installation);

/// Asks, and deletes the consist of this name. Does nothing when it has no file. RuntimeError as
/// host::GameFiles::RemoveFile.
void CutConsist(const std::string &name, host::Dialogs &dialogs, host::GameFiles &files,
                const install::Installation &installation);

} // namespace app
