// SPDX-License-Identifier: MIT
#include "korvat/model/Model.h"

#include "korvat/model/Transform.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace korvat {
namespace {

struct Box
{
    Vec3 lowest{kFar, kFar, kFar}, highest{-kFar, -kFar, -kFar};

    void Include(Vec3 p)
    {
        lowest = {std::min(lowest.x, p.x), std::min(lowest.y, p.y), std::min(lowest.z, p.z)};
        highest = {std::max(highest.x, p.x), std::max(highest.y, p.y), std::max(highest.z, p.z)};
    }
    bool Empty() const { return lowest.x > highest.x; }

    static constexpr float kFar = std::numeric_limits<float>::max();
};

Box boxOf(const Mesh &mesh, std::span<const std::uint32_t> indices)
{
    Box box;
    for (const std::uint32_t index : indices)
        box.Include(mesh.vertices[index].position);
    return box;
}

Sphere sphereOf(const Mesh &mesh, std::span<const std::uint32_t> indices, const Box &box)
{
    Sphere sphere;
    if (box.Empty())
        return sphere;
    sphere.centre = (box.lowest + box.highest) * 0.5f;
    float square = 0;
    for (const std::uint32_t index : indices) {
        const Vec3 offset = mesh.vertices[index].position - sphere.centre;
        square = std::max(square, Dot(offset, offset));
    }
    sphere.radius = std::sqrt(square);
    return sphere;
}

} // namespace

void MeasureBounds(Model &model)
{
    const std::span<const std::uint32_t> all(model.mesh.indices);
    const Box whole = boxOf(model.mesh, all);
    model.bounds = sphereOf(model.mesh, all, whole);
    if (!whole.Empty()) {
        model.box = {whole.lowest, whole.highest};
    }
    for (Part &part : model.parts) {
        const auto indices = all.subspan(part.firstIndex, part.indexCount);
        part.bounds = sphereOf(model.mesh, indices, boxOf(model.mesh, indices));
    }
}

} // namespace korvat
