// SPDX-License-Identifier: MIT
// Tests what the options of a scene change: textures of seasons, lights, boxes, lines, marks.
#include "Scene.h"
#include "korvat/model/ModelLibrary.h"

#include <algorithm>
#include <cmath>

using korvat::Renderer;
using viewer::Season;
using viewer::ViewOptions;

namespace {

class LooksTest : public TrainTest
{
protected:
    LooksTest()
    {
        for (const char *name : {"box.s", "crate.s"}) {
            writeShape(name);
            shapes.textures[name] = {"side.ace"};
        }
        writeCar("Car.wag", "10m", "FreightAnim ( crate.s )");
    }
    void allow(const std::string &shape, int alternatives)
    {
        game.Write(kCars + shape + "d",
                   "SIMISA@@@@@@@@@@JINX0t1t______\r\n\r\nshape ( x ESD_Alternative_Texture ( " +
                       std::to_string(alternatives) + " ) )");
    }
    /// Returns what a new frame holds.
    const std::vector<Renderer::Placed> &frame()
    {
        canvas.renderer.Clear();
        stage.View()->ShowModels();
        return canvas.renderer.Coming();
    }
    /// Returns the places along the track of everything in the frame that is no object.
    std::string extras()
    {
        std::string text;
        for (const Renderer::Placed &placed : frame())
            if (placed.role == Renderer::Role::Overlay)
                text +=
                    (text.empty() ? "" : " ") + std::to_string(std::lround(placed.world.At(3, 2)));
        return text;
    }
    ViewOptions with(bool ViewOptions::*option)
    {
        ViewOptions options;
        options.*option = true;
        return options;
    }
};

TEST_F(LooksTest, SeasonsShowTheTexturesThatTheDescriptorAllows)
{
    const struct
    {
        int alternatives;
        Season season;
        bool snow, night;
        const char *there; ///< the only texture in a season's folder
        bool isShown;
    } rows[] = {
        {252 + 257, Season::Summer, false, false, "Snow/side.ace", false},
        {252 + 257, Season::Summer, true, false, "Snow/side.ace", true},
        {2, Season::Winter, true, false, "snow/SIDE.ACE", true},
        {252, Season::Winter, true, false, "WinterSnow/side.ace", true},
        {252, Season::Winter, false, false, "WinterSnow/side.ace", false},
        {252, Season::Spring, true, false, "Spring/side.dds", true},
        {252, Season::Autumn, false, true, "Autumn/side.ace", true},
        {252, Season::Autumn, false, true, "Night/side.ace", false},
        {256, Season::Autumn, true, true, "Night/side.ace", true},
        {256, Season::Summer, false, true, "../Night/side.ace", true},
        {256, Season::Summer, false, true, "../Textures/Night/side.ace", true},
        {256, Season::Summer, false, true, "side.ace", false},
        {0, Season::Winter, true, true, "Night/side.ace", false},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.there) + ' ' + std::to_string(row.alternatives));
        const support::TempFolder fresh;
        fresh.Write("A/box.s", "shape");
        fresh.Write("A/box.sd", "SIMISA@@@@@@@@@@JINX0t1t______\r\n\r\nshape ( x "
                                "ESD_Alternative_Texture ( " +
                                    std::to_string(row.alternatives) + " ) )");
        fresh.Write("A/" + std::string(row.there), "texture");
        stage.SetOptions({.season = row.season, .snow = row.snow, .night = row.night});
        shapes.asked.clear();
        stage.RenderShape(fresh.At("A/box.s"));
        finish();
        const bool other = shapes.asked.find("||") != std::string::npos; // no second place to look
        EXPECT_EQ(other, row.isShown) << shapes.asked;
    }
}

TEST_F(LooksTest, ChangingTheSeasonDressesEveryShapeAndHidesNothingNew)
{
    for (const char *shape : {"box.s", "crate.s"})
        allow(shape, 256);
    game.Write(kCars + std::string("Night/side.ace"), "texture");
    view("box.s", "Car.wag");
    TSViewObject &car = stage.View()->Models.Item(1);
    car.Flash(); // no textures
    shapes.asked.clear();
    stage.SetOptions(with(&ViewOptions::night));
    EXPECT_EQ(std::count(shapes.asked.begin(), shapes.asked.end(), '\n'), 1)
        << "both shapes name the same file: " << shapes.asked;
    EXPECT_EQ(car.Model().GetTexture(0), nullptr);
    EXPECT_NE(car.AddedShapes()[0].model.GetTexture(0), nullptr);
    EXPECT_TRUE(canvas.renderer.IsNight());
    car.UnFlash();
    EXPECT_NE(shapes.asked.find("Night"), std::string::npos);
    shapes.asked.clear();
    stage.SetOptions(with(&ViewOptions::boxes));
    EXPECT_FALSE(canvas.renderer.IsNight());
    EXPECT_EQ(shapes.asked, "") << "the ordinary textures are still known";
}

