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

/// What the Edit menu does with whole consist files of the installation. It reads nothing of their
/// content and leaves the lists of consists alone.
namespace app {

class Desktop;

/// Asks for a new name and copies the consist of the name `source` to it, over a consist of that
/// name if there is one. An empty source does nothing. Failures are told, with the file and the
/// reason.
void PasteConsist(const std::string &source, host::Dialogs &dialogs, host::GameFiles &files,
                  const install::Installation &installation);

/// Asks, and moves the consist of this name to the wastebasket; asks again before it deletes a file
/// for which there is none. Returns a sentence that says where the file went, "" when it stays or
/// there is no such file. RuntimeError as Desktop::MoveToWastebasket and
/// host::GameFiles::RemoveFile.
std::string CutConsist(const std::string &name, host::Dialogs &dialogs, host::GameFiles &files,
                       Desktop &desktop, const install::Installation &installation);

} // namespace app
