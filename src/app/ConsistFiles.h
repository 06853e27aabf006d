// SPDX-License-Identifier: MIT
#pragma once

#include "install/Environment.h"

#include <string>

/// The Edit menu's commands on whole consist files of the installation. They neither read the
/// files' content nor change the lists of consists.
namespace app {

class Desktop;

/// Asks for a new name and copies the consist named `source` to it, over any consist of that name.
/// An empty `source` does nothing. Reports failures with the file and the reason.
void PasteConsist(const std::string &source, const install::Environment &environment);

/// Asks, and moves the consist of this name to the wastebasket. Asks again before it deletes a file
/// for which there is no wastebasket. Returns a sentence that states where the file went, or "" if
/// it stays or does not exist. Throws RuntimeError as Desktop::MoveToWastebasket and
/// host::GameFiles::RemoveFile do.
std::string CutConsist(const std::string &name, const install::Environment &environment,
                       Desktop &desktop);

} // namespace app
