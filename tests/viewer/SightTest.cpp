// SPDX-License-Identifier: MIT
// Tests where points of the scene are in the picture, before and after the camera has moved.
#include "viewer/Sight.h"

#include "korvat/draw/Renderer.h"
#include "viewer/OrbitCamera.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

using korvat::Vec3;
using viewer::CameraPose;
using viewer::OrbitCamera;
using viewer::Sight;

namespace {

/// Returns where the renderer draws a point: x and y from -1 to 1 in the picture, and the depth.
Vec3 drawnAt(const CameraPose &pose, float width, float height, const Vec3 &point)
{
    korvat::Renderer renderer;
    renderer.SetCamera({pose.CamX, pose.CamY, pose.CamZ},
                       {pose.LookAtX, pose.LookAtY, pose.LookAtZ});
    const korvat::FrameSetup setup =
        renderer.Setup(static_cast<int>(width), static_cast<int>(height));
    const korvat::Transform all = setup.view * setup.projection;
    const float w =
        point.x * all.At(0, 3) + point.y * all.At(1, 3) + point.z * all.At(2, 3) + all.At(3, 3);
    const Vec3 moved = korvat::TransformPoint(point, all);
    return {moved.x / w, moved.y / w, w};
}

class SightTest : public testing::Test
{
protected:
    float between(float least, float most)
    {
        return std::uniform_real_distribution<float>(least, most)(m_random);
    }
    CameraPose anyPose()
    {
        CameraPose pose;
        OrbitCamera camera(pose);
        camera.Reset(between(-200, 0));
        camera.OrbitOver(std::round(between(-700, 700)), std::round(between(-320, 320)));
        camera.ApproachPoint({pose.LookAtX, pose.LookAtY, pose.LookAtZ}, between(-20, 10));
        return pose;
    }

private:
    std::mt19937 m_random{7};
};

constexpr std::array<std::array<float, 2>, 6> kSizes = {
    {{834, 560}, {1920, 1080}, {300, 900}, {2000, 90}, {40, 30}, {640, 640}}};

} // namespace

TEST_F(SightTest, ShowAllFitsEverythingIntoThePictureAndNotMuchMore)
{
    for (int trial = 0; trial < 300; ++trial) {
        CameraPose pose = anyPose();
        const auto [width, height] = kSizes[static_cast<std::size_t>(trial) % kSizes.size()];
        const float length = between(1, 400), wide = between(0.1f, 5), high = between(0.1f, 6);
        std::vector<Vec3> corners;
        for (const float x : {-wide / 2, wide / 2})
            for (const float y : {0.0f, high})
                for (const float z : {-length, 0.0f})
                    corners.push_back({x, y, z});
        const Vec3 gaze = Sight(pose, width, height).Forward();
        OrbitCamera(pose).ShowAll(corners, {0, high / 2, -length / 2}, width, height);
        EXPECT_GT(korvat::Dot(gaze, Sight(pose, width, height).Forward()), 0.999f)
            << "keeps the direction";
        float farthestOut = 0, nearest = 1e9f;
        for (const Vec3 &corner : corners) {
            const Vec3 at = drawnAt(pose, width, height, corner);
            farthestOut = std::max({farthestOut, std::abs(at.x), std::abs(at.y)});
            nearest = std::min(nearest, at.z);
        }
        EXPECT_LT(farthestOut, 0.94f) << trial;
        EXPECT_GT(nearest, 0.4f) << trial << ": nothing is cut off in front of the camera";
        EXPECT_TRUE(farthestOut > 0.9f || nearest < 0.6f) << trial << ": no nearer than needed";
    }
}

TEST_F(SightTest, PannedAndApproachedPointsStayUnderTheMouse)
{
    for (int trial = 0; trial < 300; ++trial) {
        CameraPose pose = anyPose();
        const auto [width, height] = kSizes[static_cast<std::size_t>(trial) % kSizes.size()];
        const float x = between(0, width), y = between(0, height), depth = between(1, 60);
        const Vec3 held = Sight(pose, width, height).PointAt(x, y, depth);
        const auto shownAt = [&](float mouseX, float mouseY, const char *name) {
            const Vec3 at = drawnAt(pose, width, height, held);
            EXPECT_NEAR((at.x + 1) / 2 * width, mouseX, 0.4) << trial << ' ' << name;
            EXPECT_NEAR((1 - at.y) / 2 * height, mouseY, 0.4) << trial << ' ' << name;
        };
        shownAt(x, y, "before");
        const float dx = between(0, width) - x, dy = between(0, height) - y;
        OrbitCamera(pose).Slide(Sight(pose, width, height).Across(dx, dy, depth) * -1);
        shownAt(x + dx, y + dy, "panned");
        const float before = drawnAt(pose, width, height, held).z;
        OrbitCamera(pose).ApproachPoint(held, between(0.5f, 3));
        shownAt(x + dx, y + dy, "approached");
        EXPECT_LE(drawnAt(pose, width, height, held).z, before * 1.001f);
        OrbitCamera(pose).ApproachPoint(held, -3);
        shownAt(x + dx, y + dy, "back");
    }
}

TEST_F(SightTest, TheWheelNeverReachesWhatIsUnderTheMouse)
{
    for (int trial = 0; trial < 50; ++trial) {
        CameraPose pose = anyPose();
        const Vec3 held = Sight(pose, 800, 600).PointAt(between(0, 800), between(0, 600), 8);
        OrbitCamera camera(pose);
        for (int notch = 0; notch < 200; ++notch)
            camera.ApproachPoint(held, 1);
        const Vec3 eye{pose.CamX, pose.CamY, pose.CamZ};
        EXPECT_GT(korvat::Length(held - eye), 0.45f);
        EXPECT_GT(drawnAt(pose, 800, 600, held).z, 0.3f) << "still in front of the camera";
        EXPECT_GE(camera.Distance(), 0.99f);
        for (int notch = 0; notch < 400; ++notch)
            camera.ApproachPoint(held, -1);
        EXPECT_LE(camera.Distance(), 501);
    }
}
