// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `figures VEHICLE...`: writes the figures of vehicles as text or as JSON. The session must
/// outlive the parsing of `app`.
void AddFiguresCommand(CLI::App &app, Session &session);

} // namespace zelkctl
