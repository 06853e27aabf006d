// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace viewer {

class ViewObjects;

/// A texture that is missing or cannot be read, and a shape that names it.
struct MissingTexture
{
    std::string texture; ///< as the shape spells it
    std::string shape;   ///< path of its file

    friend bool operator==(const MissingTexture &, const MissingTexture &) = default;
};

/// Returns the missing textures of all shapes in a scene, each once for each shape file.
std::vector<MissingTexture> MissingTexturesOf(const ViewObjects &objects);

/// Returns what cannot be shown of the lights of the vehicles in a scene, each sentence once.
std::vector<std::string> LightProblemsOf(const ViewObjects &objects);

} // namespace viewer
