// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace viewer {

class ViewObjects;

/// Returns the textures of the only shape in a scene, on numbered lines; "" for an empty scene.
std::string ShapeTextures(const ViewObjects &objects);
/// Returns the textures of all objects in a scene, one block for each.
std::string ConsistTextures(const ViewObjects &objects);
/// Returns the next part of such a report: an empty line and the textures of the shapes that are
/// added to the objects, one block for each file; "" if there are none.
std::string AddedTextures(const ViewObjects &objects);
/// Returns the end of such a report, with what could not be loaded: an empty line, a heading and a
/// numbered line for each reason; "" if there are no reasons.
std::string NotLoaded(const std::vector<std::string> &reasons);
/// Like NotLoaded, for what levels of detail and animations lack.
std::string Incomplete(const std::vector<std::string> &faults);

} // namespace viewer
