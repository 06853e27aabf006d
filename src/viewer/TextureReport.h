// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace viewer {

class ViewObjects;

/// The textures of the one shape in a scene, a numbered line each ("" for an empty scene).
std::string ShapeTextures(const ViewObjects &objects);
/// The textures of every object of a scene, a block each.
std::string ConsistTextures(const ViewObjects &objects);
/// What could not be loaded, as the end of such a report: an empty line, a heading and a numbered
/// line for each reason; "" for no reasons.
std::string NotLoaded(const std::vector<std::string> &reasons);

} // namespace viewer
