// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Buildings.h"
#include "samples/Output.h"
#include "samples/ShapeWriter.h"

#include <span>

namespace samples {

/// A shape of a route, with its pictures.
struct RouteShape
{
    const char *route;
    const char *name; ///< without extension; also that of its picture
    ShapeForm form;
    Building building;
    int alternative; ///< setting in the descriptor; negative: no descriptor
    /// The folders that hold the picture: 'b' base folder, 's' Snow, 'n' Night, 'p' Spring,
    /// 'a' Autumn, 'w' Winter; capitals for the snow of the last three.
    const char *pictures;
};

std::span<const RouteShape> RouteShapes();

/// All files of the routes.
SampleFiles RouteFiles();

} // namespace samples
