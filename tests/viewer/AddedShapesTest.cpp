// SPDX-License-Identifier: MIT
// Tests the shapes that vehicles add to a scene: loads, couplers and hoses.
#include "Scene.h"
#include "content/HealthSettings.h"

#include <cmath>
#include <cstdio>

namespace {

class AddedShapesTest : public TrainTest
{
protected:
    AddedShapesTest()
    {
        for (const char *name : {"box", "coal", "crate", "hook", "open", "hose"}) {
            writeShape(std::string(name) + ".s");
            shapes.textures[std::string(name) + ".s"] = {name};
        }
        writeCar("Coal.wag", "10m", "FreightAnim ( coal.s 1 1 )");
        writeCar(
            "Crate.wag", "20m",
            "FreightAnim ( coal.s 1 1 )\nORTSFreightAnims ( FreightAnimStatic ( "
            "Shape ( crate.s ) Offset ( 1 2 3 ) ) )\nCoupling ( FrontCouplerAnim ( hook.s 0 1 0 ) "
            "FrontCouplerOpenAnim ( open.s 0 1 0 ) RearCouplerAnim ( hook.s 0 1 0.5 ) "
            "RearAirHoseAnim ( hose.s 0.5 1 0 ) )");
        writeCar(
            "Torn.wag", "10m",
            "FreightAnim ( gone.s 1 1 )\nFreightAnim ( bad.s 1 1 )\nFreightAnim ( worn.s 1 1 )");
        writeShape("bad.s");
        writeShape("worn.s");
        shapes.textures["worn.s"] = {"gone.ace"};
    }
    void choose(content::Profile profile)
    {
        content::KeepProfiles(settings, installation.CurrentFolder(), profile);
    }
    /// Returns the models of a frame with their places, and "<" for those that face backwards.
    std::string frame()
    {
        canvas.renderer.Clear();
        stage.View()->ShowModels();
        std::string text;
        for (const korvat::Renderer::Placed &placed : canvas.renderer.Coming()) {
            const korvat::Vec3 at = korvat::TransformPoint({}, placed.world);
            const auto rounded = [](float value) { return std::round(value * 100) / 100 + 0.0; };
            char place[64];
            std::snprintf(place, sizeof place, " %g,%g,%g", rounded(at.x), rounded(at.y),
                          rounded(at.z));
            const bool ahead = korvat::TransformDirection({0, 0, 1}, placed.world).z > 0;
            text += (text.empty() ? "" : "; ") + placed.model->textures.at(0) + place +
                    (ahead ? "" : "<");
        }
        return text;
    }
};

} // namespace

TEST_F(AddedShapesTest, MoveAndTurnWithTheirVehicles)
{
    const struct
    {
        const char *wagons, *msts, *openRails;
    } rows[] = {
        {"Coal Coal*", "box 0,0,-5; coal 0,0,-5; box 0,0,-15<; coal 0,0,-15<",
         "box 0,0,-5; coal 0,0,-5; box 0,0,-15<; coal 0,0,-15<"},
        {"Crate", "box 0,0,-10; coal 0,0,-10",
         "box 0,0,-10; coal 0,0,-10; crate 1,2,-7; open 0,1,0; hook 0,1,-20.5<"},
        {"Crate*", "box 0,0,-10<; coal 0,0,-10<",
         "box 0,0,-10<; coal 0,0,-10<; crate -1,2,-13<; open 0,1,-20<; hook 0,1,0.5"},
        {"Coal Crate Gone", "box 0,0,-5; coal 0,0,-5; box 0,0,-20; coal 0,0,-20",
         "box 0,0,-5; coal 0,0,-5; box 0,0,-20; coal 0,0,-20; crate 1,2,-17; hook 0,1,-10; "
         "hook 0,1,-30.5<; hose -0.5,1,-30<"},
    };
    for (const auto &row : rows) {
        choose(content::Profile::Msts);
        load(row.wagons);
        EXPECT_EQ(frame(), row.msts) << row.wagons;
        choose(content::Profile::OpenRails);
        load(row.wagons);
        EXPECT_EQ(frame(), row.openRails) << row.wagons;
    }
}

