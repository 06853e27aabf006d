// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace zelkctl {

struct Session;

/// Adds `render FILE --out PNG`: draws a shape, a vehicle, a consist or a loose consist. The
/// session must outlive the parsing of `app`.
void AddRenderCommand(CLI::App &app, Session &session);

/// Draws with zelk-render, which takes these arguments. It is a separate program because its
/// libraries take longer to load than most commands take to run. Returns its exit code. Throws
/// Failure if it is missing.
int RunRenderProgram(const std::vector<std::string> &arguments);

} // namespace zelkctl
