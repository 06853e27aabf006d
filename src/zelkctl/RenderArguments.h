// SPDX-License-Identifier: MIT
#pragma once

#include "zelkctl/Render.h"

#include <string>
#include <vector>

namespace zelkctl {

/// The arguments of `render`, as texts.
struct RenderArguments
{
    std::string file, out, size = "1280x720", loose = "1", camera, msts;
    std::string season = "summer";
    bool loads = true;
    bool snow = false, night = false, lights = false, wireframe = false, boxes = false,
         normals = false, markMissing = false;
};

/// Converts the texts to numbers; throws Failure for one that is not valid.
RenderRequest RequestOf(const RenderArguments &arguments);

/// Convert the arguments to a list, for the program that draws, and back. FromList throws Failure
/// for a wrong number of texts.
std::vector<std::string> ToList(const RenderArguments &arguments);
RenderArguments FromList(const std::vector<std::string> &list);

} // namespace zelkctl
