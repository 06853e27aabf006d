// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

namespace zelkctl {

struct Session;

/// Adds `contact-sheet [CONSIST...] --out FILE`: a page with a picture of each vehicle. The session
/// must outlive the parsing of `app`.
void AddContactSheetCommand(CLI::App &app, Session &session);

} // namespace zelkctl
