// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

namespace samples {
namespace {

void build(Kit &kit, Design design)
{
    switch (design) {
    case Design::BoxCar:
    case Design::IceVan:
    case Design::GoodsVan:
    case Design::Caboose:
        return BuildVan(kit, design);
    case Design::TankCar:
        return BuildTankCar(kit);
    case Design::FlatCar:
    case Design::PipeFlat:
        return BuildFlatCar(kit, design == Design::PipeFlat);
    case Design::Hopper:
        return BuildHopper(kit);
    case Design::Coach:
    case Design::DiningCar:
    case Design::CompartmentCoach:
    case Design::BrakeCoach:
    case Design::MotorCoach:
    case Design::Trailer:
    case Design::Railcar:
        return BuildCoach(kit, design);
    case Design::HoodDiesel:
        return BuildDiesel(kit);
    case Design::ElectricEngine:
        return BuildElectric(kit);
    case Design::ExpressSteam:
        return BuildExpressSteam(kit);
    case Design::TankSteam:
        return BuildTankSteam(kit);
    case Design::Tender:
        return BuildTender(kit);
    }
}

} // namespace

BuiltVehicle BuildVehicle(Design design, const Plan &plan)
{
    Kit kit(plan);
    build(kit, design);
    return {kit.Mesh().Finish(), kit.Body().Pixels(), kit.Mesh().Low(), kit.Mesh().High()};
}

} // namespace samples
