// SPDX-License-Identifier: MIT
#pragma once

#include "content/VehicleBoxes.h"
#include "content/VehicleLights.h"

#include <memory>

namespace viewer {

/// The ends of a vehicle, where its couplers are, and its place in the train.
struct Ends
{
    float length = 0; ///< of the vehicle, in metres
    bool frontCoupled = false, rearCoupled = false;
    bool first = true, last = true; ///< in the train
};

/// What the file of a vehicle says of its lights and its size. Null for a shape alone.
struct Fittings
{
    std::shared_ptr<const content::VehicleLights> lights;
    std::shared_ptr<const content::VehicleBoxes> boxes;
    Ends ends;
};

} // namespace viewer
