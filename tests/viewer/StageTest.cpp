// SPDX-License-Identifier: MIT
#include "viewer/Stage.h"

#include "Scene.h"
#include "host/Disk.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "korvat/TestShape.h"
#include "korvat/model/ModelLibrary.h"
#include "stavfile/StfFile.h"
#include "viewer/Numbers.h"
#include "viewer/OrbitCamera.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <thread>

namespace {

class StageTest : public SceneTest
{
protected:
    StageTest()
    {
        shapes.textures["box.s"] = {"side.ace"};
        writeStock("Cars", "Box10.wag", "3m 4m 10m", "box.s");
        writeStock("Cars", "Box20.wag", "3 4 20.5m", "box.s");
        writeStock("My Cars", "Loco.eng", "3 4 16", "loco.s");
        writeStock("Cars", "Unsized.wag", "3 4", "box.s");
        writeStock("Cars", "Worded.wag", "3 4 long", "box.s");
        writeStock("Cars", "Broken.wag", "3 4 10", "bad.s");
        writeStock("Cars", "Heavy.wag", "3 4 10", "heavy.s");
        writeStock("Cars", "Odd.wag", "3 4 10", "odd.s");
        writeStock("Cars", "Painted.wag", "3 4 10", "painted.s");
        shapes.textures["painted.s"] = {"heavy.ace"};
        writeStock("Cars", "Shapeless.wag", "3 4 10", "");
        writeStock("Cars", "Long.wag", "3 4 40000", "box.s");
        writeStock("Cars", "Endless.wag", "3 4 1e99", "box.s");
    }
    /// Returns the TrainCfg block of these units. Each is a word such as "Box10" or "Box10*"
    /// (flipped), or a literal block if it contains a bracket.
    StfNode train(const std::vector<std::string> &units)
    {
        std::string text = "Train ( TrainCfg ( \"Morning Freight\" Name ( x )\n";
        for (const std::string &unit : units) {
            const bool flipped = unit.ends_with('*');
            const std::string name = flipped ? unit.substr(0, unit.size() - 1) : unit;
            text += unit.find('(') != unit.npos ? unit
                                                : "Wagon ( WagonData ( " + name + " Cars )" +
                                                      (flipped ? " Flip ( )" : "") + " )\n";
        }
        file.LoadBytes(text + ") )");
        return file.FindNode("Train").Child("TrainCfg");
    }
    void load(const std::vector<std::string> &units)
    {
        stage.RenderLooseConsist(train(units), game.Path(), "x.act");
        while (stage.Step())
            continue;
    }
    /// Returns the places of the objects' origins along the track, with ">" or "<" for their
    /// direction.
    std::string places()
    {
        std::string text;
        for (int place = 1; place <= stage.View()->Models.Count(); ++place) {
            const korvat::Transform &world = stage.View()->Models.Item(place).Model().WorldMatrix();
            const float z = korvat::TransformPoint({}, world).z;
            const bool ahead = korvat::TransformDirection({0, 0, 1}, world).z > 0;
            char number[32];
            std::snprintf(number, sizeof number, "%s%g%s", text.empty() ? "" : " ",
                          static_cast<double>(std::round(z * 1000) / 1000), ahead ? ">" : "<");
            text += number;
        }
        return text;
    }

    std::string status;
    viewer::Stage stage{environment, &canvas, [this](const std::string &text) { status = text; }};
    StfFile file{files};
};

} // namespace

