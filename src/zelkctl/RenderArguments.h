// SPDX-License-Identifier: MIT
#pragma once

#include "Render.h"

#include <string>
#include <vector>

namespace zelkctl {

/// What stands on the command line of `render`.
struct RenderArguments
{
    std::string file, out, size = "1280x720", loose = "1", camera, msts;
};

/// The numbers in the texts; Failure for those that are none.
RenderRequest RequestOf(const RenderArguments &arguments);

/// As a list, for the program that draws, and back; Failure for another number of texts.
std::vector<std::string> ToList(const RenderArguments &arguments);
RenderArguments FromList(const std::vector<std::string> &list);

} // namespace zelkctl
