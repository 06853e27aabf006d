// SPDX-License-Identifier: MIT
#include "viewer/OrbitCamera.h"

#include "host/RuntimeError.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

using viewer::CameraPose;
using viewer::OrbitCamera;

TEST(OrbitCameraTest, HandsMoveTheCamera)
{
    const float quarterX = 200 * std::numbers::pi_v<float> / 2;
    const float quarterY = 100 * std::numbers::pi_v<float> / 2;
    const CameraPose side{10, 2, -15, 0, 2, -15}, along{0, 2, -5, 0, 2, -15};
    const CameraPose askew{6, 2, -12, 0, 2, -15};
    using Move = void (*)(OrbitCamera &, float, float);
    const Move orbit = [](OrbitCamera &c, float dx, float dy) { c.Orbit(dx, dy); };
    const Move pan = [](OrbitCamera &c, float dx, float dy) { c.Pan(dx, dy); };
    const Move approach = [](OrbitCamera &c, float steps, float) { c.Approach(steps); };
    const struct
    {
        const char *name;
        CameraPose before;
        Move move;
        float dx, dy;
        CameraPose after;
    } rows[] = {
        {"a quarter round", side, orbit, quarterX, 0, {0, 2, -5, 0, 2, -15}},
        {"and back", along, orbit, -quarterX, 0, {10, 2, -15, 0, 2, -15}},
        {"the second turn does nothing from the side", side, orbit, 0, quarterY, side},
        {"and lifts along the train", along, orbit, 0, -quarterY, {0, 12, -15, 0, 2, -15}},
        {"pan up", side, pan, 0, 100, {10, 3, -15, 0, 3, -15}},
        {"pan right from the side", side, pan, 7, 0, {10, 2, -16, 0, 2, -16}},
        {"its size does not matter", side, pan, -300, 0, {10, 2, -14, 0, 2, -14}},
        {"pan along the train", along, pan, 3, 0, {-1, 2, -5, -1, 2, -15}},
        {"pan askew", askew, pan, 3, 50, {5, 2.5f, -14, -1, 2.5f, -17}},
        {"nothing", askew, pan, 0, 0, askew},
        {"one step nearer", side, approach, 1, 0, {9, 2, -15, 0, 2, -15}},
        {"not into the target", side, approach, 100, 0, {1, 2, -15, 0, 2, -15}},
        {"not out of the world", side, approach, -100, 0, {500, 2, -15, 0, 2, -15}},
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

TEST(OrbitCameraTest, ScrollBarsSetPlacesAndResetBringsTheSideView)
{
    CameraPose pose{3, 4, 5, 6, 7, 8};
    OrbitCamera camera(pose);
    camera.MoveAlong(-20);
    EXPECT_EQ(pose, (CameraPose{3, 4, -20, 6, 7, -20}));
    camera.SetHeight(30);
    EXPECT_EQ(pose, (CameraPose{3, 30, -20, 6, 7, -20}));
    camera.Reset(-15);
    EXPECT_EQ(pose, (CameraPose{10, 2, -15, 0, 2, -15}));
    EXPECT_THROW(camera.Orbit(std::numeric_limits<float>::infinity(), 0), host::RuntimeError);
    EXPECT_EQ(pose, (CameraPose{10, 2, -15, 0, 2, -15})) << "and nothing has changed";
}
