// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <set>
#include <string>

namespace viewer {

/// The time of year whose textures a scene shows.
enum class Season : std::uint8_t
{
    Summer, ///< the textures of the shape's own folder
    Spring,
    Autumn,
    Winter
};

/// What a 3D window shows of its content. Each window has its own.
struct ViewOptions
{
    Season season = Season::Summer;
    bool snow = false;   ///< with snow
    bool night = false;  ///< night textures, and no sun
    bool lights = false; ///< the vehicles' lights glow
    int level = 0;       ///< level of detail from 1, the finest; 0 for the one of the distance 0
    float speed = 0;     ///< metres per second at which wheels turn; 0 for no motion
    bool pantographs = false;  ///< raised
    bool boxes = false;        ///< the vehicles' sizes and couplers as boxes
    bool wireframe = false;    ///< edges of the triangles instead of surfaces
    bool normals = false;      ///< a line along each vertex's normal
    bool marksMissing = false; ///< missing textures in magenta
    /// Parts that are not drawn, as PartKey returns them: a shape's file and a matrix of it.
    std::set<std::string> hiddenParts = {};

    friend bool operator==(const ViewOptions &, const ViewOptions &) = default;
};

} // namespace viewer
