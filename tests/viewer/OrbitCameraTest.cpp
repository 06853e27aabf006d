// SPDX-License-Identifier: MIT
#include "viewer/OrbitCamera.h"

#include "host/RuntimeError.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

using viewer::CameraPose;
using viewer::OrbitCamera;

namespace {

const float kDiagonal = std::sqrt(0.5f);

float distanceOf(const CameraPose &pose)
{
    return std::hypot(pose.CamX - pose.LookAtX, pose.CamY - pose.LookAtY, pose.CamZ - pose.LookAtZ);
}

} // namespace

TEST(OrbitCameraTest, OrbitPanAndApproachMoveTheCamera)
{
    const float quarterX = 200 * std::numbers::pi_v<float> / 2;
    const float quarterY = 100 * std::numbers::pi_v<float> / 2;
    const CameraPose side{10, 2, -15, 0, 2, -15}, along{0, 2, -5, 0, 2, -15};
    const CameraPose askew{6, 2, -12, 0, 2, -15};
    using Move = void (*)(OrbitCamera &, float, float);
    const Move orbit = [](OrbitCamera &c, float dx, float dy) { c.Orbit(dx, dy); };
    const Move pan = [](OrbitCamera &c, float dx, float dy) { c.Pan(dx, dy); };
    const Move approach = [](OrbitCamera &c, float steps, float) {
        c.ApproachPoint({0, 2, -15}, steps);
    };
    const struct
    {
        const char *name;
        CameraPose before;
        Move move;
        float dx, dy;
        CameraPose after;
    } rows[] = {
        {"panning from above moves across the train's length",
         {0, 12, -15, 0, 2, -15},
         pan,
         1,
         0,
         {0, 12, -16, 0, 2, -16}},
        {"a quarter turn", side, orbit, quarterX, 0, {0, 2, -5, 0, 2, -15}},
        {"a quarter turn back", along, orbit, -quarterX, 0, {10, 2, -15, 0, 2, -15}},
        {"lifts along the train", along, orbit, 0, -quarterY, {0, 12, -15, 0, 2, -15}},
        {"half as fast over the target from the side",
         side,
         orbit,
         0,
         -quarterX / 2,
         {10 * kDiagonal, 2 + 10 * kDiagonal, -15, 0, 2, -15}},
        {"under the target",
         side,
         orbit,
         0,
         quarterX / 2,
         {10 * kDiagonal, 2 - 10 * kDiagonal, -15, 0, 2, -15}},
        {"dragging up lifts from the far side, too",
         {-10, 2, -15, 0, 2, -15},
         orbit,
         0,
         -quarterX / 2,
         {-10 * kDiagonal, 2 + 10 * kDiagonal, -15, 0, 2, -15}},
        {"above the target it turns in the plane of Y and Z",
         {10, 7, -15, 0, 2, -15},
         orbit,
         0,
         quarterY,
         {10, 2, -10, 0, 2, -15}},
        {"pan up", side, pan, 0, 100, {10, 3, -15, 0, 3, -15}},
        {"pan right from the side", side, pan, 7, 0, {10, 2, -16, 0, 2, -16}},
        {"the size of the movement does not matter", side, pan, -300, 0, {10, 2, -14, 0, 2, -14}},
        {"pan along the train", along, pan, 3, 0, {-1, 2, -5, -1, 2, -15}},
        {"pan from an oblique view: also one metre",
         askew,
         pan,
         3,
         50,
         {6 - 0.4472136f, 2.5f, -12 - 0.8944272f, -0.4472136f, 2.5f, -15.8944272f}},
        {"almost from the side",
         {10, 2, -15 + 1e-5f, 0, 2, -15},
         pan,
         3,
         0,
         {10, 2, -16, 0, 2, -16}},
        {"nothing", askew, pan, 0, 0, askew},
        {"one step nearer", side, approach, 1, 0, {9, 2, -15, 0, 2, -15}},
        {"not into the target", side, approach, 100, 0, {1, 2, -15, 0, 2, -15}},
        {"not beyond the limit", side, approach, -100, 0, {500, 2, -15, 0, 2, -15}},
    };
    for (const auto &row : rows) {
        CameraPose pose = row.before;
        OrbitCamera camera(pose);
        row.move(camera, row.dx, row.dy);
        EXPECT_NEAR(pose.CamX, row.after.CamX, 1e-4) << row.name;
        EXPECT_NEAR(pose.CamY, row.after.CamY, 1e-4) << row.name;
        EXPECT_NEAR(pose.CamZ, row.after.CamZ, 1e-4) << row.name;
        EXPECT_NEAR(pose.LookAtX, row.after.LookAtX, 1e-4) << row.name;
        EXPECT_NEAR(pose.LookAtY, row.after.LookAtY, 1e-4) << row.name;
        EXPECT_NEAR(pose.LookAtZ, row.after.LookAtZ, 1e-4) << row.name;
    }
}

TEST(OrbitCameraTest, ScrollBarsSetTheCameraAndResetRestoresTheSideView)
{
    CameraPose pose{3, 4, 5, 6, 7, 8};
    OrbitCamera camera(pose);
    camera.MoveAlong(-20);
    EXPECT_EQ(pose, (CameraPose{3, 4, -23, 6, 7, -20})) << "as far from the target as before";
    camera.SetHeight(30);
    EXPECT_EQ(pose, (CameraPose{3, 30, -23, 6, 7, -20}));
    camera.Reset(-15);
    EXPECT_EQ(pose, (CameraPose{10, 2, -15, 0, 2, -15}));
    EXPECT_THROW(camera.Orbit(std::numeric_limits<float>::infinity(), 0), host::RuntimeError);
    EXPECT_EQ(pose, (CameraPose{10, 2, -15, 0, 2, -15})) << "the reset changes nothing else";
}

