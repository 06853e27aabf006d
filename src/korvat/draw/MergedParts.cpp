// SPDX-License-Identifier: MIT
#include "korvat/draw/MergedParts.h"

#include "korvat/model/Transform.h"

#include <algorithm>
#include <bit>
#include <map>
#include <tuple>

namespace korvat {
namespace {

enum class Order
{
    Solid,
    Tested,
    Blended
};

Order orderOf(const Surface &surface)
{
    if (surface.blending != Blending::None)
        return Order::Blended;
    return surface.alphaTest ? Order::Tested : Order::Solid;
}

/// Equal for parts that one call can draw.
auto keyOf(const Part &part, bool byJoint)
{
    const auto bits = [](float number) { return std::bit_cast<std::uint32_t>(number); };
    const Surface &surface = part.surface;
    const Tint &colour = surface.colour;
    return std::tuple(byJoint ? part.joint : 0, part.slot, surface.finish, surface.alphaTest,
                      surface.addressing, surface.mipmaps, bits(surface.sharpness), bits(colour.r),
                      bits(colour.g), bits(colour.b), bits(colour.a));
}

/// Returns a sphere around two others.
Sphere around(const Sphere &a, const Sphere &b)
{
    const Vec3 apart = b.centre - a.centre;
    const float distance = Length(apart);
    if (distance + b.radius <= a.radius)
        return a;
    if (distance + a.radius <= b.radius)
        return b;
    const float radius = (distance + a.radius + b.radius) / 2;
    return {a.centre + apart * ((radius - a.radius) / distance), radius};
}

/// Returns the parts of the model that become one, group by group.
std::vector<std::vector<const Part *>> groupsOf(const Model &model, bool byJoint)
{
    std::vector<std::vector<const Part *>> groups;
    std::map<decltype(keyOf(Part(), false)), std::size_t> places;
    for (const Part &part : model.parts) {
        const bool alone = orderOf(part.surface) == Order::Blended;
        const std::size_t place =
            alone ? groups.size()
                  : places.try_emplace(keyOf(part, byJoint), groups.size()).first->second;
        if (place == groups.size())
            groups.emplace_back();
        groups[place].push_back(&part);
    }
    std::stable_sort(groups.begin(), groups.end(), [](const auto &a, const auto &b) {
        return orderOf(a.front()->surface) < orderOf(b.front()->surface);
    });
    return groups;
}

} // namespace

MergedParts MergeParts(const Model &model, bool byJoint)
{
    MergedParts merged;
    merged.indices.reserve(model.mesh.indices.size());
    for (const auto &group : groupsOf(model, byJoint)) {
        Part whole = *group.front();
        whole.firstIndex = static_cast<std::uint32_t>(merged.indices.size());
        for (const Part *part : group) {
            const auto first = model.mesh.indices.begin() + part->firstIndex;
            merged.indices.insert(merged.indices.end(), first, first + part->indexCount);
            whole.bounds = around(whole.bounds, part->bounds);
        }
        whole.indexCount = static_cast<std::uint32_t>(merged.indices.size()) - whole.firstIndex;
        merged.parts.push_back(whole);
    }
    return merged;
}

} // namespace korvat
