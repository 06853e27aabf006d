// SPDX-License-Identifier: MIT
// The primitives of MeshBuilder.
#include "samples/MeshBuilder.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>

namespace samples {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;
constexpr float kRoundCorner = 0.76F; ///< cosine of the largest angle between smooth faces

/// A line of a profile, with the normals at its ends and its range along the profile, 0 to 1.
struct Segment
{
    Vec2 from, to;
    Vec2 normalFrom, normalTo;
    float start = 0;
    float end = 1;
};

Vec2 unit(Vec2 v)
{
    const float length = std::hypot(v.x, v.y);
    return length > 0 ? Vec2{v.x / length, v.y / length} : Vec2{0, 1};
}

std::vector<Segment> segmentsOf(const Outline &line)
{
    std::vector<Segment> all;
    float total = 0;
    for (std::size_t i = 0; i + 1 < line.size(); ++i) {
        const Vec2 along{line[i + 1].x - line[i].x, line[i + 1].y - line[i].y};
        const Vec2 normal = unit({-along.y, along.x});
        const float length = std::hypot(along.x, along.y);
        all.push_back({line[i], line[i + 1], normal, normal, total, total + length});
        total += length;
    }
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
        const Vec2 a = all[i].normalTo;
        const Vec2 b = all[i + 1].normalFrom;
        if (a.x * b.x + a.y * b.y > kRoundCorner)
            all[i].normalTo = all[i + 1].normalFrom = unit({a.x + b.x, a.y + b.y});
    }
    for (Segment &segment : all) {
        segment.start /= total;
        segment.end /= total;
    }
    return all;
}

/// Returns the face that a segment sweeps from `a` to `b`. `place` maps a point of the profile
/// to space.
std::array<Vertex, 4> extruded(const Segment &s, const std::function<Vec3(Vec2, float)> &place,
                               float a, float b, const Patch &patch)
{
    const Vec3 from = place(s.normalFrom, 0);
    const Vec3 to = place(s.normalTo, 0);
    return {{{place(s.from, a), from, {patch.u0, patch.v0}},
             {place(s.from, b), from, {patch.u1, patch.v0}},
             {place(s.to, b), to, {patch.u1, patch.v1}},
             {place(s.to, a), to, {patch.u0, patch.v1}}}};
}

/// Returns the direction of the axis and two directions perpendicular to it.
std::array<Vec3, 3> frameOf(Axis axis)
{
    if (axis == Axis::X)
        return {{{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}};
    if (axis == Axis::Y)
        return {{{0, 1, 0}, {1, 0, 0}, {0, 0, 1}}};
    return {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}};
}

/// Returns the direction of a step around a circle of `sides` steps.
Vec3 around(int step, int sides, const Vec3 &across, const Vec3 &up)
{
    const float angle = kTurn * static_cast<float>(step % sides) / static_cast<float>(sides);
    return across * std::cos(angle) + up * std::sin(angle);
}

/// Returns the texture coordinate of a step around a circle.
float uAt(const Patch &patch, int step, int sides)
{
    return std::lerp(patch.u0, patch.u1, static_cast<float>(step) / static_cast<float>(sides));
}

} // namespace

void MeshBuilder::Quad(const Vec3 &a, const Vec3 &b, const Vec3 &c, const Vec3 &d,
                       const Patch &patch)
{
    const Vec3 normal = Normalised(Cross(c - a, d - b));
    facet({{{a, normal, {patch.u0, patch.v0}},
            {b, normal, {patch.u1, patch.v0}},
            {c, normal, {patch.u1, patch.v1}},
            {d, normal, {patch.u0, patch.v1}}}},
          patch.look);
}

void MeshBuilder::Polygon(const std::vector<Vec3> &points, const Vec3 &normal, const Patch &patch)
{
    const Vec3 up = std::abs(normal.y) > 0.9F ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    const Vec3 right = Normalised(Cross(normal, up));
    Outline flat;
    Vec2 low{1e9F, 1e9F};
    Vec2 high{-1e9F, -1e9F};
    for (const Vec3 &point : points) {
        flat.push_back({Dot(point, right), Dot(point, up)});
        low = {std::min(low.x, flat.back().x), std::min(low.y, flat.back().y)};
        high = {std::max(high.x, flat.back().x), std::max(high.y, flat.back().y)};
    }
    std::vector<Vertex> corners;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const float x = (flat[i].x - low.x) / std::max(high.x - low.x, 1e-6F);
        const float y = (flat[i].y - low.y) / std::max(high.y - low.y, 1e-6F);
        const Uv uv{std::lerp(patch.u0, patch.u1, x), std::lerp(patch.v1, patch.v0, y)};
        corners.push_back({points[i], normal, uv});
    }
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        triangle(corners[0], corners[i], corners[i + 1], patch.look);
}

