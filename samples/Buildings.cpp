// SPDX-License-Identifier: MIT
#include "samples/Buildings.h"

#include "samples/Modeller.h"

#include <array>

namespace samples {
namespace {

// The names in the script, in the order of Building and of Season.
constexpr std::array kBuildings = {"Station", "SignalHut", "GasLamp", "WaterTower",
                                   "Barn",    "Chapel",    "Cottage", "FerryHouse",
                                   "Crane",   "Pier",      "Shed",    "Bridge"};
constexpr std::array kSeasons = {"Summer",     "Snow",       "Spring",     "Autumn", "Winter",
                                 "SpringSnow", "AutumnSnow", "WinterSnow", "Night"};

} // namespace

PaintedModel BuildScenery(Building building, Season season, const std::string &image)
{
    const Colour ground = season == Season::Night ? Colour{40, 42, 52} : Colour{150, 146, 138};
    Modeller site(256, ground, {image});
    site.BeginLevel(2000);
    site.script.Set("season", kSeasons.at(static_cast<std::size_t>(season)));
    site.script.Run("buildings");
    site.script.Call(kBuildings.at(static_cast<std::size_t>(building)));
    return site.Finish(site.sheet.Pixels());
}

} // namespace samples
