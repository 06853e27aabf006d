// SPDX-License-Identifier: MIT
#include "samples/Vehicles.h"

#include "samples/VehicleModel.h"

#include <array>

namespace samples {
namespace {

// In the order of Design.
constexpr std::array kBuilders = {
    BuildVan,     BuildVan,        BuildVan,    BuildVan, // from BoxCar
    BuildTankCar,                                         //
    BuildFlatCar, BuildFlatCar,    BuildHopper,           //
    BuildCoach,   BuildCoach,      BuildCoach,  BuildCoach,    BuildCoach,
    BuildCoach,   BuildCoach,      BuildDiesel, BuildElectric, //
    BuildExpress, BuildTankEngine, BuildTender,
};

} // namespace

PaintedModel BuildVehicle(Design design, const Plan &plan)
{
    return kBuilders.at(static_cast<std::size_t>(design))(plan, design);
}

} // namespace samples
