// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `replace VEHICLE REPLACEMENT`: replaces a vehicle in all consists. The session must outlive
/// the parsing of `app`.
void AddReplaceCommand(CLI::App &app, Session &session);
/// Adds `undo`: takes back the last change of several files.
void AddUndoCommand(CLI::App &app, Session &session);

} // namespace zelkctl
