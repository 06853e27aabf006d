// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `check stock|consist|shape|all|use [--json] [--verbose] [--quiet] [--report FILE]`.
void AddCheckCommand(CLI::App &app, Session &session);

} // namespace zelkctl
