// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace viewer {

class ViewObjects;

/// The textures of the one shape in a scene, a numbered line each ("" for an empty scene).
std::string ShapeTextures(const ViewObjects &objects);
/// The same for every object of a scene, a block each.
std::string ConsistTextures(const ViewObjects &objects);

} // namespace viewer
