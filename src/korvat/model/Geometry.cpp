// SPDX-License-Identifier: MIT
#include "korvat/model/Geometry.h"

#include "korvat/formats/Limits.h"

#include <algorithm>
#include <cmath>

namespace korvat {
namespace {

bool isFinite(const Vec3 &v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

/// Returns an index as a position in a list; nothing if it is out of range.
template <typename Index, typename Item>
std::optional<std::size_t> placeIn(Index index, const std::vector<Item> &items)
{
    if (index < 0 || static_cast<std::uint64_t>(index) >= items.size())
        return std::nullopt;
    return static_cast<std::size_t>(index);
}

/// Returns the matrix that a primitive state refers to through its vertex state.
std::optional<std::uint32_t> matrixOf(const Shape &shape, std::uint32_t primState)
{
    const auto prim = placeIn(std::int64_t{primState}, shape.primStates);
    if (!prim)
        return std::nullopt;
    const auto state = placeIn(shape.primStates[*prim].vertexState, shape.vertexStates);
    if (!state)
        return std::nullopt;
    const std::int32_t matrix = shape.vertexStates[*state].matrix;
    if (shape.matrices.empty())
        return 0;
    const auto place = placeIn(matrix, shape.matrices);
    return place ? std::optional(static_cast<std::uint32_t>(*place)) : std::nullopt;
}

class GeometryMaker
{
public:
    explicit GeometryMaker(const Shape &shape)
        : m_shape(shape)
    {
    }

    void Add(const SubObject &object)
    {
        m_first = static_cast<std::uint32_t>(m_geometry.vertices.size());
        m_usable.clear();
        for (const Vertex &vertex : object.vertices)
            addVertex(vertex);
        for (const Triangles &triangles : object.triangles)
            addTriangles(object, triangles);
    }
    Geometry Take() { return std::move(m_geometry); }

private:
    void addVertex(const Vertex &vertex)
    {
        DrawVertex made{{}, {0, 1, 0}, {}};
        const auto point = placeIn(std::int64_t{vertex.point}, m_shape.points);
        if (point)
            made.position = m_shape.points[*point];
        if (const auto normal = placeIn(std::int64_t{vertex.normal}, m_shape.normals);
            normal && isFinite(m_shape.normals[*normal]))
            made.normal = m_shape.normals[*normal];
        if (const auto uv = placeIn(std::int64_t{vertex.uv}, m_shape.uvs);
            uv && std::isfinite(m_shape.uvs[*uv].u) && std::isfinite(m_shape.uvs[*uv].v))
            made.uv = m_shape.uvs[*uv];
        m_usable.push_back(point && isFinite(made.position));
        m_geometry.vertices.push_back(made);
    }

    void addTriangles(const SubObject &object, const Triangles &triangles)
    {
        const std::size_t whole = triangles.count / 3;
        m_geometry.skipped += triangles.count % 3 ? 1 : 0;
        const auto matrix = matrixOf(m_shape, triangles.primState);
        if (!matrix) {
            m_geometry.skipped += whole;
            return;
        }
        std::vector<std::uint32_t> &indices = partOf(triangles.primState, *matrix).indices;
        for (std::size_t i = 0; i < whole; ++i) {
            const std::uint32_t *corners = &object.indices[triangles.first + 3 * i];
            if (!std::all_of(corners, corners + 3, [this](std::uint32_t corner) {
                    return corner < m_usable.size() && m_usable[corner];
                })) {
                ++m_geometry.skipped;
                continue;
            }
            for (int k = 0; k < 3; ++k)
                indices.push_back(m_first + corners[k]);
            ++m_geometry.triangles;
        }
    }

    DrawPart &partOf(std::uint32_t primState, std::uint32_t matrix)
    {
        std::vector<DrawPart> &parts = m_geometry.parts;
        if (parts.empty() || parts.back().primState != primState)
            parts.push_back({primState, matrix, {}});
        return parts.back();
    }

    const Shape &m_shape;
    Geometry m_geometry;
    std::uint32_t m_first = 0; ///< index of the sub-object's first vertex
    std::vector<bool> m_usable;
};

void include(std::optional<Bounds> &bounds, const Vec3 &point)
{
    if (!isFinite(point))
        return;
    if (!bounds)
        bounds = Bounds{point, point};
    Vec3 &least = bounds->least, &most = bounds->most;
    least = {std::min(least.x, point.x), std::min(least.y, point.y), std::min(least.z, point.z)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y), std::max(most.z, point.z)};
}

} // namespace

Matrix Product(const Matrix &first, const Matrix &second)
{
    const auto &a = first.rows, &b = second.rows;
    Matrix result;
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 3; ++column) {
            float sum = row == 3 ? b[9 + column] : 0;
            for (std::size_t k = 0; k < 3; ++k)
                sum += a[3 * row + k] * b[3 * k + column];
            result.rows[3 * row + column] = sum;
        }
    return result;
}

