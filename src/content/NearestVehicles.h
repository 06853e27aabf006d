// SPDX-License-Identifier: MIT
#pragma once

#include "content/VehicleFigures.h"
#include "install/Train.h"

#include <memory>
#include <string>
#include <vector>

namespace content {

/// An installed vehicle that may replace another one. The figures are null if they are not known.
struct ReplacementCandidate
{
    install::StockItem vehicle;
    std::shared_ptr<const VehicleFigures> figures;
    std::string why; ///< for people: "same name, same length"; "" if nothing is the same
};

/// Orders the candidates that may replace a vehicle, the nearest first: those of the same name in
/// other folders, then those with more of length, couplers and kind in common, then those whose
/// name begins like it. Sets `why`. Drops the vehicle itself and those of another kind (engine,
/// wagon). `figures` are those of the vehicle, null if it is missing: then only names count.
std::vector<ReplacementCandidate> NearestVehicles(const install::StockItem &vehicle,
                                                  const VehicleFigures *figures,
                                                  std::vector<ReplacementCandidate> candidates);

} // namespace content
