// SPDX-License-Identifier: MIT
#pragma once

#include "content/NearestVehicles.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace content {

/// Called now and then during a long search. The search ends early if it returns false.
using GoOn = std::function<bool(std::size_t done, std::size_t total)>;

/// A vehicle that is installed or that a consist names.
struct CataloguedVehicle
{
    install::StockItem vehicle; ///< spelled as on the disk, or as the first consist names it
    bool isInstalled = false;
    std::size_t units = 0; ///< of the installed consists that name it, in any letter case
};

/// Returns the installed engines and wagons and those that installed consists name, sorted by
/// folder and name. Reads all consists on several threads, and skips those that cannot be read.
/// `folder` is the installation folder, which must not be "".
std::vector<CataloguedVehicle> VehicleCatalogue(const std::string &folder, const GoOn &goOn = {});

/// Returns the installed engines and wagons, sorted by folder and name.
std::vector<install::StockItem> InstalledVehicles(const std::string &folder, const GoOn &goOn = {});

/// Returns the candidates that may replace a vehicle, nearest first, with their figures and `why`.
/// Reads the figures of the vehicle and, if it is installed, of all candidates, by the rules of
/// Open Rails.
std::vector<ReplacementCandidate> ReadCandidates(const std::string &folder,
                                                 const install::StockItem &vehicle,
                                                 const std::vector<install::StockItem> &installed,
                                                 const GoOn &goOn = {});

} // namespace content
