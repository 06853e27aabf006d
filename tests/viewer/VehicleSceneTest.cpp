// SPDX-License-Identifier: MIT
#include "viewer/VehicleScene.h"

#include "Scene.h"
#include "host/FilesUsed.h"
#include "host/RuntimeError.h"
#include "korvat/TestShape.h"
#include "korvat/draw/SceneCanvas.h"
#include "korvat/model/ModelLibrary.h"

#include <chrono>
#include <thread>

namespace {

/// A canvas that gives access to its frames.
class StudioCanvas : public korvat::SceneCanvas
{
public:
    using SceneCanvas::renderer;
};

class VehicleSceneTest : public SceneTest
{
protected:
    VehicleSceneTest() { writeStock("Boxcars", "box.wag", "3m 4m 8m", "box.s"); }
    std::string stock(const char *name) const
    {
        return game.At("Trains/Trainset/Boxcars/" + std::string(name));
    }
    /// Loads a vehicle and returns the reason why that fails.
    std::string whyNot(const std::string &file)
    {
        try {
            scene.Load(file, {});
            return {};
        } catch (const host::RuntimeError &error) {
            return error.what();
        }
    }
    /// Loads the vehicle until its files are old enough for a record.
    void loadSettled(viewer::VehicleScene &shown)
    {
        const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        do {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            shown.Load(stock("box.wag"), {});
        } while (shown.Record().empty() && std::chrono::steady_clock::now() < patience);
        ASSERT_FALSE(shown.Record().empty());
    }

