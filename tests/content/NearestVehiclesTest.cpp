// SPDX-License-Identifier: MIT
#include "content/NearestVehicles.h"

#include <gtest/gtest.h>

using content::FigureId;
using content::ReplacementCandidate;
using content::VehicleFigures;
using install::StockItem;

namespace {

std::shared_ptr<const VehicleFigures> figures(double length, const char *coupler, const char *type)
{
    auto result = std::make_shared<VehicleFigures>();
    (*result)[FigureId::Length].state = content::Figure::State::Known;
    (*result)[FigureId::Length].value = length;
    result->couplers = {coupler};
    result->wagonType = type;
    return result;
}

/// Returns the candidates in order, each as "FOLDER/NAME (why)".
std::vector<std::string> nearest(const StockItem &vehicle, const VehicleFigures *own,
                                 const std::vector<ReplacementCandidate> &candidates)
{
    std::vector<std::string> names;
    for (const auto &each : content::NearestVehicles(vehicle, own, candidates))
        names.push_back(each.vehicle.folder + '/' + each.vehicle.shape + " (" + each.why + ')');
    return names;
}

const std::vector<ReplacementCandidate> kInstalled = {
    {{"Engine", "A", "boxcar"}, figures(12, "Chain", "Freight"), {}},
    {{"Wagon", "A", "tank"}, figures(20, "Chain", "Freight"), {}},
    {{"Wagon", "A", "boxcab"}, figures(12.05, "Automatic", "Carriage"), {}},
    {{"Wagon", "A", "flat"}, figures(12.05, "chain", "freight"), {}},
    {{"Wagon", "B", "van"}, figures(13, "Chain", "Freight"), {}},
    {{"Wagon", "B", "BOXCAR"}, nullptr, {}},
    {{"Wagon", "c", "Boxcar"}, nullptr, {}},
    {{"Wagon", "C", "odd"}, nullptr, {}},
};

TEST(NearestVehiclesTest, SameNameThenFiguresInCommonThenLength)
{
    const auto own = figures(12, "Chain", "Freight");
    EXPECT_EQ(nearest({"Wagon", "C", "boxcar"}, own.get(), kInstalled),
              (std::vector<std::string>{
                  "B/BOXCAR (same name)", "A/flat (same length, same couplers, same kind)",
                  "B/van (same couplers, same kind)", "A/tank (same couplers, same kind)",
                  "A/boxcab (same length)", "C/odd ()"}));
}

TEST(NearestVehiclesTest, OnlyNamesCountForAMissingVehicle)
{
    EXPECT_EQ(
        nearest({"Wagon", "gone", "boxcar"}, nullptr, kInstalled),
        (std::vector<std::string>{"B/BOXCAR (same name)", "c/Boxcar (same name)", "A/boxcab ()",
                                  "A/tank ()", "A/flat ()", "B/van ()", "C/odd ()"}));
}

} // namespace
