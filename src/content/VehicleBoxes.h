// SPDX-License-Identifier: MIT
#pragma once

#include "content/Vehicle.h"

#include <array>
#include <optional>

namespace content {

/// The room that a vehicle takes for its simulator, in metres.
struct VehicleBoxes
{
    /// Width, height and length, all above 0; nothing if the file gives no such size.
    std::optional<std::array<float, 3>> size;
    bool hasCouplers = false; ///< at both ends, at these places: Z counts outwards from the end
    std::array<float, 3> front = kCoupler, rear = kCoupler;

    /// The usual place of a coupler, above the rails.
    static constexpr std::array<float, 3> kCoupler = {0, 0.9F, 0};
};

VehicleBoxes BoxesOf(const Vehicle &vehicle);

} // namespace content
