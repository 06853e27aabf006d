// SPDX-License-Identifier: MIT
#include "content/MissingVehicles.h"

#include "CompleteInstallation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

namespace content {
namespace {

const std::string kA = "Trains/Trainset/A/";
constexpr auto kGone = std::nullopt;

struct Case
{
    const char *name;
    FileChanges changes;
    install::StockItem vehicle;
    /// For the profiles MSTS, Open Rails and both.
    std::array<std::string, 3> expected;
};

std::string missing(const std::string &file, const std::string &reason)
{
    return "The file Trains/Trainset/" + file + " is missing: " + reason + ".";
}

const std::string kMsts = "MSTS does not find ", kOpenRails = "Open Rails does not find ",
                  kBoth = "MSTS and Open Rails do not find ";

const std::vector<Case> &cases()
{
    const std::string absent = missing("GP38/x.eng", "the stock folder GP38 is not installed");
    static const std::vector<Case> kCases = {
        {"a complete engine", {}, {"Engine", "A", "e"}, {}},
        {"a flipped wagon in other letter case", {}, {"Wagon*", "a", "W"}, {}},
        {"a missing wagon",
         {},
         {"Wagon*", "A", "gone"},
         {missing("A/gone.wag", kMsts + "this vehicle"),
          missing("A/gone.wag", kOpenRails + "this vehicle"),
          missing("A/gone.wag", kBoth + "this vehicle")}},
        {"an engine that is named as a wagon",
         {},
         {"Wagon", "A", "e"},
         {missing("A/e.wag", kMsts + "this vehicle"),
          missing("A/e.wag", kOpenRails + "this vehicle"),
          missing("A/e.wag", kBoth + "this vehicle")}},
        {"an absent stock folder", {}, {"Engine", "GP38", "x"}, {absent, absent, absent}},
        {"an override without a vehicle in the stock folder",
         {{kA + "OpenRails/o.wag", "\nWagon ( o WagonShape ( w.s ) )"}},
         {"Wagon", "A", "o"},
         {missing("A/o.wag", kMsts + "this vehicle"), "",
          missing("A/o.wag", kMsts + "this vehicle")}},
        {"a missing shape",
         {{kA + "w.s", kGone}},
         {"Wagon", "A", "w"},
         {missing("A/w.s", kMsts + "the shape of this vehicle"),
          missing("A/w.s", kOpenRails + "the shape of this vehicle"),
          missing("A/w.s", kBoth + "the shape of this vehicle")}},
        {"an override with another shape than the missing one",
         {{kA + "x.wag", "\nWagon ( x WagonShape ( x.s ) )"},
          {kA + "OpenRails/x.wag", "\ninclude ( ../x.wag )\nWagon ( WagonShape ( w.s ) )"}},
         {"Wagon", "A", "x"},
         {missing("A/x.s", kMsts + "the shape of this vehicle"), "",
          missing("A/x.s", kMsts + "the shape of this vehicle")}},
        {"a shape of another folder",
         {{kA + "x.wag", "\nWagon ( x WagonShape ( \"..\\\\B\\\\b.s\" ) )"},
          {"Trains/Trainset/B/B.S", ""}},
         {"Wagon", "A", "x"},
         {}},
        {"a damaged vehicle and one that names no shape",
         {{kA + "x.wag", "nothing"}, {kA + "y.wag", "\nWagon ( y )"}},
         {"Wagon", "A", "x"},
         {}},
        {"a name that is too long for a file", {}, {"Wagon", "A", std::string(70000, 'x')}, {}},
    };
    return kCases;
}

TEST(MissingVehiclesTest, VehiclesAreJudgedByTheRulesOfTheSimulators)
{
    const Profiles profiles[] = {Profile::Msts, Profile::OpenRails, Profiles::Both()};
    for (const Case &each : cases()) {
        const CompleteInstallation installation(each.changes);
        for (std::size_t i = 0; i < std::size(profiles); ++i) {
            MissingVehicles vehicles(installation.Folder().Path(), profiles[i]);
            EXPECT_EQ(installation.Folder().Relative(vehicles.WhyMissing(each.vehicle)),
                      each.expected[i])
                << each.name << ", " << ProfileName(profiles[i]);
        }
    }
}

class ConsistsWithMissingVehicles : public testing::Test
{
protected:
    std::string why(MissingVehicles &vehicles, const char *consist) const
    {
        return m_installation.Folder().Relative(
            vehicles.WhyMissingIn(m_installation.Folder().At(consist)));
    }

