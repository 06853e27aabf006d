// SPDX-License-Identifier: MIT
#pragma once

#include "samples/AceWriter.h"
#include "samples/ShapeWriter.h"

#include <string>

namespace samples {

/// What stands beside the line.
enum class Building
{
    Station,
    SignalHut,
    GasLamp,
    WaterTower,
    Barn,
    Chapel,
    Cottage,
    FerryHouse,
    Crane,
    Pier,
    Shed,
    Bridge
};

/// The times of which a building has pictures; only the picture differs, not the shape.
enum class Season
{
    Summer,
    Snow,
    Spring,
    Autumn,
    Winter,
    SpringSnow,
    AutumnSnow,
    WinterSnow,
    Night
};

struct BuiltScenery
{
    ShapeModel model;
    Picture picture;
    Vec3 low;
    Vec3 high;
};

/// The building with its picture, which the shape names `image`.
BuiltScenery BuildScenery(Building building, Season season, const std::string &image);

} // namespace samples
