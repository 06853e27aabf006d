// SPDX-License-Identifier: MIT
#pragma once

#include "samples/MeshBuilder.h"

#include <string>

namespace samples {

/// The buildings beside the line.
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

/// The seasons with separate textures. A building has the same shape in all of them.
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

/// Returns the model and texture of a building. `image` is the texture's name in the shape.
PaintedModel BuildScenery(Building building, Season season, const std::string &image);

} // namespace samples
