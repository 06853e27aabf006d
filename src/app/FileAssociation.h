// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// What a desktop does with a consist file (".con") that is double-clicked.
namespace app {

/// Makes `program`, the full path of an executable, what opens consist files of this user. Doing it
/// again renews it.
///
/// Elsewhere than on Windows it writes the file type (application/x-msts-consist) and a desktop
/// entry into $XDG_DATA_HOME, unless the program is installed where the desktop finds both, and
/// makes the entry the default in $XDG_CONFIG_HOME/mimeapps.list, of which everything else stays as
/// it is. A desktop passes over the entry once the program is gone.
///
/// RuntimeError 70, 75 or 76 with the file that cannot be written and the reason; 5 when a desktop
/// cannot start a program of that name, or a tool of the desktop fails (it is named). What is
/// missing among those tools is not needed there.
void AssociateConsistFiles(const std::string &program);

/// Takes back what AssociateConsistFiles wrote for this user, and nothing else: what the user made
/// the default since stays so. Nothing happens when there is nothing. Fails as above.
void DissociateConsistFiles();

} // namespace app
