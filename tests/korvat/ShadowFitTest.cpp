// SPDX-License-Identifier: MIT
#include "korvat/draw/ShadowFit.h"

#include "korvat/draw/Renderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace korvat;

namespace {

constexpr float kLength = 20;
const Bounds kBox{{-1.5f, 0, -kLength / 2}, {1.5f, 4, kLength / 2}};

/// Returns a train along the track whose front is at Z = 0.
std::vector<Caster> train(int vehicles)
{
    std::vector<Caster> casters;
    for (int i = 0; i < vehicles; ++i) {
        const Vec3 place{0, 0, -kLength * (static_cast<float>(i) + 0.5f)};
        casters.push_back({kBox, {place + Vec3{0, 2, 0}, 10.5f}, Translation(place)});
    }
    return casters;
}

FrameSetup seenFrom(Vec3 eye, Vec3 target)
{
    Renderer renderer;
    renderer.SetCamera(eye, target);
    return renderer.Setup(1280, 800);
}

/// Returns the number of the map that holds the shadows at a point, and nothing beyond the last one
/// or outside the picture.
std::optional<std::size_t> mapAt(const FrameSetup &setup, const ShadowFit &fit, Vec3 point)
{
    if (!Frustum(setup.view * setup.projection).Sees({point, 0}))
        return std::nullopt;
    const float depth = TransformPoint(point, setup.view).z;
    for (std::size_t number = 0; number < kShadowMaps; ++number)
        if (depth < fit.maps[number].end)
            return number;
    return std::nullopt;
}

bool isInside(Vec3 p)
{
    return std::max({std::abs(p.x), std::abs(p.y), std::abs(p.z)}) < 1;
}

/// Returns points on and in a caster.
std::vector<Vec3> pointsOf(const Caster &caster)
{
    std::vector<Vec3> points;
    const Vec3 size = kBox.most - kBox.least;
    const auto part = [](int n) { return static_cast<float>(n % 9) / 8; };
    for (int i = 0; i < 9 * 9 * 9; ++i)
        points.push_back(TransformPoint(
            kBox.least + Vec3{size.x * part(i), size.y * part(i / 9), size.z * part(i / 81)},
            caster.world));
    return points;
}

/// Expects that the maps which hold the shadow of a caster, on itself and on the ground, draw it
/// there. Returns the number of shaded points in view.
int expectHeld(const FrameSetup &setup, const ShadowFit &fit, const Caster &caster, std::size_t i)
{
    int shaded = 0;
    for (const Vec3 point : pointsOf(caster))
        for (const Vec3 seen : {point, point - setup.toSun * ((point.y + 0.7f) / setup.toSun.y)}) {
            const auto number = mapAt(setup, fit, seen);
            if (!number)
                continue;
            ++shaded;
            const auto &drawn = fit.casters[*number];
            EXPECT_NE(std::find(drawn.begin(), drawn.end(), i), drawn.end());
            EXPECT_TRUE(isInside(TransformPoint(point, fit.maps[*number].toMap)))
                << *number << ": " << seen.x << ' ' << seen.y << ' ' << seen.z;
        }
    return shaded;
}

} // namespace

TEST(ShadowFitTest, SunIsHighAndLightsTheFrontAndTheNearSide)
{
    const Vec3 sun = seenFrom({10, 2, 0}, {}).toSun;
    EXPECT_NEAR(Length(sun), 1, 1e-5f);
    EXPECT_GT(sun.z, 0.4f) << "the front of a train looks along Z";
    EXPECT_GT(sun.x, 0.3f) << "the first view shows the right side";
    EXPECT_GT(sun.y, 0.6f);
}

TEST(ShadowFitTest, MapsHoldAllThatShadesWhatTheCameraSees)
{
    const struct
    {
        const char *name;
        Vec3 eye, target;
        int vehicles;
        float finest; ///< metres that a pixel of the nearest map may cover
    } rows[] = {
        {"the first view", {10, 2, -10}, {0, 2, -10}, 1, 0.02f},
        {"along a kilometre", {4, 2, 15}, {0, 2, -40}, 50, 0.04f},
        {"from above", {0.1f, 60, -200}, {0, 0, -200}, 50, 0.06f},
        {"from afar", {300, 80, -500}, {0, 0, -500}, 50, 0.3f},
        {"on the side of the shadows", {-8, 3, 5}, {0, 2, -10}, 3, 0.02f},
        {"the shadow only", {-5, 2, -30}, {-5.1f, 0, -31}, 3, 0.02f},
        {"from below", {5, -3, 5}, {0, 1, -10}, 2, 0.02f},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        const std::vector<Caster> casters = train(row.vehicles);
        const FrameSetup setup = seenFrom(row.eye, row.target);
        const ShadowFit fit = FitShadows(setup, casters);
        EXPECT_LT(fit.maps[0].texel, row.finest);
        int shaded = 0;
        for (std::size_t i = 0; i < casters.size() && !HasFailure(); ++i)
            shaded += expectHeld(setup, fit, casters[i], i);
        EXPECT_GT(shaded, 5);
    }
}

TEST(ShadowFitTest, MapsLeaveOutWhatShadesNothingInView)
{
    const std::vector<Caster> casters = train(50);
    const ShadowFit near = FitShadows(seenFrom({10, 2, -510}, {0, 2, -510}), casters);
    for (const auto &drawn : near.casters)
        EXPECT_LE(drawn.size(), 8u);
    const ShadowFit away = FitShadows(seenFrom({60, 2, 0}, {90, 2, 0}), casters);
    for (const auto &drawn : away.casters)
        EXPECT_TRUE(drawn.empty());
    EXPECT_EQ(away.maps[0].texel, 0);
    EXPECT_EQ(FitShadows(seenFrom({10, 2, 0}, {}), {}).maps[2].texel, 0);
}
