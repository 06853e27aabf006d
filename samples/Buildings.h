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

/// The seasons with pictures. Only the picture of a building changes, not its shape.
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

/// Builds the building with its picture, which the shape names `image`.
PaintedModel BuildScenery(Building building, Season season, const std::string &image);

} // namespace samples
