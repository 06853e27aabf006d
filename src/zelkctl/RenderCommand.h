// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// `render FILE --out PNG`: a shape, a vehicle, a consist or a loose consist as a picture.
/// The session must outlive the parsing of `app`.
void AddRenderCommand(CLI::App &app, Session &session);

} // namespace zelkctl
