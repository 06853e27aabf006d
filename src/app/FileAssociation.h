// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The desktop's association of consist files (".con") with a program.
namespace app {

/// Associates this user's consist files with `program`, the full path of an executable. Calling it
/// again repeats the association.
///
/// On systems other than Windows, writes the file type (application/x-msts-consist) and a desktop
/// entry into $XDG_DATA_HOME, unless the program is installed where the desktop finds both. Then
/// makes the entry the default in $XDG_CONFIG_HOME/mimeapps.list, and keeps everything else in that
/// file. Desktops ignore the entry once the program is gone.
///
/// Throws RuntimeError 70, 75 or 76, with the file and the reason, if a file cannot be written.
/// Throws 5 if desktops cannot start a program with that name, or if a desktop tool fails; the
/// detail names the tool. Skips tools that are missing: such systems do not need them.
void AssociateConsistFiles(const std::string &program);

/// Removes what AssociateConsistFiles wrote for this user, and nothing else: a default that the
/// user has chosen since stays. Does nothing if there is nothing to remove. Throws as above.
void DissociateConsistFiles();

} // namespace app
