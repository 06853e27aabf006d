// SPDX-License-Identifier: MIT
#pragma once

#include "viewer/ViewOptions.h"
#include "zelkctl/Session.h"

#include <array>
#include <optional>
#include <string>

namespace zelkctl {

/// An image to draw. The texts are those of the command line.
struct RenderRequest
{
    std::string file, out;
    std::array<int, 2> size{};                  ///< pixels
    int loose = 1;                              ///< number of the loose consist in an activity
    std::optional<std::array<float, 6>> camera; ///< eye and target; empty for the side view
    bool loads = true;                          ///< with the loads of vehicles
    viewer::ViewOptions options;
};

/// Draws a shape, vehicle, consist or loose consist into a PNG file. Throws Failure if that is not
/// possible; reports on stderr what is missing in the image. Requires a QGuiApplication.
void Render(Session &session, const RenderRequest &request);

} // namespace zelkctl
