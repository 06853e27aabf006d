// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// `edit FILE OP...`: the consist editor's operations, then a save.
/// The session must outlive the parsing of `app`.
void AddEditCommand(CLI::App &app, Session &session);

} // namespace zelkctl
