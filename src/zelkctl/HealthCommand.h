// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds the command health, which reports faults of the content by the rules of the simulators.
/// The session must outlive the parsing of `app`.
void AddHealthCommand(CLI::App &app, Session &session);

} // namespace zelkctl