void MeshBuilder::Box(const Vec3 &a, const Vec3 &b, const BoxSkin &skin)
{
    const Vec3 l{std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
    const Vec3 h{std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
    const auto on = [&](std::size_t face) { return skin.size() > 1 ? skin.at(face) : skin[0]; };
    Quad({h.x, h.y, l.z}, {h.x, h.y, h.z}, {h.x, l.y, h.z}, {h.x, l.y, l.z}, on(0));
    Quad({l.x, h.y, h.z}, {l.x, h.y, l.z}, {l.x, l.y, l.z}, {l.x, l.y, h.z}, on(0));
    Quad({h.x, h.y, h.z}, {l.x, h.y, h.z}, {l.x, l.y, h.z}, {h.x, l.y, h.z}, on(1));
    Quad({l.x, h.y, l.z}, {h.x, h.y, l.z}, {h.x, l.y, l.z}, {l.x, l.y, l.z}, on(1));
    Quad({l.x, h.y, l.z}, {l.x, h.y, h.z}, {h.x, h.y, h.z}, {h.x, h.y, l.z}, on(2));
    Quad({h.x, l.y, l.z}, {h.x, l.y, h.z}, {l.x, l.y, h.z}, {l.x, l.y, l.z}, on(3));
}

void MeshBuilder::Extrude(const Outline &outline, float z0, float z1, const Patch &patch)
{
    const auto place = [](Vec2 at, float z) { return Vec3{at.x, at.y, z}; };
    for (const Segment &s : segmentsOf(outline)) {
        const Patch strip{patch.u0, std::lerp(patch.v0, patch.v1, s.start), patch.u1,
                          std::lerp(patch.v0, patch.v1, s.end)};
        facet(extruded(s, place, z0, z1, strip), patch.look);
    }
}

void MeshBuilder::Slab(const Outline &outline, float x0, float x1, const Patch &face,
                       const Patch &edge)
{
    Outline closed = outline;
    closed.push_back(outline.front());
    float area = 0;
    for (std::size_t i = 0; i + 1 < closed.size(); ++i)
        area += closed[i].x * closed[i + 1].y - closed[i + 1].x * closed[i].y;
    if (area > 0)
        std::reverse(closed.begin(), closed.end());
    const auto place = [](Vec2 at, float x) { return Vec3{x, at.y, at.x}; };
    for (const Segment &s : segmentsOf(closed))
        facet(extruded(s, place, x0, x1, edge), edge.look);
    for (const float side : {1.0F, -1.0F}) {
        std::vector<Vec3> points;
        for (const Vec2 at : outline)
            points.push_back(place(at, side > 0 ? std::max(x0, x1) : std::min(x0, x1)));
        Polygon(points, {side, 0, 0}, face);
    }
}

void MeshBuilder::Lathe(const Vec3 &centre, Axis axis, const Outline &profile, int sides,
                        const Patch &patch)
{
    const auto [along, across, up] = frameOf(axis);
    for (const Segment &s : segmentsOf(profile))
        for (int step = 0; step < sides; ++step) {
            const auto vertex = [&, &along = along, &across = across,
                                 &up = up](Vec2 at, Vec2 normal, int place, float v) {
                const Vec3 outwards = around(place, sides, across, up);
                return Vertex{centre + along * at.x + outwards * at.y,
                              along * normal.x + outwards * normal.y,
                              {uAt(patch, place, sides), std::lerp(patch.v0, patch.v1, v)}};
            };
            facet({{vertex(s.from, s.normalFrom, step, s.start),
                    vertex(s.from, s.normalFrom, step + 1, s.start),
                    vertex(s.to, s.normalTo, step + 1, s.end),
                    vertex(s.to, s.normalTo, step, s.end)}},
                  patch.look);
        }
}

void MeshBuilder::Disc(const Vec3 &centre, Axis axis, bool against, float radius, int sides,
                       const Patch &patch)
{
    const auto [along, across, up] = frameOf(axis);
    std::vector<Vec3> rim;
    for (int step = 0; step < sides; ++step)
        rim.push_back(centre + around(step, sides, across * radius, up * radius));
    Polygon(rim, against ? along * -1 : along, patch);
}

void MeshBuilder::Bar(const Vec3 &from, const Vec3 &to, float radius, int sides, const Patch &patch)
{
    const Vec3 along = Normalised(to - from);
    const Vec3 side = std::abs(along.y) > 0.9F ? Vec3{1, 0, 0} : Vec3{0, 1, 0};
    const Vec3 across = Normalised(Cross(along, side));
    const Vec3 up = Cross(along, across);
    const auto vertex = [&](const Vec3 &at, int place, float v) {
        const Vec3 outwards = around(place, sides, across, up);
        return Vertex{at + outwards * radius, outwards, {uAt(patch, place, sides), v}};
    };
    for (int step = 0; step < sides; ++step)
        facet({{vertex(from, step, patch.v0), vertex(from, step + 1, patch.v0),
                vertex(to, step + 1, patch.v1), vertex(to, step, patch.v1)}},
              patch.look);
}

void MeshBuilder::Wall(const std::vector<Vec3> &corners, const Patch &patch, float sill,
                       float lintel, const Outline &windows)
{
    const auto at = [&](float x, float y) {
        const Vec3 upper = corners.at(0) * (1 - x) + corners.at(1) * x;
        const Vec3 lower = corners.at(3) * (1 - x) + corners.at(2) * x;
        return lower * (1 - y) + upper * y;
    };
    const auto piece = [&](float x0, float y0, float x1, float y1) {
        if (x1 - x0 > 1e-4F && y1 - y0 > 1e-4F)
            Quad(at(x0, y1), at(x1, y1), at(x1, y0), at(x0, y0), patch.Part(x0, y0, x1, y1));
    };
    piece(0, 0, 1, sill);
    piece(0, lintel, 1, 1);
    float done = 0;
    for (const Vec2 window : windows) {
        piece(done, sill, window.x, lintel);
        done = window.y;
    }
    piece(done, sill, 1, lintel);
}

} // namespace samples
