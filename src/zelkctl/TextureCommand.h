// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `texture FILE [--out PNG [--level N]]`: describes a texture as JSON, or writes one of its
/// levels as a PNG file. The session must outlive the parsing of `app`.
void AddTextureCommand(CLI::App &app, Session &session);

} // namespace zelkctl
