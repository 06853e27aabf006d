// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Painter.h"
#include "samples/ShapeWriter.h"

#include <array>
#include <map>
#include <span>
#include <string>
#include <vector>

/// Solids for shapes: each primitive sees to its normals, its winding and its texture points.
namespace samples {

/// The right and the left side of what is alike on both.
inline constexpr std::array kSides = {1.0F, -1.0F};

Vec3 operator+(const Vec3 &a, const Vec3 &b);
Vec3 operator-(const Vec3 &a, const Vec3 &b);
Vec3 operator*(const Vec3 &a, float factor);
float Dot(const Vec3 &a, const Vec3 &b);
Vec3 Cross(const Vec3 &a, const Vec3 &b);
Vec3 Normalised(const Vec3 &a);

struct Vec2
{
    float x = 0;
    float y = 0;
};

/// What triangles look like.
struct Surface
{
    std::string shader = "TexDiff";
    std::uint32_t image = 0;
    bool alphaTest = false;
    int material = kNormalMaterial;
};

/// What is on the faces of a box.
struct BoxSkin
{
    Patch side; ///< left and right (x)
    Patch end;  ///< front and back (z)
    Patch top;  ///< u along z
    Patch bottom;
    static BoxSkin All(const Patch &patch) { return {patch, patch, patch, patch}; }
};

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

/// A rectangle cut out of a wall, as shares of the wall.
struct Opening
{
    float from = 0;
    float to = 1;
};

class MeshBuilder
{
public:
    explicit MeshBuilder(std::vector<std::string> images);

    /// A node of the hierarchy at `at` below its parent; returns its number. The first, MAIN, is
    /// there from the start. `turns`: a wheel that turns forwards once in the animation.
    std::uint32_t AddMatrix(std::string label, const Vec3 &at, int parent = 0, bool turns = false);
    /// Starts a level of detail; levels go from near to far.
    void BeginLevel(float distance);
    /// What follows belongs to this node, in its space.
    void On(std::uint32_t matrix) { m_matrix = matrix; }
    void With(const Surface &surface) { m_surface = surface; }

    /// A flat quadrangle: top left, top right, bottom right, bottom left as seen from in front.
    void Quad(const Vec3 &a, const Vec3 &b, const Vec3 &c, const Vec3 &d, const Patch &patch);
    /// A flat, convex polygon that faces along `normal`; the patch is laid over its bounds.
    void Polygon(std::span<const Vec3> points, const Vec3 &normal, const Patch &patch);
    void Box(const Vec3 &low, const Vec3 &high, const BoxSkin &skin);
    /// The outline, walked with the outside on the left, drawn out along z; u along z. Corners of
    /// less than about 40 degrees are rounded by their normals.
    void Extrude(std::span<const Vec2> outline, float z0, float z1, const Patch &patch);
    /// The polygon (z, y) drawn out along x between x0 and x1, with its faces.
    void Slab(std::span<const Vec2> outline, float x0, float x1, const Patch &face,
              const Patch &edge);
    /// Turned about an axis through `centre`: pairs of place along the axis and radius, in growing
    /// order of place, or with the outside on the left.
    void Lathe(const Vec3 &centre, Axis axis, std::span<const Vec2> profile, int sides,
               const Patch &patch);
    /// A disc that looks along the axis, or against it; the patch is laid over it.
    void Disc(const Vec3 &centre, Axis axis, bool against, float radius, int sides,
              const Patch &patch);
    /// A round bar between two points, without ends.
    void Bar(const Vec3 &from, const Vec3 &to, float radius, int sides, const Patch &patch);
    /// An upright wall with a row of windows: corners top left, top right, bottom right, bottom
    /// left; the windows reach from `sill` to `lintel` (shares of the height from below).
    void Wall(const std::array<Vec3, 4> &corners, const Patch &patch, float sill, float lintel,
              std::span<const Opening> windows);

    /// The shape with everything added so far and the sphere around it.
    ShapeModel Finish() const;
    Vec3 Low() const { return m_low; }
    Vec3 High() const { return m_high; }

private:
    struct Pool
    {
        std::map<std::array<float, 3>, std::uint32_t> known;
        std::uint32_t Place(std::vector<Vec3> &all, const Vec3 &value);
    };
    void triangle(const Vertex &a, const Vertex &b, const Vertex &c);
    void facet(const Vertex &a, const Vertex &b, const Vertex &c, const Vertex &d);
    std::uint32_t cornerOf(const Vertex &vertex);
    ShapePart &part();
    Vec3 originOf(std::uint32_t matrix) const;
    void grow(const Vec3 &point);

    ShapeModel m_model;
    Surface m_surface;
    std::uint32_t m_matrix = 0;
    Pool m_points;
    Pool m_normals;
    std::map<std::array<float, 2>, std::uint32_t> m_uvs;
    std::map<std::array<std::uint32_t, 4>, std::uint32_t> m_corners; ///< part, point, normal, uv
    Vec3 m_low{1e9F, 1e9F, 1e9F};
    Vec3 m_high{-1e9F, -1e9F, -1e9F};
};

} // namespace samples
