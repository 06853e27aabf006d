// SPDX-License-Identifier: MIT
#include "samples/MeshBuilder.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace samples {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;
constexpr std::uint32_t kTurnFrames = 16;

/// Rounds, so that nearly equal values become identical, and removes the sign of zero.
float tidy(float value, float perUnit)
{
    return std::round(value * perUnit) / perUnit + 0.0F;
}

} // namespace

std::uint32_t MeshBuilder::Pool::Place(std::vector<Vec3> &all, const Vec3 &value)
{
    const Vec3 point{tidy(value.x, 1000), tidy(value.y, 1000), tidy(value.z, 1000)};
    const auto [at, fresh] =
        known.try_emplace({point.x, point.y, point.z}, static_cast<std::uint32_t>(all.size()));
    if (fresh)
        all.push_back(point);
    return at->second;
}

MeshBuilder::MeshBuilder(std::vector<std::string> images, std::vector<Surface> looks)
    : m_looks(std::move(looks))
{
    m_model.images = std::move(images);
    m_model.matrices.push_back({.label = "MAIN"});
}

std::uint32_t MeshBuilder::AddMatrix(std::string label, const Vec3 &at, int parent, bool turns)
{
    ShapeMatrix matrix{.label = std::move(label),
                       .rows = {1, 0, 0, 0, 1, 0, 0, 0, 1, at.x, at.y, at.z},
                       .parent = parent};
    if (turns)
        m_model.frames = kTurnFrames;
    for (std::uint32_t quarter = 0; turns && quarter <= 4; ++quarter) {
        const float half = kTurn / 8 * static_cast<float>(quarter);
        matrix.turn.push_back({quarter * kTurnFrames / 4,
                               {tidy(-std::sin(half), 1e6F), 0, 0, tidy(std::cos(half), 1e6F)}});
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

ShapePart &MeshBuilder::part(const Surface &surface)
{
    std::vector<ShapePart> &parts = m_model.levels.back().parts;
    const auto at = std::find_if(parts.begin(), parts.end(), [&](const ShapePart &p) {
        return p.matrix == m_matrix && static_cast<const Surface &>(p) == surface;
    });
    if (at != parts.end())
        return *at;
    const std::string name = m_model.matrices[m_matrix].label + '_' + std::to_string(parts.size());
    return parts.emplace_back(ShapePart{surface, name, m_matrix, {}, {}});
}

std::uint32_t MeshBuilder::cornerOf(const Vertex &vertex, const Surface &surface)
{
    ShapePart &target = part(surface);
    const auto number = static_cast<std::uint32_t>(&target - m_model.levels.back().parts.data());
    const Uv uv{tidy(vertex.uv.u, 10000), tidy(vertex.uv.v, 10000)};
    const auto [uvAt, freshUv] =
        m_uvs.try_emplace({uv.u, uv.v}, static_cast<std::uint32_t>(m_model.uvs.size()));
    if (freshUv)
        m_model.uvs.push_back(uv);
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

/// Reverses the triangle if its front does not face along its normals.
void MeshBuilder::triangle(const Vertex &a, const Vertex &b, const Vertex &c, std::size_t look)
{
    const Vec3 face = Cross(b.point - a.point, c.point - a.point);
    if (look >= m_looks.size() || Dot(face, face) < 1e-10F)
        return;
    const bool back = Dot(face, a.normal + b.normal + c.normal) < 0;
    const Surface &surface = m_looks[look];
    const std::uint32_t first = cornerOf(a, surface);
    const std::uint32_t second = cornerOf(back ? c : b, surface);
    const std::uint32_t third = cornerOf(back ? b : c, surface);
    std::vector<std::uint32_t> &indices = part(surface).indices;
    indices.insert(indices.end(), {first, second, third});
}

void MeshBuilder::facet(const std::array<Vertex, 4> &corners, std::size_t look)
{
    triangle(corners[0], corners[1], corners[2], look);
    triangle(corners[0], corners[2], corners[3], look);
}

PaintedModel MeshBuilder::Finish(const Picture &picture) const
{
    ShapeModel model = m_model;
    const auto isOpaque = [](const ShapePart &p) {
        return p.shader != "BlendATexDiff" || p.alphaTest;
    };
    for (ShapeLevel &level : model.levels)
        std::stable_partition(level.parts.begin(), level.parts.end(), isOpaque);
    model.centre = (m_low + m_high) * 0.5F;
    const Vec3 half = m_high - model.centre;
    model.radius = std::sqrt(Dot(half, half));
    return {model, picture, m_low, m_high};
}

} // namespace samples
