// SPDX-License-Identifier: MIT
#pragma once

#include "zelkctl/Session.h"

#include <string>

namespace zelkctl {

/// A picture of one vehicle. The texts are those of the command line, the vehicle as a path.
struct ThumbnailRequest
{
    std::string file, out;
    int size = 0; ///< width and height in pixels
};

/// Draws a vehicle as a whole, on a plain background, into a PNG file. Throws Failure if that is
/// not possible; reports on stderr what is missing in the picture. Requires a QGuiApplication.
void DrawThumbnail(Session &session, const ThumbnailRequest &request);

} // namespace zelkctl
