// SPDX-License-Identifier: MIT
#pragma once

#include "korvat/model/Transform.h"
#include "viewer/Fittings.h"
#include "viewer/VehicleReader.h"

#include <string>
#include <vector>

class TSViewObject;

namespace viewer {

/// Adds the shapes that a vehicle adds, its wheels, its lights and its boxes to the object of its
/// own shape. Returns what is missing of the shapes, one sentence each.
std::vector<std::string> AddShapes(TSViewObject &object, VehicleReader &vehicles,
                                   const std::string &stockFile, const Ends &ends);

/// Returns the length of an object along the track. Shapes are centred on their origin.
float LengthOf(const TSViewObject &object);

/// Appends the texts that are not in the list yet.
void AddMissing(const std::vector<std::string> &texts, std::vector<std::string> &list);

} // namespace viewer
