// SPDX-License-Identifier: MIT
#pragma once

namespace CLI {
class App;
}

namespace zelkctl {

struct Session;

/// `tree FILE`: a structured file as JSON.
/// The session must outlive the parsing of `app`.
void AddTreeCommand(CLI::App &app, Session &session);

} // namespace zelkctl
