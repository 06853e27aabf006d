// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"

#include <optional>
#include <vector>

namespace viewer {

class ViewObjects;

/// A half-line from a camera into the scene.
struct Ray
{
    korvat::Vec3 from, direction;
};

/// The nearest visible surface of an object on a ray.
struct Hit
{
    int place = 0;      ///< of the object, counted from 1
    float distance = 0; ///< in lengths of the ray's direction
};

/// Returns the first surface that a ray meets; nothing if it passes all objects. Like the canvas,
/// ignores surfaces seen from behind.
std::optional<Hit> Pick(const ViewObjects &objects, const Ray &ray);

/// Returns the distance to ground or track, in lengths of the ray's direction; nothing if the ray
/// does not come down.
std::optional<float> PickGround(const Ray &ray);

/// Returns the corners of the box around each object, eight for each.
std::vector<korvat::Vec3> CornersOf(const ViewObjects &objects);
/// Returns the corners of the box around one object, and its middle. The object counts from 1.
/// Empty for an object without a shape.
std::vector<korvat::Vec3> CornersOf(const ViewObjects &objects, int place);
/// Returns the middle of the box around the points.
korvat::Vec3 MiddleOf(const std::vector<korvat::Vec3> &points);

} // namespace viewer