    CompleteInstallation m_installation{
        {{"Trains/Consists/gone.con",
          "\nTrain ( TrainCfg ( d Wagon ( WagonData ( w A ) ) Wagon ( WagonData ( z A ) )\n"
          "Wagon ( WagonData ( Z a ) ) Wagon ( WagonData ( \"y y\" A ) )\n"
          "Engine ( EngineData ( z A ) ) Wagon ( WagonData ( y A ) ) ) )"},
         {"Trains/Consists/unquoted.con",
          "\nTrain ( TrainCfg ( d Wagon ( WagonData ( w B C ) ) ) )"},
         {"Trains/Trainset/B C/w.wag", "\nWagon ( w )"},
         {"Trains/Consists/eot.con", "\nTrain ( TrainCfg ( ORTSEot ( EOTData ( gone Eots ) ) ) )"},
         {"Trains/Consists/broken.con", "\xff\xfe\x01"}}};
    MissingVehicles m_vehicles{m_installation.Folder().Path(), Profiles::Both()};
};

TEST_F(ConsistsWithMissingVehicles, ReportTheFirstAndCountTheOthers)
{
    EXPECT_EQ(why(m_vehicles, "Trains/Consists/gone.con"),
              missing("A/z.wag", kBoth + "this vehicle") +
                  "  The consist has 3 other vehicles with a missing file.");
    for (const char *const complete :
         {"Trains/Consists/c.con", "Trains/Consists/unquoted.con", "Trains/Consists/eot.con",
          "Trains/Consists/broken.con", "Trains/Consists/none.con"})
        EXPECT_EQ(why(m_vehicles, complete), "") << complete;
    EXPECT_EQ(m_vehicles.WhyMissing({"Wagon", "B C", "w"}), "") << "as the editor lists it";
    EXPECT_NE(m_vehicles.WhyMissing({"Wagon", "B", "w"}), "") << "not mistaken for B C";
}

TEST_F(ConsistsWithMissingVehicles, AreTheSameForSeveralThreads)
{
    const std::string expected = why(m_vehicles, "Trains/Consists/gone.con");
    MissingVehicles shared(m_installation.Folder().Path(), Profiles::Both());
    std::array<std::string, 4> found;
    {
        std::vector<std::jthread> threads;
        for (std::string &each : found)
            threads.emplace_back([&, this] { each = why(shared, "Trains/Consists/gone.con"); });
    }
    for (const std::string &each : found)
        EXPECT_EQ(each, expected);
}

TEST_F(ConsistsWithMissingVehicles, KeepOneStateOfTheDiskUntilANewLookUp)
{
    const install::StockItem vehicle{"Wagon", "A", "z"};
    EXPECT_NE(m_vehicles.WhyMissing(vehicle), "");
    m_installation.Folder().Write(kA + "z.wag", "\nWagon ( z WagonShape ( w.s ) )");
    EXPECT_NE(m_vehicles.WhyMissing(vehicle), "");
    EXPECT_EQ(MissingVehicles(m_installation.Folder().Path(), Profiles::Both()).WhyMissing(vehicle),
              "");
    m_vehicles.Stop();
    EXPECT_EQ(m_vehicles.WhyMissing(vehicle), "");
    EXPECT_EQ(why(m_vehicles, "Trains/Consists/gone.con"), "");
    EXPECT_EQ(MissingVehicles("", Profiles::Both()).WhyMissing(vehicle), "")
        << "nothing is missing from an installation that is not known";
}

} // namespace
} // namespace content
