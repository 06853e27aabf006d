// SPDX-License-Identifier: MIT
#include "content/VehicleBoxes.h"

#include "content/Lengths.h"

#include <algorithm>

namespace content {
namespace {

std::optional<std::array<float, 3>> sizeOf(const Vehicle &vehicle)
{
    const auto block = vehicle.FindBlock("Wagon/Size");
    if (!block)
        return std::nullopt;
    const Offset size = OffsetOf(Words(*block));
    const bool isBox = size.fault.empty() && std::all_of(size.at.begin(), size.at.end(),
                                                         [](float side) { return side > 0; });
    return isBox ? std::optional(size.at) : std::nullopt;
}

/// Returns the place of the shape that shows a coupler, which is also the coupler's own.
std::array<float, 3> couplerOf(const Vehicle &vehicle, const char *path)
{
    const auto block = vehicle.FindBlock(path);
    if (!block || block->ValueCount() < 4)
        return VehicleBoxes::kCoupler;
    const Offset offset = OffsetOf(Words(*block, 1));
    return offset.fault.empty() ? offset.at : VehicleBoxes::kCoupler;
}

} // namespace

VehicleBoxes BoxesOf(const Vehicle &vehicle)
{
    VehicleBoxes boxes;
    boxes.size = sizeOf(vehicle);
    boxes.hasCouplers = vehicle.FindBlock("Wagon/Coupling").has_value();
    boxes.front = couplerOf(vehicle, "Wagon/Coupling/FrontCouplerAnim");
    boxes.rear = couplerOf(vehicle, "Wagon/Coupling/RearCouplerAnim");
    return boxes;
}

} // namespace content
