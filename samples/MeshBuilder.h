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

/// The patches of a box: one for all faces, or four: for the sides (x), the ends (z), the top
/// (u along z) and the bottom.
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

/// A shape with its texture, and the bounds of all its levels in the rest pose.
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

    /// Adds a child node at `at`, relative to its parent, and returns its number. The first node,
    /// MAIN, always exists. If `turns`, the node is a wheel: the animation turns it forwards once.
    std::uint32_t AddMatrix(std::string label, const Vec3 &at, int parent = 0, bool turns = false);
    /// Starts a level of detail. The nearest level comes first.
    void BeginLevel(float distance);
    /// Selects the node for the triangles that follow. Their points are in its space.
    void On(std::uint32_t matrix) { m_matrix = matrix; }

    /// Adds a flat quad: top left, top right, bottom right, bottom left, seen from the front.
    void Quad(const Vec3 &a, const Vec3 &b, const Vec3 &c, const Vec3 &d, const Patch &patch);
    /// Adds a flat, convex polygon that faces along `normal`. The patch covers its bounds.
    void Polygon(const std::vector<Vec3> &points, const Vec3 &normal, const Patch &patch);
    /// Adds a box between two opposite corners.
    void Box(const Vec3 &a, const Vec3 &b, const BoxSkin &skin);
    /// Extrudes the outline along z; u runs along z too. List the points so that the outside is on
    /// the left. Bends of less than about 40 degrees get smooth normals.
    void Extrude(const Outline &outline, float z0, float z1, const Patch &patch);
    /// Extrudes the polygon (z, y) along x from x0 to x1 and closes both ends.
    void Slab(const Outline &outline, float x0, float x1, const Patch &face, const Patch &edge);
    /// Revolves a profile about an axis through `centre`. The profile holds positions along the
    /// axis and their radii. List them in ascending order, or with the outside on the left.
    void Lathe(const Vec3 &centre, Axis axis, const Outline &profile, int sides,
               const Patch &patch);
    /// Adds a disc that faces along the axis, or against it. The patch covers the disc.
    void Disc(const Vec3 &centre, Axis axis, bool against, float radius, int sides,
              const Patch &patch);
    /// Adds a round bar between two points, with open ends.
    void Bar(const Vec3 &from, const Vec3 &to, float radius, int sides, const Patch &patch);
    /// Adds an upright wall with a row of windows. Corners: top left, top right, bottom right,
    /// bottom left. The windows reach from `sill` to `lintel`; each item of `windows` is the start
    /// and end of one along the wall. All positions are fractions of the wall's size.
    void Wall(const std::vector<Vec3> &corners, const Patch &patch, float sill, float lintel,
              const Outline &windows);

    /// Returns everything added so far, with its bounding sphere and this texture.
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
