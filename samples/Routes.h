// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Buildings.h"
#include "samples/Output.h"
#include "samples/ShapeWriter.h"

#include <span>

namespace samples {

/// A shape of a route, with its textures.
struct RouteShape
{
    const char *route;
    const char *name; ///< without extension; its texture has the same name
    ShapeForm form;
    Building building;
    int alternative; ///< alternative textures in the descriptor; negative: no descriptor
    /// The folders that hold the texture: 'b' base folder, 's' Snow, 'n' Night, 'p' Spring,
    /// 'a' Autumn, 'w' Winter; capitals are the snow variants of the last three.
    const char *pictures;
};

std::span<const RouteShape> RouteShapes();

/// Returns all files of the routes.
SampleFiles RouteFiles();

} // namespace samples
