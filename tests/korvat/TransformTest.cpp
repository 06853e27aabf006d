// SPDX-License-Identifier: MIT
#include "korvat/model/Transform.h"

#include <gtest/gtest.h>

#include <numbers>

using namespace korvat;

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

void expectNear(Vec3 got, Vec3 wanted, const char *name)
{
    EXPECT_LT(Length(got - wanted), 1e-4f) << name << ": " << got.x << ' ' << got.y << ' ' << got.z;
}

/// Returns the place of a world point in the picture, -1 to 1 from the left and from the bottom.
Vec3 inPicture(Vec3 point, const Transform &viewProjection)
{
    const float w = point.x * viewProjection.At(0, 3) + point.y * viewProjection.At(1, 3) +
                    point.z * viewProjection.At(2, 3) + viewProjection.At(3, 3);
    return TransformPoint(point, viewProjection) * (1 / w);
}

} // namespace

TEST(TransformTest, RowsMultiplyFromTheLeft)
{
    const Transform moveThenTurn = Translation({1, 2, 3}) * RotationY(kPi / 2);
    expectNear(TransformPoint({0, 0, 0}, moveThenTurn), {3, 2, -1}, "moved, then turned");
    const Transform turnThenMove = RotationY(kPi / 2) * Translation({1, 2, 3});
    expectNear(TransformPoint({0, 0, 1}, turnThenMove), {2, 2, 3}, "turned, then moved");
    expectNear(TransformDirection({0, 0, 1}, turnThenMove), {1, 0, 0}, "a direction is not moved");
    EXPECT_EQ(Identity() * moveThenTurn, moveThenTurn);
}

TEST(TransformTest, CameraBesideTheTrainSeesItsFrontOnTheRight)
{
    const Transform picture = LookAt({10, 2, 0}, {0, 2, 0}) * Perspective(kPi / 2, 2, 0.1f, 1000);
    expectNear(inPicture({0, 2, 10}, picture), {0.5f, 0, inPicture({0, 2, 0}, picture).z}, "front");
    EXPECT_LT(inPicture({0, 2, -5}, picture).x, 0);
    expectNear(inPicture({0, 12, 0}, picture), {0, 1, inPicture({0, 2, 0}, picture).z}, "top");
    EXPECT_NEAR(inPicture({9.9f, 2, 0}, picture).z, -1, 1e-3) << "the nearest depth";
    EXPECT_NEAR(inPicture({-990, 2, 0}, picture).z, 1, 1e-3) << "the farthest depth";
    const Transform down = LookAt({0, 50, 0}, {0, 0, 0});
    expectNear(TransformDirection({0, 0, 1}, down), {1, 0, 0}, "straight down");
    const Transform nowhere = LookAt({1, 2, 3}, {1, 2, 3});
    expectNear(TransformPoint({1, 2, 4}, nowhere), {0, 0, 1}, "eye and target in one place");
}

TEST(TransformTest, FrustumCullsObjectsOutside)
{
    const Frustum frustum(LookAt({0, 0, 0}, {0, 0, 10}) * Perspective(kPi / 2, 1, 1, 100));
    const struct
    {
        Sphere sphere;
        bool seen;
    } rows[] = {
        {{{0, 0, 50}, 1}, true},   {{{0, 0, -5}, 1}, false},    {{{0, 0, 0}, 2}, true},
        {{{0, 0, 103}, 1}, false}, {{{0, 0, 100.5f}, 1}, true}, {{{12, 0, 10}, 1}, false},
        {{{11, 0, 10}, 1}, true},  {{{0, -12, 10}, 1}, false},  {{{-12, 0, 10}, 3}, true},
    };
    for (const auto &row : rows)
        EXPECT_EQ(frustum.Sees(row.sphere), row.seen)
            << row.sphere.centre.x << ' ' << row.sphere.centre.y << ' ' << row.sphere.centre.z;
}
