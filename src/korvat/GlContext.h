// SPDX-License-Identifier: MIT
#pragma once

#include <QSurfaceFormat>

#include <string>

namespace korvat {

/// What every picture is drawn with: OpenGL 3.3, depth, four samples a pixel.
QSurfaceFormat WantedFormat();

/// Why windows of this program cannot show OpenGL, as a sentence for the user; "" when they can.
std::string WhyNoWindowOpenGl();

/// Why there is no OpenGL 3.3 at all here; "" when there is.
std::string WhyNoOpenGl();

} // namespace korvat
