// SPDX-License-Identifier: MIT
#pragma once

#include "Session.h"

#include <array>
#include <optional>
#include <string>

namespace zelkctl {

/// What is drawn, and how. The texts are those of the command line.
struct RenderRequest
{
    std::string file, out;
    std::array<int, 2> size{};                  ///< pixels
    int loose = 1;                              ///< which one of an activity
    std::optional<std::array<float, 6>> camera; ///< eye and target; nothing for the side view
};

/// Draws a shape, vehicle, consist or loose consist into a PNG file. Failure when that cannot be
/// done; what is missing on the way is told on stderr. Needs a QGuiApplication.
void Render(Session &session, const RenderRequest &request);

} // namespace zelkctl
