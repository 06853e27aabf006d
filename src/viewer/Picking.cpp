// SPDX-License-Identifier: MIT
#include "viewer/Picking.h"

#include "viewer/TSView.h"

#include <algorithm>
#include <cmath>
#include <limits>

using korvat::Bounds;
using korvat::Cross;
using korvat::Dot;
using korvat::Vec3;

namespace viewer {
namespace {

// As in korvat::Scenery, in metres.
constexpr float kGroundHeight = -0.72f, kSleeperTop = -0.17f, kShoulder = 2.4f;

/// Returns the ray in the space of a model. The world matrices of objects only rotate and move.
Ray inModel(const Ray &ray, const korvat::Transform &world)
{
    const Vec3 from = ray.from - Vec3{world.At(3, 0), world.At(3, 1), world.At(3, 2)};
    const auto turnedBack = [&world](const Vec3 &v) {
        const auto row = [&](int i) {
            return v.x * world.At(i, 0) + v.y * world.At(i, 1) + v.z * world.At(i, 2);
        };
        return Vec3{row(0), row(1), row(2)};
    };
    return {turnedBack(from), turnedBack(ray.direction)};
}

/// Cuts the part [first, last] of the ray down to what is between two parallel planes.
void cut(float from, float direction, float least, float most, float &first, float &last)
{
    if (direction == 0) {
        if (from < least || from > most)
            last = -1;
        return;
    }
    const float a = (least - from) / direction, b = (most - from) / direction;
    first = std::max(first, std::min(a, b));
    last = std::min(last, std::max(a, b));
}

bool meets(const Ray &ray, const Bounds &box, float limit)
{
    constexpr float slack = 0.001f; // flat shapes have flat boxes
    float first = 0, last = limit;
    cut(ray.from.x, ray.direction.x, box.least.x - slack, box.most.x + slack, first, last);
    cut(ray.from.y, ray.direction.y, box.least.y - slack, box.most.y + slack, first, last);
    cut(ray.from.z, ray.direction.z, box.least.z - slack, box.most.z + slack, first, last);
    return first <= last;
}

/// Returns the distance to the front of a triangle, infinite if the ray misses it.
float distanceTo(const Ray &ray, const Vec3 &a, const Vec3 &b, const Vec3 &c)
{
    constexpr float none = std::numeric_limits<float>::infinity();
    const Vec3 ab = b - a, ac = c - a, normal = Cross(ab, ac);
    const float against = -Dot(ray.direction, normal);
    if (!(against > 0))
        return none;
    const Vec3 from = ray.from - a, turned = Cross(from, ray.direction);
    const float u = Dot(ac, turned) / against, v = -Dot(ab, turned) / against;
    const float distance = Dot(from, normal) / against;
    return u >= 0 && v >= 0 && u + v <= 1 && distance >= 0 ? distance : none;
}

/// Returns the distance to the model if it is less than `limit`, else `limit`.
float distanceTo(const Ray &ray, const korvat::Model &model, float limit)
{
    if (!meets(ray, model.box, limit))
        return limit;
    const auto &vertices = model.mesh.vertices;
    const auto &indices = model.mesh.indices;
    for (std::size_t i = 0; i + 2 < indices.size(); i += 3)
        limit = std::min(limit, distanceTo(ray, vertices[indices[i]].position,
                                           vertices[indices[i + 1]].position,
                                           vertices[indices[i + 2]].position));
    return limit;
}

/// Calls visit(model, world) for each shape of an object that is loaded.
template <typename Visit>
void visitShapes(const TSViewObject &object, bool withLoads, const Visit &visit)
{
    const ShapeModel &shape = object.Model();
    if (shape.Loaded())
        visit(*shape.Loaded(), shape.WorldMatrix());
    for (const TSViewObject::Added &added : object.AddedShapes())
        if (added.model.Loaded() && (withLoads || !added.isLoad))
            visit(*added.model.Loaded(), added.place * shape.WorldMatrix());
}

} // namespace

std::optional<Hit> Pick(const ViewObjects &objects, const Ray &ray, bool withLoads)
{
    Hit hit{0, std::numeric_limits<float>::max()};
    for (int place = 1; place <= objects.Count(); ++place)
        visitShapes(objects.Item(place), withLoads,
                    [&](const korvat::Model &model, const korvat::Transform &world) {
                        const float distance = distanceTo(inModel(ray, world), model, hit.distance);
                        if (distance < hit.distance)
                            hit = {place, distance};
                    });
    return hit.place ? std::optional(hit) : std::nullopt;
}

std::optional<float> PickGround(const Ray &ray, korvat::Ground scene)
{
    if (!(ray.direction.y < 0))
        return std::nullopt;
    const auto distanceTo = [&ray](float height) {
        return (height - ray.from.y) / ray.direction.y;
    };
    const bool hasTrack = scene == korvat::Ground::Track;
    const float track = distanceTo(kSleeperTop), ground = distanceTo(hasTrack ? kGroundHeight : 0);
    const bool onTrack = hasTrack && std::abs(ray.from.x + ray.direction.x * track) < kShoulder;
    const float distance = onTrack ? track : ground;
    return distance > 0 ? std::optional(distance) : std::nullopt;
}

std::vector<Vec3> CornersOfObject(const ViewObjects &objects, int place, bool withLoads)
{
    std::vector<Vec3> corners;
    visitShapes(objects.Item(place), withLoads,
                [&](const korvat::Model &model, const korvat::Transform &world) {
                    const Bounds &box = model.box;
                    if (model.mesh.vertices.empty())
                        return;
                    for (const float x : {box.least.x, box.most.x})
                        for (const float y : {box.least.y, box.most.y})
                            for (const float z : {box.least.z, box.most.z})
                                corners.push_back(korvat::TransformPoint({x, y, z}, world));
                });
    return corners;
}

std::vector<Vec3> CornersOf(const ViewObjects &objects, bool withLoads)
{
    std::vector<Vec3> corners;
    for (int place = 1; place <= objects.Count(); ++place)
        for (const Vec3 &corner : CornersOfObject(objects, place, withLoads))
            corners.push_back(corner);
    return corners;
}

Vec3 MiddleOf(const std::vector<Vec3> &points)
{
    if (points.empty())
        return {};
    Vec3 least = points.front(), most = least;
    for (const Vec3 &point : points) {
        least = {std::min(least.x, point.x), std::min(least.y, point.y),
                 std::min(least.z, point.z)};
        most = {std::max(most.x, point.x), std::max(most.y, point.y), std::max(most.z, point.z)};
    }
    return (least + most) * 0.5f;
}

} // namespace viewer
