// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `shape FILE`: writes the content of a shape as JSON. The session must outlive the parsing
/// of `app`.
void AddShapeCommand(CLI::App &app, Session &session);

} // namespace zelkctl
