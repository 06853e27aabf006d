// SPDX-License-Identifier: MIT
#pragma once

#include "samples/VehicleKit.h"

namespace samples {

/// The kinds of vehicles that there are models of.
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

/// A model with its own picture.
struct BuiltVehicle
{
    ShapeModel model;
    Picture picture;
    Vec3 low; ///< bounds of all levels in the rest pose
    Vec3 high;
};

BuiltVehicle BuildVehicle(Design design, const Plan &plan);

// The families. Each paints into the kit's sheet and draws all levels of detail.
void BuildVan(Kit &kit, Design design);
void BuildTankCar(Kit &kit);
void BuildFlatCar(Kit &kit, bool loaded);
void BuildHopper(Kit &kit);
void BuildCoach(Kit &kit, Design design);
void BuildDiesel(Kit &kit);
void BuildElectric(Kit &kit);
void BuildExpressSteam(Kit &kit);
void BuildTankSteam(Kit &kit);
void BuildTender(Kit &kit);

} // namespace samples
