// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `resave FILE OUT`: loads a structured file and saves it under another name. The session
/// must outlive the parsing of `app`.
void AddResaveCommand(CLI::App &app, Session &session);

} // namespace zelkctl