TEST_F(StageTest, VehiclesStandEndToEnd)
{
    const struct
    {
        std::vector<std::string> units;
        const char *places;
        float end;
        const char *log;
    } rows[] = {
        {{"Box10", "Box20"}, "-5> -20.25>", -30.5f, ""},
        {{"Box10*"}, "-5<", -10, ""},
        {{"Box10", "Box10*", "Box20*"}, "-5> -15< -30.25<", -40.5f, ""},
        {{"Engine ( EngineData ( Loco My Cars ) )", "Box10"}, "-8> -21>", -26, ""},
        {{"Engine ( EngineData ( loco \"my cars\" ) Flip ( ) )"}, "-8<", -16, ""},
        {{"Unsized", "Unsized*", "Box10"}, "-4> -12< -21>", -26, ""},
        {{"Worded", "Box10"}, "0> -5>", -10, ""},
        {{"Box10", "Missing", "Box10"}, "-5> -15>", -20, "LoadShape|Missing.wag does not exist!\n"},
        {{"Broken", "Box10"}, "-15>", -20, "Error Loading Shape|bad.s: nothing but holes\n"},
        {{"Missing", "Broken", "Missing", "Broken"},
         "",
         -20,
         "LoadShape|Missing.wag does not exist!\nError Loading Shape|bad.s: nothing but holes\n"},
        {{"Heavy", "Odd", "Painted", "Box10"},
         "-35>",
         -40,
         "Error Loading Shape|heavy.s: there is not enough memory to load the shape\n"
         "Error Loading Shape|odd.s: an odd number of corners\n"
         "Error Loading Shape|painted.s: there is not enough memory to load the shape\n"},
        {{"Shapeless", "Box10"},
         "-15>",
         -20,
         "Error Loading Shape|Shapeless.wag: there is no WagonShape in Wagon\n"},
        {{"Endless", "Box10"},
         "-5>",
         -10,
         "Error Loading Shape|Endless.wag: the length is 1e99, which is too large\n"},
        {{"Wagon ( UiD ( 1 ) )", "Box10"},
         "-5>",
         -10,
         "Error Loading Shape|line 2: Wagon has no block WagonData\n"},
        {{"Comment2 ( x )"}, "", 0, ""},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.units));
        load(row.units);
        EXPECT_EQ(places(), row.places);
        EXPECT_FLOAT_EQ(stage.TrainEnd(), row.end);
        EXPECT_FLOAT_EQ(canvas.camera[2], row.end / 2) << "the camera is at the middle";
        std::string log = dialogs.TakeLog();
        for (const std::string &folder :
             {host::path::Normalise(game.At("Trains/Trainset/Cars")) + host::path::kSeparator,
              std::string("critical|")})
            for (std::size_t at; (at = log.find(folder)) != log.npos;)
                log.erase(at, folder.size());
        EXPECT_EQ(log, row.log);
        EXPECT_EQ(status, "Done");
    }
}

TEST_F(StageTest, TurningWhileLoadingKeepsTheDistanceToTheTrain)
{
    stage.RenderLooseConsist(train({"Box10", "Box20"}), game.Path(), "x.act");
    ASSERT_TRUE(stage.Step());
    viewer::OrbitCamera(*stage.View()).Orbit(150, 0);
    viewer::OrbitCamera(*stage.View()).Pan(1, 0);
    const viewer::CameraPose turned = *stage.View();
    ASSERT_GT(turned.CamZ - turned.LookAtZ, 6);
    while (stage.Step())
        continue;
    const viewer::CameraPose &now = *stage.View();
    EXPECT_FLOAT_EQ(now.LookAtZ, -15.25f);
    EXPECT_FLOAT_EQ(now.CamZ - now.LookAtZ, turned.CamZ - turned.LookAtZ);
    EXPECT_FLOAT_EQ(now.CamX, turned.CamX);
}

TEST_F(StageTest, ScrollBarMovesAlongTheTrain)
{
    load({"Box10", "Box20"});
    EXPECT_EQ(stage.ScrollMaximum(), 31);
    EXPECT_EQ(stage.ScrollMiddle(), 15);
    EXPECT_TRUE(stage.View()->Models.Item(1).Selected());
    EXPECT_FALSE(stage.View()->Models.Item(2).Selected());
    EXPECT_EQ(stage.Caption(), "Loose Consist - Morning Freight");
}

TEST_F(StageTest, TrainTooLongForTheScrollBarIsAnErrorButIsShown)
{
    const struct
    {
        std::vector<std::string> units;
        int steps; ///< after which it is stopped
        const char *places;
        float middle;
    } rows[] = {
        {{"Long"}, 9, "-20000>", -20000},
        {{"Long", "Box10*", "Long"}, 9, "-20000> -40005< -60010>", -40005},
        {{"Long", "Box10", "Long"}, 1, "-20000>", -20000},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.middle);
        try {
            stage.RenderLooseConsist(train(row.units), game.Path(), "x.act");
            for (int step = 0; step < row.steps && stage.Step(); ++step)
                continue;
            stage.Stop();
            FAIL() << "40 km do not fit";
        } catch (const host::RuntimeError &error) {
            EXPECT_EQ(error.Number(), 6);
            EXPECT_EQ(std::string(error.what()).find("the length of the train in metres"), 0u)
                << error.what();
        }
        EXPECT_FALSE(stage.Loading());
        EXPECT_FALSE(stage.Step()) << "there is no further step";
        EXPECT_EQ(places(), row.places);
        EXPECT_FLOAT_EQ(canvas.camera[2], row.middle);
        EXPECT_EQ(stage.ScrollMaximum(), 0);
        EXPECT_EQ(stage.ScrollMiddle(), 0) << "also if half of it would not fit";
    }
}