    StudioCanvas studio;
    viewer::VehicleScene scene{environment, studio};
};

/// Also the places where a missing texture would be found.
TEST_F(VehicleSceneTest, RecordsStockShapeAndTextures)
{
    game.Write("Trains/Trainset/Boxcars/box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 9, 3)}));
    korvat::ModelLibrary library(files);
    viewer::VehicleScene real({dialogs, files, settings, installation, library}, studio);
    const std::string stockText = game.Read("Trains/Trainset/Boxcars/box.wag"),
                      shapeText = game.Read("Trains/Trainset/Boxcars/box.s");
    const std::pair<const char *, std::string> changes[] = {
        {"Boxcars/box.wag", stockText + " "},
        {"Boxcars/box.s", shapeText + " "},
        {"textures/side.ace", "another form of the texture"},
        {"Boxcars/side.dds", LetterFile()},
        {"Boxcars/side.dds", PictureFile(Pixel{1, 2, 3, 255})}};
    for (const auto &[file, bytes] : changes) {
        loadSettled(real);
        EXPECT_TRUE(host::FilesUsed::Holds(files, real.Record()));
        game.Write("Trains/Trainset/" + std::string(file), bytes);
        EXPECT_FALSE(host::FilesUsed::Holds(files, real.Record())) << file;
    }
}

TEST_F(VehicleSceneTest, ShowsTheWholeLoad)
{
    korvat::ModelLibrary library(files);
    viewer::VehicleScene real({dialogs, files, settings, installation, library}, studio);
    const auto write = [this](const char *name, float height) {
        game.Write("Trains/Trainset/Boxcars/" + std::string(name),
                   ShapeText({SidePanel(1, 1, {0, height / 2, 0}, 9, height)}));
    };
    write("box.s", 3);
    game.Write("Trains/Trainset/Boxcars/box.wag",
               "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( x Size ( 3m 4m 9m ) "
               "WagonShape ( box.s ) FreightAnim ( mast.s 1 1 ) )");
    const auto heightOfEye = [&] {
        real.Look({0, 0, 1}, 1);
        return studio.renderer().Setup(100, 100).eye.y;
    };
    loadSettled(real);
    EXPECT_NEAR(heightOfEye(), 1.5f, 0.01f);
    ASSERT_EQ(real.Problems().size(), 2u) << "texture and load";
    EXPECT_NE(real.Problems()[1].find("mast.s"), std::string::npos) << real.Problems()[1];
    write("mast.s", 40);
    EXPECT_FALSE(host::FilesUsed::Holds(files, real.Record())) << "the load has appeared";
    loadSettled(real);
    EXPECT_NEAR(heightOfEye(), 20, 0.1f);
    real.ShowLoads(false);
    EXPECT_NEAR(heightOfEye(), 1.5f, 0.01f);
}

TEST_F(VehicleSceneTest, SaysWhyAVehicleCannotBeShown)
{
    writeStock("Boxcars", "bad.wag", "3m 4m 8m", "bad.s");
    game.Write("Trains/Trainset/Boxcars/gone.wag",
               "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( x WagonShape ( gone.s ) )");
    EXPECT_NE(whyNot(stock("gone.wag")).find("gone.s: there is no such file"), std::string::npos);
    EXPECT_NE(whyNot(stock("none.wag")).find("none.wag: there is no such file"), std::string::npos);
    EXPECT_NE(whyNot(stock("bad.wag")).find("bad.s"), std::string::npos);
    EXPECT_EQ(scene.StockFile(), "");
    EXPECT_EQ(whyNot(stock("box.wag")), "");
    EXPECT_EQ(scene.StockFile(), stock("box.wag"));
    EXPECT_EQ(dialogs.Log(), "");
}

/// Every corner of the box is in the image, and the box fills it in one direction.
TEST_F(VehicleSceneTest, ShowsTheWholeVehicleFromEverySide)
{
    const korvat::Bounds boxes[] = {{{-1.5f, 0, -12}, {1.5f, 4, 12}}, {{-9, -1, -2}, {3, 8, 2}}};
    for (const korvat::Bounds &box : boxes)
        for (const float ratio : {0.5f, 1.0f, 2.0f, 5.0f})
            for (const float turn : {-3.0f, 0.0f, 0.7f, 1.57f})
                for (const float tilt : {0.0f, 0.3f, 1.4f}) {
                    const viewer::CameraPose pose = viewer::PoseToShow(box, {turn, tilt, 1}, ratio);
                    studio.SetCamera(pose.CamX, pose.CamY, pose.CamZ, pose.LookAtX, pose.LookAtY,
                                     pose.LookAtZ);
                    const korvat::FrameSetup setup =
                        studio.renderer().Setup(static_cast<int>(1000 * ratio), 1000);
                    float farthest = 0;
                    for (int corner = 0; corner < 8; ++corner) {
                        const korvat::Vec3 seen =
                            korvat::TransformPoint({corner & 1 ? box.most.x : box.least.x,
                                                    corner & 2 ? box.most.y : box.least.y,
                                                    corner & 4 ? box.most.z : box.least.z},
                                                   setup.view);
                        ASSERT_GT(seen.z, 0);
                        farthest = std::max(
                            {farthest, std::abs(seen.x / seen.z * setup.projection.At(0, 0)),
                             std::abs(seen.y / seen.z * setup.projection.At(1, 1))});
                    }
                    ASSERT_LT(farthest, 0.97f) << ratio << ' ' << turn << ' ' << tilt;
                    ASSERT_GT(farthest, 0.9f) << ratio << ' ' << turn << ' ' << tilt;
                }
}

TEST_F(VehicleSceneTest, ShowsOnlyTheVehicle)
{
    scene.Load(stock("box.wag"), {});
    scene.Look({}, 2);
    const korvat::FrameSetup setup = studio.renderer().Setup(200, 100);
    EXPECT_FALSE(setup.hasSky);
    const float bright = setup.horizon.g;
    scene.SetDark(true);
    scene.Look({}, 2);
    EXPECT_LT(studio.renderer().Setup(200, 100).horizon.g, bright / 2);
    studio.BeginFrame();
    EXPECT_TRUE(studio.renderer().Coming().empty()) << "neither ground nor track";
}

} // namespace
