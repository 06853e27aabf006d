// SPDX-License-Identifier: MIT
#include "samples/Buildings.h"
#include "samples/Routes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using samples::Building;
using samples::BuildScenery;
using samples::Colour;
using samples::PaintedModel;
using samples::Season;

int brightness(const Colour &c)
{
    return c.red + c.green + c.blue;
}

double meanBrightness(const PaintedModel &built)
{
    double sum = 0;
    for (const Colour &c : built.picture.pixels)
        sum += brightness(c);
    return sum / static_cast<double>(built.picture.pixels.size());
}

TEST(BuildingsTest, SeasonsChangeTheTextureAndNotTheShape)
{
    const PaintedModel summer = BuildScenery(Building::Cottage, Season::Summer, "c.ace");
    const std::string shape = samples::ShapeBytes(summer.model, samples::ShapeForm::Binary);
    for (const Season season :
         {Season::Snow, Season::Spring, Season::Autumn, Season::Winter, Season::SpringSnow,
          Season::AutumnSnow, Season::WinterSnow, Season::Night}) {
        SCOPED_TRACE(static_cast<int>(season));
        const PaintedModel other = BuildScenery(Building::Cottage, season, "c.ace");
        EXPECT_EQ(samples::ShapeBytes(other.model, samples::ShapeForm::Binary), shape);
        EXPECT_NE(samples::AceBytes(other.picture, {}), samples::AceBytes(summer.picture, {}));
    }
    EXPECT_GT(meanBrightness(BuildScenery(Building::Cottage, Season::Snow, "")),
              meanBrightness(summer) + 20);
}

/// At night a house is dark, but its windows are bright.
TEST(BuildingsTest, WindowsShineAtNight)
{
    const PaintedModel day = BuildScenery(Building::Cottage, Season::Summer, "c.ace");
    const PaintedModel night = BuildScenery(Building::Cottage, Season::Night, "c.ace");
    EXPECT_LT(meanBrightness(night), meanBrightness(day) / 2);
    EXPECT_GT(std::count_if(night.picture.pixels.begin(), night.picture.pixels.end(),
                            [](const Colour &c) { return c.red > 200 && c.green > 150; }),
              200);
}

TEST(BuildingsTest, EveryBuildingStandsUprightAndUsesItsTexture)
{
    for (const samples::RouteShape &shape : samples::RouteShapes()) {
        SCOPED_TRACE(shape.name);
        const PaintedModel built = BuildScenery(shape.building, Season::Summer, "x.ace");
        EXPECT_EQ(built.model.images, std::vector<std::string>{"x.ace"});
        EXPECT_GT(built.high.y, 1);
        EXPECT_LE(built.low.y, 0);
        EXPECT_GT(built.model.levels.front().parts.front().indices.size(), 60U);
    }
}

} // namespace
