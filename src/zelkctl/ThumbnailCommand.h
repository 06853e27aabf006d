// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `thumbnail VEHICLE --out PNG`: draws an engine or a wagon as a whole. The
/// session must outlive the parsing of `app`.
void AddThumbnailCommand(CLI::App &app, Session &session);

} // namespace zelkctl
