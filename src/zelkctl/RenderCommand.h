// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `render FILE --out PNG`: draws a shape, a vehicle, a consist or a loose consist. The
/// session must outlive the parsing of `app`.
void AddRenderCommand(CLI::App &app, Session &session);

} // namespace zelkctl
