// SPDX-License-Identifier: MIT
#include "korvat/draw/ShadowFit.h"

#include <algorithm>
#include <cmath>

namespace korvat {
namespace {

constexpr float kNearestSplit = 2;    ///< metres; the first map covers at least this
constexpr float kEndInHaze = 0.7f;    ///< of the way to opaque haze
constexpr float kLogarithmic = 0.75f; ///< share of equal ratios in the splits; the rest is equal
constexpr float kMargin = 6;          ///< pixels around the casters, for the soft edges
constexpr float kStepsPerDouble = 4;  ///< sizes of pixels, so that edges stay when the camera moves

Vec3 axisOf(const Transform &view, int column)
{
    return {view.At(0, column), view.At(1, column), view.At(2, column)};
}

Bounds emptyBox()
{
    constexpr float most = 1e30f;
    return {{most, most, most}, {-most, -most, -most}};
}

void include(Bounds &box, Vec3 p)
{
    box.least = {std::min(box.least.x, p.x), std::min(box.least.y, p.y),
                 std::min(box.least.z, p.z)};
    box.most = {std::max(box.most.x, p.x), std::max(box.most.y, p.y), std::max(box.most.z, p.z)};
}

/// Returns the box around a box that is moved and turned.
Bounds movedBox(const Bounds &box, const Transform &by)
{
    const Vec3 middle = TransformPoint((box.least + box.most) * 0.5f, by);
    const Vec3 half = (box.most - box.least) * 0.5f;
    const auto reach = [&](int column) {
        return std::abs(half.x * by.At(0, column)) + std::abs(half.y * by.At(1, column)) +
               std::abs(half.z * by.At(2, column));
    };
    const Vec3 reaches{reach(0), reach(1), reach(2)};
    return {middle - reaches, middle + reaches};
}

/// The part of the view between two distances, as the box around it in the space of the sun.
Bounds sliceBox(const FrameSetup &setup, float from, float to, const Transform &sunView)
{
    Bounds box = emptyBox();
    const Vec3 right = axisOf(setup.view, 0) * (1 / setup.projection.At(0, 0));
    const Vec3 up = axisOf(setup.view, 1) * (1 / setup.projection.At(1, 1));
    for (const float depth : {from, to})
        for (const float x : {-1.0f, 1.0f})
            for (const float y : {-1.0f, 1.0f})
                include(box, TransformPoint(
                                 setup.eye + (axisOf(setup.view, 2) + right * x + up * y) * depth,
                                 sunView));
    return box;
}

/// Shortens `box` to the area of `limits`. Returns false if nothing remains, or if it is so far
/// from the sun that its shadow falls behind the slice.
bool clip(Bounds &box, const Bounds &limits)
{
    box.least.x = std::max(box.least.x, limits.least.x);
    box.least.y = std::max(box.least.y, limits.least.y);
    box.most.x = std::min(box.most.x, limits.most.x);
    box.most.y = std::min(box.most.y, limits.most.y);
    return box.least.x < box.most.x && box.least.y < box.most.y && box.least.z < limits.most.z;
}

/// Returns a sphere around the shadow on level ground at Y = 0.
Sphere shadowOf(const Sphere &sphere, Vec3 toSun)
{
    return {sphere.centre - toSun * (std::max(sphere.centre.y, 0.0f) / toSun.y), sphere.radius};
}

/// Returns the distances at which the maps end.
std::array<float, kShadowMaps> splits(const FrameSetup &setup, std::span<const Caster> casters)
{
    const Frustum frustum(setup.view * setup.projection);
    const Vec3 forward = axisOf(setup.view, 2);
    float nearest = 1e30f, farthest = 0;
    for (const Caster &caster : casters)
        for (const Sphere &sphere : {caster.bounds, shadowOf(caster.bounds, setup.toSun)}) {
            if (!frustum.Sees(sphere))
                continue;
            const float depth = Dot(sphere.centre - setup.eye, forward);
            nearest = std::min(nearest, depth - sphere.radius);
            farthest = std::max(farthest, depth + sphere.radius);
        }
    farthest = std::clamp(farthest, 2 * kNearestSplit, std::max(setup.hazeFar * kEndInHaze, 10.0f));
    nearest = std::clamp(nearest, kNearestSplit, farthest / 2);
    std::array<float, kShadowMaps> ends{};
    for (std::size_t i = 0; i < kShadowMaps; ++i) {
        const float t = static_cast<float>(i + 1) / static_cast<float>(kShadowMaps);
        ends[i] = std::lerp(std::lerp(nearest, farthest, t),
                            nearest * std::pow(farthest / nearest, t), kLogarithmic);
    }
    return ends;
}

/// Returns the transformation from the space of the sun to a map that covers the box; its pixels
/// have one of a few sizes and lie on a fixed grid.
void cover(const Bounds &box, const Transform &sunView, ShadowMap &map)
{
    constexpr float usable = static_cast<float>(kShadowSide) - 2 * kMargin - 2;
    const float extent = std::max(box.most.x - box.least.x, box.most.y - box.least.y);
    const float finest = std::max(extent / usable, 1e-4f);
    map.texel = std::exp2(std::ceil(std::log2(finest) * kStepsPerDouble) / kStepsPerDouble);
    const float side = map.texel * static_cast<float>(kShadowSide);
    const auto middle = [&map](float least, float most) {
        return std::round((least + most) / 2 / map.texel) * map.texel;
    };
    const float depth = std::max(box.most.z - box.least.z, 1.0f);
    const Vec3 from{middle(box.least.x, box.most.x), middle(box.least.y, box.most.y),
                    box.least.z + depth / 2};
    map.toMap = sunView * Translation(from * -1) * Scaling({2 / side, 2 / side, 1.9f / depth});
}

} // namespace

ShadowFit FitShadows(const FrameSetup &setup, std::span<const Caster> casters)
{
    ShadowFit fit;
    const Transform sunView = LookAt({}, setup.toSun * -1);
    std::vector<Bounds> boxes;
    for (const Caster &caster : casters)
        boxes.push_back(movedBox(caster.box, caster.world * sunView));
    const std::array<float, kShadowMaps> ends = splits(setup, casters);
    float from = 0;
    for (std::size_t number = 0; number < kShadowMaps; ++number) {
        const Bounds slice = sliceBox(setup, from * 0.9f, ends[number], sunView);
        from = ends[number];
        Bounds all = emptyBox();
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            Bounds box = boxes[i];
            if (!clip(box, slice))
                continue;
            fit.casters[number].push_back(i);
            include(all, box.least);
            include(all, box.most);
        }
        fit.maps[number].end = ends[number];
        if (!fit.casters[number].empty())
            cover(all, sunView, fit.maps[number]);
    }
    return fit;
}

} // namespace korvat
