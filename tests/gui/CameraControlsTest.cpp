// SPDX-License-Identifier: MIT
// Tests what commands of the camera ask of the canvas.
#include "ui/view3d/CameraControls.h"

#include "../viewer/Scene.h"
#include "viewer/Stage.h"

#include <QTest>
#include <QWidget>

#include <algorithm>

using viewer::CameraCommand;

namespace {

constexpr CameraCommand kAll[] = {CameraCommand::ShowAll, CameraCommand::FromFront,
                                  CameraCommand::FromRear, CameraCommand::FromAbove,
                                  CameraCommand::FromOtherSide};

class CameraControlsTest : public SceneTest
{
protected:
    void SetUp() override
    {
        shapes.corners = {{0, 0, -4}, {0, 4, 0}, {0, 0, 4}};
        stage.RenderShape(game.Write("car.s", "shape"));
        while (stage.Step())
            continue;
        picture.resize(400, 300);
        canvas.TakeLog();
    }

    viewer::Stage stage{environment, &canvas, [](const std::string &) {}};
    QWidget picture;
    viewer::CameraControls controls{stage, picture};
};

} // namespace

TEST_F(CameraControlsTest, CommandsWithoutAnimationDrawOnce)
{
    controls.SetAnimated(false);
    picture.show();
    for (const CameraCommand command : kAll) {
        controls.Run(command);
        EXPECT_EQ(canvas.TakeLog(), "camera begin end yield ");
        EXPECT_FALSE(controls.tmrCamera.isActive());
    }
    controls.Reset();
    EXPECT_EQ(canvas.TakeLog(), "camera begin end yield ");
}

TEST_F(CameraControlsTest, SmoothMovementEndsAtThePoseOfTheScene)
{
    picture.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&picture));
    const auto eye = canvas.camera;
    controls.Run(CameraCommand::FromAbove);
    const viewer::CameraPose goal = *stage.View();
    EXPECT_EQ(canvas.camera, eye) << "not there yet";
    EXPECT_TRUE(controls.tmrCamera.isActive());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !controls.tmrCamera.isActive(); }));
    EXPECT_EQ(canvas.camera, (std::array<float, 6>{goal.CamX, goal.CamY, goal.CamZ, goal.LookAtX,
                                                   goal.LookAtY, goal.LookAtZ}));
    std::string log = canvas.TakeLog();
    const std::string frame = "camera begin end yield ";
    EXPECT_GE(log.size(), frame.size());
    for (std::size_t at = 0; at < log.size(); at += frame.size())
        EXPECT_EQ(log.substr(at, frame.size()), frame);
    controls.Run(CameraCommand::ShowAll);
    controls.Reset();
    EXPECT_FALSE(controls.tmrCamera.isActive()) << "the user interrupts it";
}

TEST_F(CameraControlsTest, HazeKeepsAwayFromAFarTrain)
{
    controls.SetAnimated(false);
    shapes.corners = {{0, 0, -400}, {0, 4, 0}, {0, 0, 400}};
    stage.RenderShape(game.Write("train.s", "shape"));
    while (stage.Step())
        continue;
    canvas.TakeLog();
    controls.Run(CameraCommand::ShowAll);
    int nearest = 0, farthest = 0;
    ASSERT_EQ(std::sscanf(canvas.TakeLog().c_str(), "near%d far%d", &nearest, &farthest), 2);
    const float distance = canvas.camera[0] - canvas.camera[3];
    EXPECT_GT(distance, 500);
    EXPECT_GT(static_cast<float>(farthest), distance + 400);
    controls.Reset();
    EXPECT_EQ(canvas.TakeLog(), "near50 far600 camera begin end yield ");
}
