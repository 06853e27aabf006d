// SPDX-License-Identifier: MIT
#include "samples/MeshBuilder.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace samples {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;
constexpr float kRoundCorner = 0.76F; ///< cosine of the angle up to which a corner counts as round
constexpr std::uint32_t kTurnFrames = 16;

/// A line of a profile with the normals at its ends and their places along the whole, 0 to 1.
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

std::vector<Segment> segmentsOf(std::span<const Vec2> line)
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

/// The axis direction and two directions across it.
std::array<Vec3, 3> frameOf(Axis axis)
{
    switch (axis) {
    case Axis::X:
        return {{{1, 0, 0}, {0, 0, 1}, {0, 1, 0}}};
    case Axis::Y:
        return {{{0, 1, 0}, {1, 0, 0}, {0, 0, 1}}};
    case Axis::Z:
        break;
    }
    return {{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}};
}

std::pair<float, float> around(int step, int sides)
{
    const float angle = kTurn * static_cast<float>(step % sides) / static_cast<float>(sides);
    return {std::cos(angle), std::sin(angle)};
}

/// Rounds away what makes equal points differ, and minus zero.
float tidy(float value, float perUnit)
{
    return std::round(value * perUnit) / perUnit + 0.0F;
}

} // namespace

Vec3 operator+(const Vec3 &a, const Vec3 &b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vec3 operator-(const Vec3 &a, const Vec3 &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Vec3 operator*(const Vec3 &a, float factor)
{
    return {a.x * factor, a.y * factor, a.z * factor};
}

float Dot(const Vec3 &a, const Vec3 &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Vec3 Cross(const Vec3 &a, const Vec3 &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Vec3 Normalised(const Vec3 &a)
{
    const float length = std::sqrt(Dot(a, a));
    return length > 0 ? a * (1 / length) : Vec3{0, 1, 0};
}

std::uint32_t MeshBuilder::Pool::Place(std::vector<Vec3> &all, const Vec3 &value)
{
    const std::array<float, 3> key = {tidy(value.x, 1000), tidy(value.y, 1000),
                                      tidy(value.z, 1000)};
    const auto [at, fresh] = known.try_emplace(key, static_cast<std::uint32_t>(all.size()));
    if (fresh)
        all.push_back({key[0], key[1], key[2]});
    return at->second;
}

MeshBuilder::MeshBuilder(std::vector<std::string> images)
{
    m_model.images = std::move(images);
    m_model.matrices.push_back({.label = "MAIN"});
}

std::uint32_t MeshBuilder::AddMatrix(std::string label, const Vec3 &at, int parent, bool turns)
{
    ShapeMatrix matrix{.label = std::move(label), .parent = parent};
    matrix.rows[9] = at.x;
    matrix.rows[10] = at.y;
    matrix.rows[11] = at.z;
    if (turns) {
        m_model.frames = kTurnFrames;
        for (std::uint32_t quarter = 0; quarter <= 4; ++quarter) {
            const float half = kTurn / 8 * static_cast<float>(quarter);
            matrix.turn.push_back(
                {quarter * kTurnFrames / 4,
                 {tidy(-std::sin(half), 1e6F), 0, 0, tidy(std::cos(half), 1e6F)}});
        }
    }
    m_model.matrices.push_back(std::move(matrix));
    return static_cast<std::uint32_t>(m_model.matrices.size() - 1);
}

void MeshBuilder::BeginLevel(float distance)
{
    m_model.levels.push_back({.distance = distance, .parts = {}});
    m_corners.clear();
}

Vec3 MeshBuilder::originOf(std::uint32_t matrix) const
{
    Vec3 origin;
    for (int at = static_cast<int>(matrix); at >= 0;) {
        const ShapeMatrix &node = m_model.matrices[static_cast<std::size_t>(at)];
        origin = origin + Vec3{node.rows[9], node.rows[10], node.rows[11]};
        at = node.parent;
    }
    return origin;
}

void MeshBuilder::grow(const Vec3 &point)
{
    const Vec3 at = point + originOf(m_matrix);
    m_low = {std::min(m_low.x, at.x), std::min(m_low.y, at.y), std::min(m_low.z, at.z)};
    m_high = {std::max(m_high.x, at.x), std::max(m_high.y, at.y), std::max(m_high.z, at.z)};
}

ShapePart &MeshBuilder::part()
{
    std::vector<ShapePart> &parts = m_model.levels.back().parts;
    const auto fits = [&](const ShapePart &p) {
        return p.matrix == m_matrix && p.image == m_surface.image && p.shader == m_surface.shader &&
               p.alphaTest == m_surface.alphaTest && p.material == m_surface.material;
    };
    const auto at = std::find_if(parts.begin(), parts.end(), fits);
    if (at != parts.end())
        return *at;
    ShapePart fresh;
    fresh.name = m_model.matrices[m_matrix].label + '_' + std::to_string(parts.size());
    fresh.shader = m_surface.shader;
    fresh.image = m_surface.image;
    fresh.matrix = m_matrix;
    fresh.alphaTest = m_surface.alphaTest;
    fresh.material = m_surface.material;
    parts.push_back(std::move(fresh));
    return parts.back();
}

std::uint32_t MeshBuilder::cornerOf(const Vertex &vertex)
{
    ShapePart &target = part();
    const auto number = static_cast<std::uint32_t>(&target - m_model.levels.back().parts.data());
    const std::array<float, 2> uv = {tidy(vertex.uv.u, 10000), tidy(vertex.uv.v, 10000)};
    const auto [uvAt, freshUv] =
        m_uvs.try_emplace(uv, static_cast<std::uint32_t>(m_model.uvs.size()));
    if (freshUv)
        m_model.uvs.push_back({uv[0], uv[1]});
    const Corner corner{m_points.Place(m_model.points, vertex.point),
                        m_normals.Place(m_model.normals, vertex.normal), uvAt->second};
    const auto [at, fresh] =
        m_corners.try_emplace({number, corner.point, corner.normal, corner.uv},
                              static_cast<std::uint32_t>(target.corners.size()));
    if (fresh) {
        target.corners.push_back(corner);
        grow(vertex.point);
    }
    return at->second;
}

/// Turned over when it would show its back to where its normals point.
void MeshBuilder::triangle(const Vertex &a, const Vertex &b, const Vertex &c)
{
    const Vec3 face = Cross(b.point - a.point, c.point - a.point);
    if (Dot(face, face) < 1e-10F)
        return;
    const bool back = Dot(face, a.normal + b.normal + c.normal) < 0;
    const std::uint32_t first = cornerOf(a);
    const std::uint32_t second = cornerOf(back ? c : b);
    const std::uint32_t third = cornerOf(back ? b : c);
    std::vector<std::uint32_t> &indices = part().indices;
    indices.insert(indices.end(), {first, second, third});
}

void MeshBuilder::facet(const Vertex &a, const Vertex &b, const Vertex &c, const Vertex &d)
{
    triangle(a, b, c);
    triangle(a, c, d);
}

void MeshBuilder::Quad(const Vec3 &a, const Vec3 &b, const Vec3 &c, const Vec3 &d,
                       const Patch &patch)
{
    const Vec3 normal = Normalised(Cross(c - a, d - b));
    facet({a, normal, {patch.u0, patch.v0}}, {b, normal, {patch.u1, patch.v0}},
          {c, normal, {patch.u1, patch.v1}}, {d, normal, {patch.u0, patch.v1}});
}

void MeshBuilder::Polygon(std::span<const Vec3> points, const Vec3 &normal, const Patch &patch)
{
    const Vec3 up = std::abs(normal.y) > 0.9F ? Vec3{0, 0, 1} : Vec3{0, 1, 0};
    const Vec3 right = Normalised(Cross(normal, up));
    std::vector<Vec2> flat;
    Vec2 low{1e9F, 1e9F};
    Vec2 high{-1e9F, -1e9F};
    for (const Vec3 &point : points) {
        flat.push_back({Dot(point, right), Dot(point, up)});
        low = {std::min(low.x, flat.back().x), std::min(low.y, flat.back().y)};
        high = {std::max(high.x, flat.back().x), std::max(high.y, flat.back().y)};
    }
    const auto vertex = [&](std::size_t i) {
        const float x = (flat[i].x - low.x) / std::max(high.x - low.x, 1e-6F);
        const float y = (flat[i].y - low.y) / std::max(high.y - low.y, 1e-6F);
        return Vertex{points[i],
                      normal,
                      {std::lerp(patch.u0, patch.u1, x), std::lerp(patch.v1, patch.v0, y)}};
    };
    for (std::size_t i = 1; i + 1 < points.size(); ++i)
        triangle(vertex(0), vertex(i), vertex(i + 1));
}

void MeshBuilder::Box(const Vec3 &low, const Vec3 &high, const BoxSkin &skin)
{
    const Vec3 &l = low;
    const Vec3 &h = high;
    Quad({h.x, h.y, l.z}, {h.x, h.y, h.z}, {h.x, l.y, h.z}, {h.x, l.y, l.z}, skin.side);
    Quad({l.x, h.y, h.z}, {l.x, h.y, l.z}, {l.x, l.y, l.z}, {l.x, l.y, h.z}, skin.side);
    Quad({h.x, h.y, h.z}, {l.x, h.y, h.z}, {l.x, l.y, h.z}, {h.x, l.y, h.z}, skin.end);
    Quad({l.x, h.y, l.z}, {h.x, h.y, l.z}, {h.x, l.y, l.z}, {l.x, l.y, l.z}, skin.end);
    Quad({l.x, h.y, l.z}, {l.x, h.y, h.z}, {h.x, h.y, h.z}, {h.x, h.y, l.z}, skin.top);
    Quad({h.x, l.y, l.z}, {h.x, l.y, h.z}, {l.x, l.y, h.z}, {l.x, l.y, l.z}, skin.bottom);
}

void MeshBuilder::Extrude(std::span<const Vec2> outline, float z0, float z1, const Patch &patch)
{
    for (const Segment &s : segmentsOf(outline)) {
        const float v0 = std::lerp(patch.v0, patch.v1, s.start);
        const float v1 = std::lerp(patch.v0, patch.v1, s.end);
        const auto vertex = [&](Vec2 at, Vec2 normal, float z, float u, float v) {
            return Vertex{{at.x, at.y, z}, {normal.x, normal.y, 0}, {u, v}};
        };
        facet(vertex(s.from, s.normalFrom, z0, patch.u0, v0),
              vertex(s.from, s.normalFrom, z1, patch.u1, v0),
              vertex(s.to, s.normalTo, z1, patch.u1, v1),
              vertex(s.to, s.normalTo, z0, patch.u0, v1));
    }
}

void MeshBuilder::Slab(std::span<const Vec2> outline, float x0, float x1, const Patch &face,
                       const Patch &edge)
{
    std::vector<Vec2> closed(outline.begin(), outline.end());
    closed.push_back(outline.front());
    float area = 0;
    for (std::size_t i = 0; i + 1 < closed.size(); ++i)
        area += closed[i].x * closed[i + 1].y - closed[i + 1].x * closed[i].y;
    if (area > 0)
        std::reverse(closed.begin(), closed.end());
    for (const Segment &s : segmentsOf(closed)) {
        const auto vertex = [&](Vec2 at, Vec2 normal, float x, float u, float v) {
            return Vertex{{x, at.y, at.x}, {0, normal.y, normal.x}, {u, v}};
        };
        facet(vertex(s.from, s.normalFrom, x0, edge.u0, edge.v0),
              vertex(s.from, s.normalFrom, x1, edge.u1, edge.v0),
              vertex(s.to, s.normalTo, x1, edge.u1, edge.v1),
              vertex(s.to, s.normalTo, x0, edge.u0, edge.v1));
    }
    for (const auto &[x, normal] : {std::pair{std::max(x0, x1), 1.0F}, {std::min(x0, x1), -1.0F}}) {
        std::vector<Vec3> points;
        for (const Vec2 &at : outline)
            points.push_back({x, at.y, at.x});
        Polygon(points, {normal, 0, 0}, face);
    }
}

void MeshBuilder::Lathe(const Vec3 &centre, Axis axis, std::span<const Vec2> profile, int sides,
                        const Patch &patch)
{
    const auto [along, across, up] = frameOf(axis);
    const auto vertex = [&, &along = along, &across = across, &up = up](Vec2 at, Vec2 normal,
                                                                        int step, float v) {
        const auto [c, s] = around(step, sides);
        const Vec3 outwards = across * c + up * s;
        const float u = static_cast<float>(step) / static_cast<float>(sides);
        return Vertex{centre + along * at.x + outwards * at.y,
                      along * normal.x + outwards * normal.y,
                      {std::lerp(patch.u0, patch.u1, u), std::lerp(patch.v0, patch.v1, v)}};
    };
    for (const Segment &s : segmentsOf(profile))
        for (int step = 0; step < sides; ++step)
            facet(vertex(s.from, s.normalFrom, step, s.start),
                  vertex(s.from, s.normalFrom, step + 1, s.start),
                  vertex(s.to, s.normalTo, step + 1, s.end), vertex(s.to, s.normalTo, step, s.end));
}

void MeshBuilder::Disc(const Vec3 &centre, Axis axis, bool against, float radius, int sides,
                       const Patch &patch)
{
    const auto [along, across, up] = frameOf(axis);
    std::vector<Vec3> rim;
    for (int step = 0; step < sides; ++step) {
        const auto [c, s] = around(step, sides);
        rim.push_back(centre + across * (c * radius) + up * (s * radius));
    }
    Polygon(rim, against ? along * -1 : along, patch);
}

void MeshBuilder::Bar(const Vec3 &from, const Vec3 &to, float radius, int sides, const Patch &patch)
{
    const Vec3 along = Normalised(to - from);
    const Vec3 across =
        Normalised(Cross(along, std::abs(along.y) > 0.9F ? Vec3{1, 0, 0} : Vec3{0, 1, 0}));
    const Vec3 up = Cross(along, across);
    for (int step = 0; step < sides; ++step) {
        const auto vertex = [&](const Vec3 &at, int place, float v) {
            const auto [c, s] = around(place, sides);
            const Vec3 outwards = across * c + up * s;
            const float u = static_cast<float>(place) / static_cast<float>(sides);
            return Vertex{at + outwards * radius, outwards, {std::lerp(patch.u0, patch.u1, u), v}};
        };
        facet(vertex(from, step, patch.v0), vertex(from, step + 1, patch.v0),
              vertex(to, step + 1, patch.v1), vertex(to, step, patch.v1));
    }
}

void MeshBuilder::Wall(const std::array<Vec3, 4> &corners, const Patch &patch, float sill,
                       float lintel, std::span<const Opening> windows)
{
    const auto at = [&](float x, float y) {
        const Vec3 upper = corners[0] * (1 - x) + corners[1] * x;
        const Vec3 lower = corners[3] * (1 - x) + corners[2] * x;
        return lower * (1 - y) + upper * y;
    };
    const auto piece = [&](float x0, float y0, float x1, float y1) {
        if (x1 - x0 > 1e-4F && y1 - y0 > 1e-4F)
            Quad(at(x0, y1), at(x1, y1), at(x1, y0), at(x0, y0), patch.Part(x0, y0, x1, y1));
    };
    piece(0, 0, 1, sill);
    piece(0, lintel, 1, 1);
    float done = 0;
    for (const Opening &window : windows) {
        piece(done, sill, window.from, lintel);
        done = window.to;
    }
    piece(done, sill, 1, lintel);
}

ShapeModel MeshBuilder::Finish() const
{
    ShapeModel model = m_model;
    const auto blends = [](const ShapePart &p) {
        return p.shader == "BlendATexDiff" && !p.alphaTest;
    };
    for (ShapeLevel &level : model.levels)
        std::stable_partition(level.parts.begin(), level.parts.end(),
                              [&](const ShapePart &p) { return !blends(p); });
    model.centre = (m_low + m_high) * 0.5F;
    const Vec3 half = m_high - model.centre;
    model.radius = std::sqrt(Dot(half, half));
    return model;
}

} // namespace samples