Vec3 Turned(const Vec3 &v, const Matrix &matrix)
{
    const auto &m = matrix.rows;
    return {v.x * m[0] + v.y * m[3] + v.z * m[6], v.x * m[1] + v.y * m[4] + v.z * m[7],
            v.x * m[2] + v.y * m[5] + v.z * m[8]};
}

Vec3 Transformed(const Vec3 &point, const Matrix &matrix)
{
    const Vec3 turned = Turned(point, matrix);
    return {turned.x + matrix.rows[9], turned.y + matrix.rows[10], turned.z + matrix.rows[11]};
}

std::vector<int> ParentsOf(const Shape &shape, const Level &level)
{
    const auto named = [&](std::size_t matrix) -> std::optional<std::size_t> {
        if (matrix >= level.parents.size() ||
            level.parents[matrix] == static_cast<std::int64_t>(matrix))
            return std::nullopt;
        return placeIn(level.parents[matrix], shape.matrices);
    };
    std::vector<int> parents;
    parents.reserve(shape.matrices.size());
    for (std::size_t i = 0; i < shape.matrices.size(); ++i) {
        const auto own = named(i);
        std::size_t depth = 0;
        for (auto parent = own; parent && depth < kMaxHierarchyDepth; parent = named(*parent))
            ++depth;
        // Else the parents form a cycle, or a chain longer than in any real shape.
        parents.push_back(own && depth < kMaxHierarchyDepth ? static_cast<int>(*own) : -1);
    }
    return parents;
}

std::vector<Matrix> RestPose(const Shape &shape, const Level &level)
{
    const std::vector<int> parents = ParentsOf(shape, level);
    std::vector<Matrix> pose;
    pose.reserve(shape.matrices.size());
    for (std::size_t i = 0; i < shape.matrices.size(); ++i) {
        Matrix world = shape.matrices[i].matrix;
        for (int at = parents[i]; at >= 0; at = parents[static_cast<std::size_t>(at)])
            world = Product(world, shape.matrices[static_cast<std::size_t>(at)].matrix);
        pose.push_back(world);
    }
    if (pose.empty())
        pose.emplace_back();
    return pose;
}

Geometry MakeGeometry(const Shape &shape, const Level &level)
{
    GeometryMaker maker(shape);
    for (const SubObject &object : level.subObjects)
        maker.Add(object);
    return maker.Take();
}

std::optional<Bounds> BoundsOf(const Geometry &geometry, const std::vector<Matrix> &pose)
{
    std::optional<Bounds> bounds;
    for (const DrawPart &part : geometry.parts)
        for (const std::uint32_t index : part.indices)
            include(bounds, Transformed(geometry.vertices[index].position, pose[part.matrix]));
    return bounds;
}

std::vector<const Level *> SortedLevels(const LodControl &control)
{
    std::vector<const Level *> levels;
    levels.reserve(control.levels.size());
    for (const Level &level : control.levels)
        levels.push_back(&level);
    std::stable_sort(levels.begin(), levels.end(), [](const Level *a, const Level *b) {
        return a->distance < b->distance || (std::isnan(b->distance) && !std::isnan(a->distance));
    });
    return levels;
}

std::vector<const Level *> LevelsAt(const Shape &shape, int level)
{
    std::vector<const Level *> all;
    for (const LodControl &control : shape.lodControls) {
        const std::vector<const Level *> levels = SortedLevels(control);
        if (!levels.empty())
            all.push_back(levels[std::min(static_cast<std::size_t>(std::max(level, 1)) - 1,
                                          levels.size() - 1)]);
    }
    return all;
}

std::optional<Bounds> RestBounds(const Shape &shape)
{
    std::optional<Bounds> bounds;
    for (const Level *level : NearestLevels(shape)) {
        const auto box = BoundsOf(MakeGeometry(shape, *level), RestPose(shape, *level));
        if (!box)
            continue;
        include(bounds, box->least);
        include(bounds, box->most);
    }
    return bounds;
}

} // namespace korvat
