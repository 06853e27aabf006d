// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// `list stock|consists|routes`: what is installed, one entry a line or as JSON.
/// The session must outlive the parsing of `app`.
void AddListCommand(CLI::App &app, Session &session);

} // namespace zelkctl