TEST_F(AddedShapesTest, DependOnTheSimulatorThatTheUserChose)
{
    game.Write(
        "Trains/Trainset/Cars/OpenRails/Coal.wag",
        "\r\ninclude ( ../Coal.wag )\r\nWagon ( Size ( 3m 4m 30m ) WagonShape ( crate.s ) )");
    game.Write("Trains/Trainset/Cars/OpenRails/New.wag",
               "\r\nWagon ( y Size ( 3m 4m 6m ) WagonShape ( hook.s ) )");
    load("Coal");
    EXPECT_EQ(frame(), "box 0,0,-5; coal 0,0,-5") << "MSTS, as long as nothing is chosen";
    content::KeepProfiles(settings, installation.CurrentFolder(), content::Profiles::Both());
    load("Coal New");
    EXPECT_EQ(frame(), "crate 0,0,-15; coal 0,0,-15; hook 0,0,-33");
    EXPECT_FLOAT_EQ(stage.TrainEnd(), -36);
    EXPECT_EQ(viewer::ReadVehicleToShow(environment, car("Coal.wag")).shapeFile,
              game.Shown("Trains/Trainset/Cars/crate.s"));
    choose(content::Profile::Msts);
    stage.ShowAllAdded();
    load("Coal Crate");
    EXPECT_EQ(frame(), "box 0,0,-5; coal 0,0,-5; box 0,0,-20; coal 0,0,-20; crate 1,2,-17; "
                       "hook 0,1,-10; hook 0,1,-30.5<")
        << "the vehicles of MSTS with everything that is added to them";
}

TEST_F(AddedShapesTest, HiddenLoadsLeaveVehiclesCouplersAndCountsAlone)
{
    choose(content::Profile::OpenRails);
    load("Crate Coal");
    const std::string report = stage.Report();
    EXPECT_EQ(report, "All Consist Textures\r\n\r\nItem 1 Textures: 1\r\n1\tbox\r\n\r\n"
                      "Item 2 Textures: 1\r\n1\tbox\r\n\r\nAdded Shapes: 5\r\n\r\n"
                      "coal.s (2 times) Textures: 1\r\n1\tcoal\r\n\r\n"
                      "crate.s Textures: 1\r\n1\tcrate\r\n\r\nopen.s Textures: 1\r\n1\topen\r\n\r\n"
                      "hook.s Textures: 1\r\n1\thook\r\n\r\nhose.s Textures: 1\r\n1\those");
    canvas.TakeLog();
    stage.ShowLoads(false);
    EXPECT_EQ(canvas.TakeLog(), "begin end yield ") << "one frame, and the camera stays";
    EXPECT_EQ(frame(), "box 0,0,-10; open 0,1,0; hook 0,1,-20.5<; hose -0.5,1,-20<; box 0,0,-25");
    EXPECT_EQ(stage.View()->Models.Count(), 2);
    EXPECT_EQ(stage.Report(), report);
    view("box.s", "Coal.wag");
    EXPECT_EQ(frame(), "box 0,0,0") << "hidden in the next scene too";
    stage.ShowLoads(true);
    EXPECT_EQ(frame(), "box 0,0,0; coal 0,0,0");
    TSViewObject &object = stage.View()->Models.Item(1);
    object.Flash();
    EXPECT_EQ(object.NumTextures(), 1);
    EXPECT_EQ(object.Model().GetTexture(0), nullptr);
    EXPECT_NE(object.AddedShapes()[0].model.GetTexture(0), nullptr) << "only the vehicle flashes";
}

TEST_F(AddedShapesTest, OfASingleShapeComeFromItsVehicle)
{
    choose(content::Profile::OpenRails);
    view("box.s", "Crate.wag");
    EXPECT_EQ(frame(), "box 0,0,0; coal 0,0,0; crate 1,2,3; open 0,1,10; hook 0,1,-10.5<");
    view("box.s");
    EXPECT_EQ(frame(), "box 0,0,0");
    EXPECT_EQ(stage.Report(), "Shape Textures: 1\r\n1\tbox");
    view("box.s", "Gone.wag");
    EXPECT_EQ(frame(), "box 0,0,0");
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(AddedShapesTest, WhatIsMissingIsReportedOnceAndTheRestIsDrawn)
{
    const std::string missing =
        game.Shown("Trains/Trainset/Cars/Torn.wag") + ", line 5: gone.s is missing";
    const std::string reasons = "\r\n\r\nNot loaded: 3\r\n1\t" + missing +
                                "\r\n2\tbad.s: nothing but holes\r\n3\tgone.ace is missing";
    shapes.textures["worn.s"] = {"gone.ace"};
    load("Torn Torn");
    EXPECT_EQ(stage.View()->Models.Count(), 2);
    EXPECT_EQ(frame(), "box 0,0,-5; gone.ace 0,0,-5; box 0,0,-15; gone.ace 0,0,-15");
    EXPECT_EQ(dialogs.Log(), "") << "no message box for what is only added";
    EXPECT_EQ(status, "Done. " + missing + " (and 2 more)");
    const std::string report = stage.Report();
    EXPECT_TRUE(report.ends_with("worn.s (2 times) Textures: 1\r\n1\tgone.ace" + reasons))
        << report;
    view("box.s", "Torn.wag");
    EXPECT_EQ(stage.Report(), "Shape Textures: 1\r\n1\tbox\r\n\r\nAdded Shapes: 1\r\n\r\n"
                              "worn.s Textures: 1\r\n1\tgone.ace" +
                                  reasons);
}
