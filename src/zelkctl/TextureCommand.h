// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// `texture FILE [--out PNG [--level N]]`: what a texture holds, as JSON, or one of its levels as a
/// picture.
/// The session must outlive the parsing of `app`.
void AddTextureCommand(CLI::App &app, Session &session);

} // namespace zelkctl
