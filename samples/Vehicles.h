// SPDX-License-Identifier: MIT
#pragma once

#include "samples/MeshBuilder.h"

#include <string>
#include <vector>

namespace samples {

/// The kinds of vehicle models.
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
    float length = 12; ///< over the couplings, in metres
    Colour base;
    Colour trim;
    std::string initials;
    std::string number;
    AceAlpha alpha = AceAlpha::None; ///< of the vehicle's own texture
    bool alone = false;              ///< uses only its own small texture; no gratings, no glass
    std::vector<std::string> images; ///< file names; the first is the vehicle's own
};

/// Returns the model with the vehicle's own texture.
PaintedModel BuildVehicle(Design design, const Plan &plan);

inline constexpr const char *kGearFile = "gear.ace";
inline constexpr const char *kGlassFile = "glass.ace";

/// The textures that the vehicles of a folder share: gear (mask) and window glass (8-bit alpha).
const Picture &GearPicture();
const Picture &GlassPicture();

} // namespace samples
