// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `list stock|consists|routes`: lists what is installed, one entry per line or as JSON. The
/// session must outlive the parsing of `app`.
void AddListCommand(CLI::App &app, Session &session);

} // namespace zelkctl
