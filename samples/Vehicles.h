// SPDX-License-Identifier: MIT
#pragma once

#include "samples/MeshBuilder.h"

#include <string>
#include <vector>

namespace samples {

/// The kinds of vehicles with a model.
enum class Design
{
    BoxCar,
    IceVan,
    GoodsVan, ///< with two axles
    Caboose,
    TankCar,
    FlatCar,
    PipeFlat, ///< with a load
    Hopper,
    Coach,
    DiningCar,
    CompartmentCoach,
    BrakeCoach,
    MotorCoach, ///< electric, with a cab at the front
    Trailer,
    Railcar, ///< diesel, with cabs at both ends
    HoodDiesel,
    ElectricEngine,
    ExpressSteam,
    TankSteam,
    Tender
};

/// The appearance of a model.
struct Plan
{
    float length = 12; ///< over couplings, in metres
    Colour base;
    Colour trim;
    std::string initials;
    std::string number;
    AceAlpha alpha = AceAlpha::None; ///< of the vehicle's own picture
    bool alone = false;              ///< uses only its own, small picture; no gratings, no glass
    std::vector<std::string> images; ///< file names; the first is the vehicle's own
};

/// Builds the model with the vehicle's own picture.
PaintedModel BuildVehicle(Design design, const Plan &plan);

inline constexpr const char *kGearFile = "gear.ace";
inline constexpr const char *kGlassFile = "glass.ace";

/// The pictures that vehicles of a folder share: gear (with a mask) and window glass (8-bit alpha).
const Picture &GearPicture();
const Picture &GlassPicture();

} // namespace samples
