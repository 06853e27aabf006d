// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Painter.h"
#include "samples/ShapeWriter.h"

#include <array>
#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// Solids for shapes: each primitive computes its normals, winding and texture coordinates.
namespace samples {

/// The patches on the faces of a box: one for all, or those on the sides (x), on the ends (z), on
/// top (u along z) and below.
using BoxSkin = std::vector<Patch>;

enum class Axis
{
    X,
    Y,
    Z
};

struct Vertex
{
    Vec3 point;
    Vec3 normal;
    Uv uv;
};

/// A shape with its picture, and the bounds of all its levels in the rest pose.
struct PaintedModel
{
    ShapeModel model;
    Picture picture;
    Vec3 low;
    Vec3 high;
};

class MeshBuilder
{
public:
    /// `looks` are the surfaces that Patch::look selects.
    explicit MeshBuilder(std::vector<std::string> images,
                         std::vector<Surface> looks = std::vector<Surface>(1));

    /// Adds a node at `at` below its parent and returns its number. The first node, MAIN, exists
    /// from the start. `turns`: a wheel that turns forwards once in the animation.
    std::uint32_t AddMatrix(std::string label, const Vec3 &at, int parent = 0, bool turns = false);
    /// Starts a level of detail. Levels go from near to far.
    void BeginLevel(float distance);
    /// Adds the following triangles to this node, in its space.
    void On(std::uint32_t matrix) { m_matrix = matrix; }

    /// A flat quadrangle: top left, top right, bottom right, bottom left as seen from in front.
    void Quad(const Vec3 &a, const Vec3 &b, const Vec3 &c, const Vec3 &d, const Patch &patch);
    /// A flat, convex polygon that faces along `normal`; the patch covers its bounds.
    void Polygon(const std::vector<Vec3> &points, const Vec3 &normal, const Patch &patch);
    /// A box between two opposite corners.
    void Box(const Vec3 &a, const Vec3 &b, const BoxSkin &skin);
    /// Extrudes the outline along z, which is also the direction of u. Walk the outline with the
    /// outside on the left. Corners of less than about 40 degrees get smooth normals.
    void Extrude(const Outline &outline, float z0, float z1, const Patch &patch);
    /// Extrudes the polygon (z, y) along x between x0 and x1 and closes it with its faces.
    void Slab(const Outline &outline, float x0, float x1, const Patch &face, const Patch &edge);
    /// Turns a profile about an axis through `centre`. The profile holds positions along the axis
    /// with their radii, in ascending order or with the outside on the left.
    void Lathe(const Vec3 &centre, Axis axis, const Outline &profile, int sides,
               const Patch &patch);
    /// A disc that faces along the axis, or against it; the patch covers it.
    void Disc(const Vec3 &centre, Axis axis, bool against, float radius, int sides,
              const Patch &patch);
    /// A round bar between two points, without ends.
    void Bar(const Vec3 &from, const Vec3 &to, float radius, int sides, const Patch &patch);
    /// An upright wall with a row of windows. Corners: top left, top right, bottom right, bottom
    /// left. The windows reach from `sill` to `lintel`, and from x to y along the wall. All
    /// places are shares of the wall.
    void Wall(const std::vector<Vec3> &corners, const Patch &patch, float sill, float lintel,
              const Outline &windows);

    /// Returns everything added so far, with the sphere around it and this picture.
    PaintedModel Finish(const Picture &picture) const;

private:
    struct Pool
    {
        std::map<std::array<float, 3>, std::uint32_t> known;
        std::uint32_t Place(std::vector<Vec3> &all, const Vec3 &value);
    };
    void triangle(const Vertex &a, const Vertex &b, const Vertex &c, std::size_t look);
    void facet(const std::array<Vertex, 4> &corners, std::size_t look);
    std::uint32_t cornerOf(const Vertex &vertex, const Surface &surface);
    ShapePart &part(const Surface &surface);
    Vec3 originOf(std::uint32_t matrix) const;
    void grow(const Vec3 &point);

    ShapeModel m_model;
    std::vector<Surface> m_looks;
    std::uint32_t m_matrix = 0;
    Pool m_points;
    Pool m_normals;
    std::map<std::array<float, 2>, std::uint32_t> m_uvs;
    std::map<std::array<std::uint32_t, 4>, std::uint32_t> m_corners; ///< part, point, normal, uv
    Vec3 m_low{1e9F, 1e9F, 1e9F};
    Vec3 m_high{-1e9F, -1e9F, -1e9F};
};

} // namespace samples
