// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/formats/Shape.h"

#include <optional>
#include <vector>

/// Turns the content of a shape into geometry to draw, without drawing it: docs/formats.md,
/// "Drawing a shape". Everything stays in the file's left-handed coordinates, with clockwise front
/// faces.
namespace korvat {

/// Returns the matrix that applies `first` and then `second` to a row vector.
Matrix Product(const Matrix &first, const Matrix &second);
Vec3 Transformed(const Vec3 &point, const Matrix &matrix);
/// Applies the matrix without its translation; does not normalise.
Vec3 Turned(const Vec3 &direction, const Matrix &matrix);

/// Returns for each matrix the transformation of its points at rest: itself times its parents. A
/// parent that is missing, out of range or part of a cycle is ignored. Never empty: a shape without
/// matrices gets one identity.
std::vector<Matrix> RestPose(const Shape &shape, const Level &level);

struct DrawVertex
{
    Vec3 position, normal; ///< in the space of the part's matrix
    Uv uv;
    friend bool operator==(const DrawVertex &, const DrawVertex &) = default;
};

/// The triangles of one primitive state, in file order; one draw call can draw them.
struct DrawPart
{
    std::uint32_t primState = 0;
    std::uint32_t matrix = 0;
    std::vector<std::uint32_t> indices; ///< into Geometry::vertices, three per triangle
    friend bool operator==(const DrawPart &, const DrawPart &) = default;
};

struct Geometry
{
    std::vector<DrawVertex> vertices;
    std::vector<DrawPart> parts;
    std::size_t triangles = 0;
    /// Number of triangles left out because something that they refer to is missing or not finite.
    std::size_t skipped = 0;
};

/// Returns the geometry that one level of detail draws. A missing normal points up; missing texture
/// coordinates are 0, 0.
Geometry MakeGeometry(const Shape &shape, const Level &level);

struct Bounds
{
    Vec3 least, most;
    friend bool operator==(const Bounds &, const Bounds &) = default;
};

/// Returns the box around all drawn corners in the given pose (RestPose); nothing if there are
/// none.
std::optional<Bounds> BoundsOf(const Geometry &geometry, const std::vector<Matrix> &pose);

/// Returns for each matrix its parent as RestPose uses it: -1 for a missing one, one out of range,
/// or part of a cycle.
std::vector<int> ParentsOf(const Shape &shape, const Level &level);

/// Returns the levels of a control from near to far. NaN counts as the largest distance.
std::vector<const Level *> SortedLevels(const LodControl &control);
/// Returns one level of each control, counted from 1, the nearest; the farthest one of a control
/// with fewer levels.
std::vector<const Level *> LevelsAt(const Shape &shape, int level);
inline std::vector<const Level *> NearestLevels(const Shape &shape)
{
    return LevelsAt(shape, 1);
}

/// Returns the box around the nearest levels in their rest pose; nothing if they draw nothing.
std::optional<Bounds> RestBounds(const Shape &shape);

} // namespace korvat
