// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Shape.h"

#include <optional>
#include <vector>

/// From what stands in a shape to what can be drawn, without drawing: docs/formats.md, "Drawing a
/// shape". Everything stays in the file's left-handed coordinates, front faces clockwise.
namespace korvat {

/// What `first` and then `second` do to a row vector.
Matrix Product(const Matrix &first, const Matrix &second);
Vec3 Transformed(const Vec3 &point, const Matrix &matrix);
/// Without the translation; not normalised.
Vec3 Turned(const Vec3 &direction, const Matrix &matrix);

/// Where each matrix puts its points when nothing moves: itself times its parents. A parent that is
/// missing, out of range or part of a ring counts as none. At least one, for shapes without any.
std::vector<Matrix> RestPose(const Shape &shape, const Level &level);

struct DrawVertex
{
    Vec3 position, normal; ///< in the space of the part's matrix
    Uv uv;
    friend bool operator==(const DrawVertex &, const DrawVertex &) = default;
};

/// Triangles of one primitive state, in file order: they can be drawn at once.
struct DrawPart
{
    std::uint32_t primState = 0;
    std::uint32_t matrix = 0;
    std::vector<std::uint32_t> indices; ///< of Geometry::vertices, three a triangle
    friend bool operator==(const DrawPart &, const DrawPart &) = default;
};

struct Geometry
{
    std::vector<DrawVertex> vertices;
    std::vector<DrawPart> parts;
    std::size_t triangles = 0;
    /// Triangles left out because something that they refer to is not there or is no number.
    std::size_t skipped = 0;
};

/// What one level of detail draws. Vertices whose normal is missing point up; without texture
/// coordinates they have 0, 0.
Geometry MakeGeometry(const Shape &shape, const Level &level);

struct Bounds
{
    Vec3 least, most;
    friend bool operator==(const Bounds &, const Bounds &) = default;
};

/// The box around all corners that are drawn, in the given pose (RestPose); nothing without any.
std::optional<Bounds> BoundsOf(const Geometry &geometry, const std::vector<Matrix> &pose);

/// The nearest level of each control, that with the smallest distance (no number is the largest).
std::vector<const Level *> NearestLevels(const Shape &shape);

/// The box around the nearest levels in their rest pose.
std::optional<Bounds> RestBounds(const Shape &shape);

} // namespace korvat
