// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `edit FILE OP...`: applies operations of the consist editor and saves. The session must
/// outlive the parsing of `app`.
void AddEditCommand(CLI::App &app, Session &session);

} // namespace zelkctl
