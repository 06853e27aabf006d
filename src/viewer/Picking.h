// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/draw/Canvas.h"
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

// An object is its own shape and those that it adds, of the loads only if they are shown.

/// Returns the first surface that a ray meets; nothing if it passes all objects. Like the canvas,
/// ignores surfaces seen from behind.
std::optional<Hit> Pick(const ViewObjects &objects, const Ray &ray, bool withLoads = true);

/// Returns the distance to the ground of a scene, in lengths of the ray's direction; nothing if
/// the ray does not come down to it.
std::optional<float> PickGround(const Ray &ray, korvat::Ground ground);

/// Returns the corners of the boxes around all shapes, eight for each.
std::vector<korvat::Vec3> CornersOf(const ViewObjects &objects, bool withLoads = true);
/// Returns those of one object, which counts from 1. Empty for an object without a shape.
std::vector<korvat::Vec3> CornersOfObject(const ViewObjects &objects, int place,
                                          bool withLoads = true);
/// Returns the middle of the box around the points.
korvat::Vec3 MiddleOf(const std::vector<korvat::Vec3> &points);

} // namespace viewer
