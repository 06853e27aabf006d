// SPDX-License-Identifier: MIT
#include "content/NearestVehicles.h"

#include "host/Text.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

using host::EqualsNoCase;

namespace content {
namespace {

/// Vehicles whose lengths differ by less fit into the same place of a train.
constexpr double kSameLength = 0.1; // metres

/// How near a candidate is. Smaller is nearer.
struct Nearness
{
    bool otherName = true;
    int inCommon = 0; ///< of length, couplers and kind
    double lengthDifference = 0;
    std::size_t sameLetters = 0; ///< at the beginning of the names

    bool operator<(const Nearness &other) const
    {
        return std::tuple(otherName, -inCommon, lengthDifference) !=
                       std::tuple(other.otherName, -other.inCommon, other.lengthDifference)
                   ? std::tuple(otherName, -inCommon, lengthDifference) <
                         std::tuple(other.otherName, -other.inCommon, other.lengthDifference)
                   : sameLetters > other.sameLetters;
    }
};

std::size_t sameLettersOf(const std::string &first, const std::string &second)
{
    const std::string a = host::ToUpper(first), b = host::ToUpper(second);
    return static_cast<std::size_t>(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first -
                                    a.begin());
}

bool haveSameCouplers(const VehicleFigures &a, const VehicleFigures &b)
{
    return !a.couplers.empty() &&
           std::equal(a.couplers.begin(), a.couplers.end(), b.couplers.begin(), b.couplers.end(),
                      [](const auto &x, const auto &y) { return EqualsNoCase(x, y); });
}

bool areSameKind(const VehicleFigures &a, const VehicleFigures &b)
{
    return !a.wagonType.empty() && EqualsNoCase(a.wagonType, b.wagonType) &&
           EqualsNoCase(a.engineType, b.engineType);
}

void add(std::string &why, const char *what)
{
    why.append(why.empty() ? "same " : ", same ").append(what);
}

Nearness nearnessOf(ReplacementCandidate &candidate, const install::StockItem &vehicle,
                    const VehicleFigures *figures)
{
    Nearness nearness;
    nearness.otherName = !EqualsNoCase(candidate.vehicle.shape, vehicle.shape);
    nearness.sameLetters = sameLettersOf(candidate.vehicle.shape, vehicle.shape);
    candidate.why.clear();
    if (!nearness.otherName)
        add(candidate.why, "name");
    if (!figures || !candidate.figures)
        return nearness;
    const Figure &wanted = (*figures)[FigureId::Length];
    const Figure &length = (*candidate.figures)[FigureId::Length];
    const auto count = [&](bool isSame, const char *what) {
        if (isSame)
            add(candidate.why, what);
        nearness.inCommon += isSame ? 1 : 0;
    };
    if (wanted.IsKnown() && length.IsKnown())
        nearness.lengthDifference = std::abs(wanted.value - length.value);
    count(wanted.IsKnown() && length.IsKnown() && nearness.lengthDifference < kSameLength,
          "length");
    count(haveSameCouplers(*figures, *candidate.figures), "couplers");
    count(areSameKind(*figures, *candidate.figures), "kind");
    return nearness;
}

} // namespace

std::vector<ReplacementCandidate> NearestVehicles(const install::StockItem &vehicle,
                                                  const VehicleFigures *figures,
                                                  std::vector<ReplacementCandidate> candidates)
{
    std::erase_if(candidates, [&](const ReplacementCandidate &candidate) {
        const install::StockItem &other = candidate.vehicle;
        return other.type != vehicle.type || (EqualsNoCase(other.shape, vehicle.shape) &&
                                              EqualsNoCase(other.folder, vehicle.folder));
    });
    std::vector<std::pair<Nearness, ReplacementCandidate>> ordered;
    for (ReplacementCandidate &candidate : candidates) {
        const Nearness nearness = nearnessOf(candidate, vehicle, figures);
        ordered.emplace_back(nearness, std::move(candidate));
    }
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const auto &a, const auto &b) { return a.first < b.first; });
    candidates.clear();
    for (auto &[nearness, candidate] : ordered)
        candidates.push_back(std::move(candidate));
    return candidates;
}

} // namespace content