TEST_F(StageTest, StepsShowTheVehiclesLoadedSoFar)
{
    stage.RenderLooseConsist(train({"Box10", "Box10"}), game.Path(), "x.act");
    EXPECT_EQ(canvas.TakeLog(), "start rendering camera begin end yield near50 far600 ");
    EXPECT_EQ(canvas.camera, (std::array<float, 6>{10, 2, 0, 0, 2, 0}));
    EXPECT_TRUE(stage.Step());
    EXPECT_EQ(canvas.TakeLog(), "begin end yield ");
    EXPECT_EQ(stage.Done(), 1);
    EXPECT_EQ(stage.Total(), 2);
    stage.Stop();
    EXPECT_FALSE(stage.Step());
    EXPECT_EQ(status, "Stopped after 1 of 2 vehicles");
    EXPECT_EQ(stage.ScrollMaximum(), 10) << "the loaded part is a train";
    stage.Close();
    EXPECT_EQ(stage.View(), nullptr);
    EXPECT_EQ(traceLines(), "> tsview\n> tsviewobject\n< tsviewobject\n< tsview\n");
}

TEST_F(StageTest, ReadsVehiclesAheadWithoutReporting)
{
    const auto becomesReady = [this] {
        for (int i = 0; i < 5000 && !stage.Ready(); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return stage.Ready();
    };
    {
        const std::lock_guard held(shapes.mutex);
        stage.RenderLooseConsist(train({"Box10", "Missing", "Broken", "Box20"}), game.Path(), "");
        EXPECT_FALSE(stage.Ready()) << "a step would wait";
    }
    EXPECT_TRUE(becomesReady());
    EXPECT_EQ(dialogs.Log(), "");
    EXPECT_EQ(places(), "") << "the scene does not know of it";
    while (becomesReady() && stage.Step())
        continue;
    EXPECT_EQ(places(), "-5> -30.25>");
    EXPECT_TRUE(stage.Ready()) << "there is nothing to wait for";
    stage.RenderShape(game.At("Trains/Trainset/Cars/box.s"));
    EXPECT_TRUE(becomesReady());
    stage.RenderLooseConsist(train({"Box10", "Box10"}), game.Path(), "");
    stage.Close(); // while it is being read
    EXPECT_TRUE(stage.Ready());
}

TEST_F(StageTest, ShowsConsistFilesAndReportsTheirFaults)
{
    const auto render = [this](const std::string &content) {
        const std::string path = game.Write("Trains/Consists/a.con", content);
        try {
            stage.RenderConsist(path, game.Path());
            while (stage.Step())
                continue;
        } catch (const host::RuntimeError &error) {
            EXPECT_EQ(status, error.what());
            std::string what = error.what();
            if (const auto at = what.find(path); at != what.npos)
                what.replace(at, path.size(), "a.con");
            return what;
        }
        return stage.Caption() + places();
    };
    EXPECT_EQ(render("Train ( TrainCfg ( \"A B\" Wagon ( WagonData ( Box10 Cars ) ) ) )"),
              "Consist - A B-5>");
    EXPECT_EQ(render("Train ( TrainCfg ( x ) )"), "No consist to display: a.con (x)");
    EXPECT_EQ(render("Train ( TrainCfg ( ) )"), "No consist to display: a.con");
    EXPECT_EQ(render("Train ( )"), "a.con, line 1: Train has no block TrainCfg");
    EXPECT_EQ(render("Wagon ( )"), "a.con: there is no Train block");
}

TEST_F(StageTest, PropertiesListTheTextures)
{
    shapes.textures["box.s"] = {"side.ace", "gone.ace"};
    load({"Box10", "Engine ( EngineData ( Loco My Cars ) )"});
    EXPECT_EQ(stage.Report(), "All Consist Textures\r\n\r\nItem 1 Textures: 2\r\n1\tside.ace\r\n"
                              "2\tgone.ace\r\n\r\nItem 2 Textures: 0");
    EXPECT_EQ(status, "Done. gone.ace is missing");
    stage.RenderShape(game.At("Trains/Trainset/Cars/box.s"));
    while (stage.Step())
        continue;
    EXPECT_EQ(stage.Report(), "Shape Textures: 2\r\n1\tside.ace\r\n2\tgone.ace");
    EXPECT_EQ(places(), "0>");
    EXPECT_EQ(stage.ScrollMaximum(), 0);
    stage.RenderShape(game.At("bad.s"));
    while (stage.Step())
        continue;
    EXPECT_EQ(stage.Report(), "") << "no shape, no report";
    EXPECT_EQ(status, "Done");
}

TEST_F(StageTest, PropertiesEndWithTheFilesThatCouldNotBeLoaded)
{
    const std::string folder =
        host::path::Normalise(game.At("Trains/Trainset/Cars")) + host::path::kSeparator;
    const std::string missing = "\r\n\r\nNot loaded: 3\r\n1\t" + folder +
                                "Gone.wag does not exist!\r\n2\tbad.s: nothing but holes\r\n3\t" +
                                folder + "Lost.wag does not exist!";
    const auto boxes = [this] {
        const std::string log = dialogs.TakeLog();
        return std::count(log.begin(), log.end(), '\n');
    };
    const std::vector<std::string> units = {"Gone", "GONE", "Broken", "Lost", "Gone"};
    load(units);
    EXPECT_EQ(stage.Report(), "All Consist Textures" + missing);
    EXPECT_EQ(boxes(), 3) << "one for each file";
    dialogs.Answer(host::DialogAnswer::Ok);
    dialogs.Answer(host::DialogAnswer::Cancel);
    load(units);
    EXPECT_EQ(boxes(), 2) << "none after the one that was dismissed";
    EXPECT_EQ(stage.Report(), "All Consist Textures" + missing);
    load({"Box10", "Gone"});
    EXPECT_EQ(boxes(), 1) << "the next load starts again";
    EXPECT_EQ(stage.Report(), "All Consist Textures\r\n\r\nItem 1 Textures: 1\r\n1\tside.ace\r\n"
                              "\r\nNot loaded: 1\r\n1\t" +
                                  folder + "Gone.wag does not exist!");
}

TEST_F(StageTest, ReloadsWhatChangedAndKeepsTheCamera)
{
    korvat::ModelLibrary library(files);
    const install::Environment real{dialogs, files, settings, installation, library};
    viewer::Stage shown(real, &canvas, [this](const std::string &text) { status = text; });
    const auto change = [this](const std::string &name, const std::string &bytes) {
        const std::string path = game.At("Trains/Trainset/Cars/" + name);
        const auto before = host::disk::StampOf(path);
        do // until the file system's clock has moved on
            game.Write("Trains/Trainset/Cars/" + name, bytes);
        while (host::disk::StampOf(path) == before);
    };
    const auto model = [&shown](int place) {
        return shown.View()->Models.Item(place).Model().Loaded();
    };
    const auto texture = [&shown](int place) {
        return shown.View()->Models.Item(place).Model().GetTexture(0);
    };
    change("box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 9, 3)}));
    change("side.dds", LetterFile());
    writeStock("Cars", "Other.wag", "3 4 10", "other.s");
    change("other.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 5, 3)}));
    shown.RenderLooseConsist(train({"Box10", "Other", "Box10", "Missing"}), game.Path(), "x.act");
    while (shown.Step())
        continue;
    ASSERT_EQ(shown.View()->Models.Count(), 3);
    EXPECT_FALSE(shown.FollowChanges()) << "nothing has changed";
    viewer::OrbitCamera(*shown.View()).Orbit(100, 0);
    const viewer::CameraPose pose = *shown.View();
    const auto box = model(1), other = model(2);
    const korvat::TexturePtr side = texture(1);
    dialogs.TakeLog();
    canvas.TakeLog();

    change("box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 4, 3)}));
    EXPECT_TRUE(shown.FollowChanges());
    EXPECT_FALSE(shown.Loading());
    EXPECT_NE(model(1), box);
    EXPECT_EQ(model(1), model(3)) << "all vehicles of the shape";
    EXPECT_EQ(model(2), other) << "the others are not read";
    EXPECT_EQ(texture(1), side);
    EXPECT_EQ(canvas.TakeLog(), "begin end yield ") << "one frame, and the camera stays";

    const korvat::Model *good = model(1);
    const auto keeps = [&](const char *name, const std::string &bytes) {
        change(name, bytes);
        EXPECT_TRUE(shown.FollowChanges()) << name;
        EXPECT_EQ(model(1), good) << name;
        EXPECT_EQ(texture(1), side) << name;
        EXPECT_NE(status.find("; the view keeps what it could read last."), std::string::npos)
            << status;
    };
    keeps("side.dds", LetterFile().substr(0, 100));
    keeps("side.dds", "");
    keeps("box.s", "SIMISA@");
    std::filesystem::remove(game.At("Trains/Trainset/Cars/box.s"));
    EXPECT_TRUE(shown.FollowChanges());
    EXPECT_EQ(model(1), good) << "editors replace files when they save";
    change("box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 6, 3)}));
    change("side.dds", LetterFile());
    EXPECT_TRUE(shown.FollowChanges());
    EXPECT_NE(model(1), good);
    EXPECT_NE(texture(1), side);
    EXPECT_EQ(status, "The files have changed; the view shows their new content.");
    EXPECT_EQ(dialogs.TakeLog(), "");
    EXPECT_NE(shown.Report().find("Not loaded: 1"), std::string::npos) << "still missing";
    EXPECT_EQ(static_cast<const viewer::CameraPose &>(*shown.View()), pose);
}

TEST_F(StageTest, ChangedStockFileArrangesTheTrainAgain)
{
    load({"Box10", "Box20"});
    viewer::OrbitCamera(*stage.View()).Orbit(100, 0);
    const viewer::CameraPose pose = *stage.View();
    canvas.TakeLog();
    writeStock("Cars", "Box10.wag", "3m 4m 30.5m", "box.s");
    ASSERT_TRUE(stage.FollowChanges());
    EXPECT_EQ(canvas.TakeLog(), "") << "the picture stays while the train is loading";
    EXPECT_TRUE(stage.Loading());
    while (stage.Step())
        continue;
    EXPECT_EQ(canvas.TakeLog(), "camera begin end yield ");
    EXPECT_EQ(places(), "-15.25> -40.75>");
    EXPECT_EQ(stage.ScrollMaximum(), 51);
    EXPECT_EQ(static_cast<const viewer::CameraPose &>(*stage.View()), pose);
    std::filesystem::remove(game.At("Trains/Trainset/Cars/Box10.wag"));
    ASSERT_TRUE(stage.FollowChanges());
    while (stage.Step())
        continue;
    EXPECT_EQ(stage.View()->Models.Count(), 1);
    EXPECT_EQ(dialogs.TakeLog(), "") << "a reload shows no message boxes";
    EXPECT_EQ(traceLines(),
              "> tsview\n> tsviewobject\n> tsviewobject\n< tsviewobject\n< tsviewobject\n"
              "> tsviewobject\n> tsviewobject\n< tsviewobject\n< tsviewobject\n> tsviewobject\n");
}

TEST(NumbersTest, ReadsTheNumberAtTheBeginningOfTheText)
{
    const struct
    {
        const char *text;
        float number;
    } rows[] = {{"25.038m", 25.038f}, {"1in", 1},   {" 12", 12}, {"-3.5", -3.5f}, {"+4", 4},
                {"1e2", 100},         {".5", 0.5f}, {"", 0},     {"m12", 0},      {"inf", 0},
                {"nan", 0},           {"-inf", 0},  {"1,5", 1},  {"5.", 5},       {"+-2", 0}};
    for (const auto &row : rows)
        EXPECT_FLOAT_EQ(viewer::LeadingNumber(row.text), row.number) << row.text;
    EXPECT_THROW(viewer::LeadingNumber("1e99"), host::RuntimeError);
    EXPECT_EQ(viewer::Rounded16(32767.4f, ""), 32767);
    EXPECT_THROW(viewer::Rounded16(32767.6f, ""), host::RuntimeError);
}

TEST_F(StageTest, OnlyVehiclesStandOnATrack)
{
    const auto groundOf = [this](const std::string &shape, const std::string &vehicle) {
        stage.RenderShape(shape, vehicle);
        while (stage.Step())
            continue;
        return canvas.ground == korvat::Ground::Plain ? "plain" : "track";
    };
    const std::string hut = game.Write("Routes/R/Shapes/hut.s", "");
    game.Write("Routes/R/Shapes/hut.sd", "");
    game.Write("Routes/R/Shapes/hut2.eng", "");
    const std::string wagon = game.Write("Trains/Trainset/Cars/own.s", "");
    game.Write("Trains/Trainset/Cars/OWN.WAG", "");
    EXPECT_STREQ(groundOf(hut, ""), "plain");
    EXPECT_STREQ(groundOf(wagon, ""), "track") << "a vehicle of its name is beside it";
    EXPECT_STREQ(groundOf(hut, game.At("Routes/R/Shapes/hut2.eng")), "track");
    EXPECT_STREQ(groundOf(hut, ""), "plain");
    stage.RenderLooseConsist(train({"Box10"}), game.Path(), "");
    EXPECT_EQ(canvas.ground, korvat::Ground::Track);
}
