// SPDX-License-Identifier: MIT
#pragma once

#include "content/Lengths.h"
#include "content/Vehicle.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace content {

/// A shape that is shown together with a vehicle's own: a load, a coupler or a hose.
struct AddedShape
{
    /// What `offset` counts from.
    enum class From : std::uint8_t
    {
        Origin, ///< of the vehicle
        Front,  ///< the vehicle's end; Z counts outwards
        Rear    ///< like Front, but the vehicle is turned round
    };
    enum class When : std::uint8_t
    {
        Always,
        Coupled, ///< only if another vehicle is coupled to this end
        Free     ///< only if none is
    };

    std::string path; ///< spelled as on the disk
    From from = From::Origin;
    When when = When::Always;
    bool isLoad = true;
    bool turned = false;           ///< by 180 degrees about its own vertical axis
    std::array<float, 3> offset{}; ///< X, Y, Z in metres

    friend bool operator==(const AddedShape &, const AddedShape &) = default;
};

struct AddedShapes
{
    std::vector<AddedShape> shapes; ///< in file order
    /// What is not in `shapes` although the vehicle names it, one sentence each.
    std::vector<std::string> problems;
};

/// Loads beyond this number are a problem of their own. Real vehicles have a dozen at most.
inline constexpr std::size_t kMaxLoads = 100;

/// Returns the shapes that a vehicle adds at the start of a session, as its simulator shows them: a
/// load of variable height only if it is full at the start, and then at its full height.
AddedShapes AddedShapesOf(const Vehicle &vehicle, const VehicleFiles &files, FileStore &store);

} // namespace content
