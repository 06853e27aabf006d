// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `sheet CONSIST...`: writes the figures of trains as text or as JSON. The session must
/// outlive the parsing of `app`.
void AddSheetCommand(CLI::App &app, Session &session);

} // namespace zelkctl
