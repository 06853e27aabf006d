// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"
#include "viewer/VehicleReader.h"

#include <string>
#include <vector>

class TSViewObject;

namespace viewer {

/// The ends of a vehicle, where its couplers are.
struct Ends
{
    float length = 0; ///< of the vehicle, in metres
    bool frontCoupled = false, rearCoupled = false;
};

/// Adds the shapes that a vehicle adds to the object of its own shape, and its wheels. Returns what
/// is missing, one sentence each.
std::vector<std::string> AddShapes(TSViewObject &object, VehicleReader &vehicles,
                                   const std::string &stockFile, const Ends &ends);

/// Returns the length of an object along the track. Shapes are centred on their origin.
float LengthOf(const TSViewObject &object);

/// Appends the texts that are not in the list yet.
void AddMissing(const std::vector<std::string> &texts, std::vector<std::string> &list);

} // namespace viewer
