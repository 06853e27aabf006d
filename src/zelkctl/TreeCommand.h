// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `tree FILE`: writes a structured file as JSON. The session must outlive the parsing of
/// `app`.
void AddTreeCommand(CLI::App &app, Session &session);

} // namespace zelkctl
