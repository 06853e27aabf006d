// SPDX-License-Identifier: MIT
#pragma once

#include "samples/SampleFile.h"
#include "samples/ShapeWriter.h"

#include <span>

namespace samples {

/// A shape of a route, with its pictures.
struct RouteShape
{
    const char *route;
    const char *name; ///< without extension; also that of its picture
    ShapeForm form;
    int alternative;      ///< setting in the descriptor; negative: no descriptor
    const char *pictures; ///< where the picture is: 'b' base folder, 's' Snow, 'n' Night
};

std::span<const RouteShape> RouteShapes();

/// All files of the routes.
SampleFiles RouteFiles();

} // namespace samples