TEST(OrbitCameraTest, NoSequenceOfMovesLosesTheTarget)
{
    std::mt19937 random(1);
    const auto between = [&random](float least, float most) {
        return std::uniform_real_distribution<float>(least, most)(random);
    };
    for (int sequence = 0; sequence < 200; ++sequence) {
        CameraPose pose;
        OrbitCamera camera(pose);
        camera.Reset(-100);
        for (int step = 0; step < 100; ++step) {
            const float before = distanceOf(pose);
            const float dx = std::round(between(-40, 40)), dy = std::round(between(-40, 40));
            float least = before, most = before; // turning and sliding keep the distance
            switch (random() % 6) {
            case 0:
                camera.Orbit(dx, dy);
                break;
            case 1:
                camera.OrbitOver(dx, dy);
                break;
            case 2:
                camera.Pan(dx, dy);
                break;
            case 3:
                camera.MoveAlong(std::round(between(-200, 0)));
                break;
            case 4:
                camera.ApproachPoint({between(-5, 5), between(0, 5), between(-200, 0)},
                                     between(-3, 3));
                least = std::min(1.0f, before);
                most = std::max(500.0f, before);
                break;
            default:
                const float height = std::round(between(0, 40));
                camera.SetHeight(height);
                least = 0;
                most = std::hypot(before, height - pose.LookAtY);
            }
            const float now = distanceOf(pose);
            ASSERT_TRUE(std::isfinite(now));
            ASSERT_GE(now, least * 0.999f - 0.001f) << sequence << ", step " << step;
            ASSERT_LE(now, most * 1.001f + 0.001f) << sequence << ", step " << step;
        }
    }
}

TEST(OrbitCameraTest, LongDragOverTheTargetEndsAboveIt)
{
    CameraPose pose;
    OrbitCamera camera(pose);
    for (const float up : {-1.0f, 1.0f}) {
        camera.Reset(0);
        EXPECT_TRUE(camera.IsBesideTarget());
        for (int step = 0; step < 400; ++step) {
            camera.OrbitOver(step % 7 == 0 ? 1.0f : 0.0f, 3 * up);
            ASSERT_GT(pose.CamX, 0) << "never upside down";
        }
        EXPECT_NEAR(pose.CamY, 2 - 10 * up, 1e-3);
        EXPECT_FALSE(camera.IsBesideTarget());
    }
}

TEST(OrbitCameraTest, LooksFromEachSideAtTheSameTarget)
{
    const auto after = [](const std::function<void(OrbitCamera &)> &move) {
        CameraPose pose{3, 2, -11, 0, 2, -15}; // five metres away
        OrbitCamera camera(pose);
        move(camera);
        EXPECT_EQ(pose.LookAtX, 0);
        EXPECT_EQ(pose.LookAtY, 2);
        EXPECT_EQ(pose.LookAtZ, -15);
        EXPECT_NEAR(distanceOf(pose), 5, 1e-4);
        return pose;
    };
    const auto expectAt = [](const CameraPose &pose, float x, float y, float z) {
        EXPECT_NEAR(pose.CamX, x, 1e-4);
        EXPECT_NEAR(pose.CamY, y, 1e-4);
        EXPECT_NEAR(pose.CamZ, z, 1e-4);
    };
    using viewer::Side;
    expectAt(after([](OrbitCamera &c) { c.LookFrom(Side::Front); }), 0, 2, -10);
    expectAt(after([](OrbitCamera &c) { c.LookFrom(Side::Rear); }), 0, 2, -20);
    expectAt(after([](OrbitCamera &c) { c.LookFromOtherSide(); }), -3, 2, -19);
    const CameraPose above = after([](OrbitCamera &c) { c.LookFrom(Side::Above); });
    EXPECT_GT(above.CamY, 6.99f);
    EXPECT_EQ(above.CamZ, -15);
}

TEST(OrbitCameraTest, TiltsFromStraightAboveTheTarget)
{
    CameraPose pose{0, 12, 0, 0, 2, 0};
    OrbitCamera camera(pose);
    camera.OrbitOver(0, -100);
    EXPECT_NEAR(distanceOf(pose), 10, 1e-3) << "and not nowhere";
    EXPECT_GT(pose.CamX, 0);
    EXPECT_EQ(pose.CamZ, 0);
}

TEST(OrbitCameraTest, ShowAllPutsTheTargetIntoTheDepthOfTheMiddle)
{
    CameraPose pose{10, 2, 0, 0, 2, 0};
    OrbitCamera camera(pose);
    const std::vector<korvat::Vec3> points = {{-2, 0, -20}, {2, 4, 20}};
    camera.ShowAll(points, {1, 2, 0}, 800, 600);
    EXPECT_NEAR(pose.LookAtX, 1, 1e-3);
    EXPECT_NEAR(pose.LookAtY, pose.CamY, 1e-3) << "it is not turned";
    EXPECT_NEAR(pose.LookAtZ, pose.CamZ, 1e-3);
    EXPECT_GT(pose.CamX, 15) << "far enough to see both ends";
}
