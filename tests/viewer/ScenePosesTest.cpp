// SPDX-License-Identifier: MIT
// What the options of a 3D window move, hide and list.
#include "viewer/ScenePoses.h"

#include "Scene.h"
#include "stavfile/StfFile.h"
#include "viewer/Stage.h"

#include <numbers>

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

class ScenePosesTest : public SceneTest
{
protected:
    ScenePosesTest()
    {
        shapes.joints = {{"Main", -1, false, {}, {}, {}, 0},
                         {"WHEELS1", 0, true, {{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 0}}, {}, {}, 0}};
        writeStock("Cars", "Known.wag", "3 4 10 ) WheelRadius ( 500mm", "known.s");
        writeStock("Cars", "Unknown.wag", "3 4 10 ) WheelRadius ( 90m", "unknown.s");
    }
    void load(const std::string &units)
    {
        file.LoadBytes("Train ( TrainCfg ( x " + units + " ) )");
        stage.RenderLooseConsist(file.FindNode("Train").Child("TrainCfg"), game.Path(), "x.act");
        while (stage.Step())
            continue;
    }
    static std::string wagon(const std::string &name, const char *flip = "")
    {
        return "Wagon ( WagonData ( " + name + " Cars ) " + flip + " ) ";
    }
    viewer::ViewOptions options(const std::function<void(viewer::ViewOptions &)> &change)
    {
        viewer::ViewOptions wanted = stage.Options();
        change(wanted);
        canvas.renderer.Begin();
        stage.SetOptions(wanted);
        return wanted;
    }
    korvat::PosePtr poseOf(std::size_t place) { return canvas.renderer.Coming().at(place).pose; }
    /// Returns how far forwards the top of a wheel of one metre has gone.
    float topOf(std::size_t place)
    {
        const korvat::PosePtr pose = poseOf(place);
        return pose ? korvat::TransformPoint({0, 2, 0}, pose->moved.at(1)).z : 0;
    }

    viewer::Stage stage{environment, &canvas, [](const std::string &) {}};
    StfFile file{files};
};

} // namespace

TEST_F(ScenePosesTest, WheelsRollWithTheSpeedByTheirRadius)
{
    load(wagon("Known") + wagon("Known") + wagon("Known", "Flip ( )") + wagon("Unknown"));
    canvas.renderer.Begin();
    stage.Roll(1);
    EXPECT_TRUE(canvas.renderer.Coming().empty()) << "no frame without a speed";
    options([](viewer::ViewOptions &wanted) { wanted.speed = 2; });
    EXPECT_FALSE(poseOf(0)) << "at rest in the first frame";
    canvas.renderer.Begin();
    stage.Roll(kPi / 8); // a quarter of the circumference of the known wheels
    EXPECT_NEAR(topOf(0), 1, 1e-4);
    EXPECT_NEAR(topOf(1), 1, 1e-4);
    EXPECT_NEAR(topOf(2), -1, 1e-4) << "a flipped vehicle rolls backwards";
    EXPECT_NEAR(topOf(3), std::sin(kPi / 4), 1e-4) << "an eighth: the axle is one metre high";
    canvas.renderer.Begin();
    stage.Roll(kPi / 8);
    EXPECT_NEAR(topOf(0), 0, 1e-4) << "half a turn";
    options([](viewer::ViewOptions &wanted) { wanted.speed = 0; });
    EXPECT_FALSE(poseOf(0)) << "at rest again";
}

TEST_F(ScenePosesTest, HidesAndListsTheParts)
{
    load(wagon("Known") + wagon("Known") + wagon("Unknown"));
    const std::vector<viewer::ShapeParts> parts = stage.Parts();
    ASSERT_EQ(parts.size(), 2U) << "each shape once";
    ASSERT_EQ(parts[0].parts.size(), 2U);
    EXPECT_EQ(parts[0].parts[1].name, "WHEELS1");
    EXPECT_EQ(parts[0].parts[1].parent, 0);
    EXPECT_TRUE(parts[0].parts[1].drawn && !parts[0].parts[0].drawn);
    options([&](viewer::ViewOptions &wanted) {
        wanted.hiddenParts = {viewer::PartKey(parts[0].file, "wheels1")};
    });
    for (const std::size_t place : {0, 1}) {
        ASSERT_TRUE(poseOf(place));
        EXPECT_EQ(poseOf(place)->hidden, (std::vector<bool>{false, true}));
    }
    EXPECT_FALSE(poseOf(2)) << "a part of that name in another shape";
    options([](viewer::ViewOptions &wanted) { wanted.hiddenParts.clear(); });
    EXPECT_FALSE(poseOf(0));
}

TEST_F(ScenePosesTest, ShowsAndListsTheLevels)
{
    shapes.levels = {100, 500};
    load(wagon("Known"));
    shapes.levels = {200, 300, 2000};
    load(wagon("Known") + wagon("Unknown"));
    shapes.levels = {100, 500};
    EXPECT_EQ(stage.Levels(),
              (std::vector<viewer::LevelDistances>{{200, 200}, {300, 300}, {2000, 2000}}));
    options([](viewer::ViewOptions &wanted) { wanted.level = 1; });
    EXPECT_EQ(shapes.levelsRead, "") << "the first one is there";
    options([](viewer::ViewOptions &wanted) { wanted.level = 2; });
    EXPECT_EQ(shapes.levelsRead, "2 2 ");
    options([](viewer::ViewOptions &wanted) { wanted.level = 9; });
    options([](viewer::ViewOptions &wanted) { wanted.level = 2; });
    EXPECT_EQ(shapes.levelsRead, "2 2 3 3 ") << "each level once, up to the last one";
    options([](viewer::ViewOptions &wanted) { wanted.level = 0; });
    EXPECT_EQ(canvas.renderer.Coming().at(0).model.get(),
              stage.View()->Models.Item(1).Model().Loaded());
}

TEST_F(ScenePosesTest, ReportNamesWhatIsIncomplete)
{
    shapes.faults = {"the animation has no keys", "there are no levels of detail"};
    load(wagon("Known") + wagon("Known"));
    const std::string report = stage.Report();
    EXPECT_NE(report.find("\r\n\r\nIncomplete: 2\r\n1\tknown.s: the animation has no keys\r\n"
                          "2\tknown.s: there are no levels of detail"),
              std::string::npos)
        << report;
    shapes.faults.clear();
    load(wagon("Unknown"));
    EXPECT_EQ(stage.Report().find("Incomplete"), std::string::npos);
}