TEST_F(LooksTest, LightsFollowTheirVehiclesAndTheirPlaceInTheTrain)
{
    const auto light = [](const char *unit, const char *z) {
        return std::string("Light ( Type ( 0 ) Conditions ( Unit ( ") + unit +
               " ) ) States ( State ( LightColour ( ffffffff ) Position ( 0 0 " + z + " ) ) ) )\n";
    };
    writeCar("Lamps.wag", "10m",
             "Lights ( 3 " + light("2", "5") + light("1", "0") + light("3", "-5") + ")");
    stage.SetOptions(with(&ViewOptions::lights));
    canvas.renderer.SetCamera({5000, 0, 0}, {});
    // In front of the first, in the middle of the second, behind the third vehicle.
    load("Lamps Lamps Lamps");
    EXPECT_EQ(extras(), "0 -15 -30");
    load("Lamps* Lamps Lamps*");
    EXPECT_EQ(extras(), "-10 -15 -20") << "a light turns with its vehicle";
    load("Lamps");
    EXPECT_EQ(extras(), "0 -10");
    stage.SetOptions({});
    EXPECT_EQ(extras(), "");
}

TEST_F(LooksTest, ConesLightTheNightAndAreBounded)
{
    std::string cones;
    for (int i = 0; i < 1000; ++i)
        cones += "Light ( Type ( 1 ) States ( State ( LightColour ( ffffffff ) Position ( 0 3 5 ) "
                 "Radius ( 100 ) ) ) )\n";
    writeCar("Cones.wag", "10m", "Lights ( 1000 Light ( Type ( 0 ) )\n" + cones + ")");
    stage.SetOptions({.night = true, .lights = true});
    load("Cones");
    extras();
    EXPECT_EQ(canvas.renderer.Setup(100, 100).coneCount, korvat::kLightCones);
    EXPECT_EQ(canvas.renderer.Setup(100, 100).cones[0].at, (korvat::Vec3{0, 3, 0}));
    const std::string report = game.Relative(stage.Report());
    EXPECT_EQ(
        report.substr(report.find("Not loaded")),
        "Not loaded: 2\r\n1\tTrains/Trainset/Cars/Cones.wag, line 5: light 1 has no states\r\n"
        "2\tTrains/Trainset/Cars/Cones.wag: of 1001 lights only the first 100 are shown");
    stage.SetOptions(with(&ViewOptions::lights));
    EXPECT_EQ(canvas.renderer.Setup(100, 100).coneCount, 0U) << "by day";
    stage.SetOptions({});
    EXPECT_EQ(stage.Report().find("Not loaded"), std::string::npos) << "nobody wants the lights";
}

TEST_F(LooksTest, BoxesStandWhereTheVehicleAndItsCouplersAre)
{
    writeCar("Coupled.wag", "10m", "Coupling ( Type ( Automatic ) )");
    load("Car Coupled*");
    stage.SetOptions(with(&ViewOptions::boxes));
    EXPECT_EQ(extras(), "-5 -15 -20 -10");
    stage.RenderShape(car("box.s"));
    finish();
    EXPECT_EQ(extras(), "") << "a shape alone has no size";
}

TEST_F(LooksTest, LinesReplaceSurfacesOrStandOnThem)
{
    load("Car Car");
    const auto count = [this](bool lines, Renderer::Role role) {
        const auto &all = frame();
        return std::count_if(all.begin(), all.end(), [&](const Renderer::Placed &placed) {
            return placed.model->isLines == lines && placed.role == role;
        });
    };
    stage.SetOptions(with(&ViewOptions::normals));
    EXPECT_EQ(count(true, Renderer::Role::Overlay), 4);
    EXPECT_EQ(count(false, Renderer::Role::Object), 4);
    stage.SetOptions({.wireframe = true, .normals = true});
    EXPECT_EQ(count(true, Renderer::Role::Overlay), 8);
    EXPECT_EQ(count(false, Renderer::Role::Object), 0);
    const auto first = frame()[0].model;
    EXPECT_EQ(frame()[0].model, first) << "frames share their lines";
    EXPECT_EQ(first->mesh.indices.size(), 6U) << "three edges of a triangle";
}

TEST_F(LooksTest, MissingTexturesAreListedOnceWithTheirShapes)
{
    shapes.textures["box.s"] = {"gone.ace", "side.ace", "GONE.ACE"};
    shapes.textures["crate.s"] = {"gone.ace"};
    load("Car Car");
    std::string list;
    for (const viewer::MissingTexture &missing : stage.MissingTextures())
        list += missing.texture + ' ' + game.Relative(missing.shape) + '\n';
    EXPECT_EQ(list, "gone.ace Trains/Trainset/Cars/box.s\ngone.ace Trains/Trainset/Cars/crate.s\n");
    stage.View()->Models.Item(1).Model().SetTexture(0, korvat::ModelLibrary::Checker());
    const auto magenta = korvat::ModelLibrary::Magenta();
    EXPECT_NE(frame()[0].pictures[0], magenta);
    stage.SetOptions(with(&ViewOptions::marksMissing));
    EXPECT_EQ(frame()[0].pictures[0], magenta);
    EXPECT_NE(frame()[0].pictures[1], magenta);
}

} // namespace
