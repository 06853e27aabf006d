// SPDX-License-Identifier: MIT
#include "content/VehicleFigures.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace content {
namespace {

class VehicleFiguresTest : public testing::Test
{
protected:
    VehicleFigures figures(const std::string &text, Profile profile = Profile::OpenRails,
                           const char *name = "x.eng")
    {
        m_disk.Write("A/" + std::string(name), "\n" + text);
        host::Snapshot folders(m_files);
        FileStore store(folders);
        return FiguresOf(Vehicle(store, FindVehicle(store, m_disk.At("A"), name), profile));
    }
    /// Returns the value rounded to three decimals, the rule, the text and the line, or the reason.
    static std::string shown(const Figure &figure)
    {
        std::string text = figure.Reason();
        if (figure.IsKnown())
            text = std::to_string(std::llround(figure.value * 1000)) + "e-3 " + text;
        return figure.line > 0 ? text + " [" + figure.text + "]:" + std::to_string(figure.line)
                               : text;
    }

    support::TempFolder m_disk;
    host::GameFiles m_files;
};

TEST_F(VehicleFiguresTest, EachFigureComesFromItsOwnEntry)
{
    const VehicleFigures seen = figures(
        "Wagon ( \"x\" Name ( \"Wagon part\" ) Type ( Engine )\n"
        "Size ( 3m 4 18m ) Mass ( \"112.5t #est\" ) NumWheels ( 8 )\n"
        "Lights ( 1 Light ( Type ( 0 ) ) ) BrakeSystemType ( Air_single_pipe )\n"
        "MaxBrakeForce ( 60kN ) Coupling ( Type ( Automatic ) Spring ( Break ( 2e6N 1.5e6 ) ) )\n"
        "Coupling ( Type ( Chain ) Spring ( Break ( 0 1800kN ) ) )\n"
        "Buffers ( Spring ( Break ( 5N 5N ) ) ) Mass ( \"113.5 t\" ) )\n"
        "Engine ( x Name ( \"Big one\" ) Type ( Diesel ) MaxPower ( 2984kW#4000hp )\n"
        "MaxForce ( 400kN ) MaxContinuousForce ( 0 ) MaxVelocity ( 70mph )\n"
        "ORTSDieselEngineMaxPower ( 3100kW ) )");
    EXPECT_EQ(seen.name, "Big one");
    EXPECT_TRUE(seen.isEngine);
    EXPECT_EQ(seen.wagonType + '/' + seen.engineType + '/' + seen.brakeSystem,
              "Engine/Diesel/Air_single_pipe");
    EXPECT_EQ(seen.couplers, (std::vector<std::string>{"Automatic", "Chain"}));
    const std::pair<FigureId, const char *> kExpected[] = {
        {FigureId::Length, "18000e-3 Size [18m]:3"},
        {FigureId::Mass, "113500000e-3 Mass [113.5 t]:7"},
        {FigureId::EmptyMass, "not-given"},
        {FigureId::Power, "2984000000e-3 MaxPower [2984kW#4000hp]:8"},
        {FigureId::PrimeMoverPower, "3100000000e-3 ORTSDieselEngineMaxPower [3100kW]:10"},
        {FigureId::StartingEffort, "400000000e-3 MaxForce [400kN]:9"},
        {FigureId::ContinuousEffort, "400000000e-3 MaxForce [400kN]:9"},
        {FigureId::MaximumSpeed, "31293e-3 MaxVelocity [70mph]:9"},
        {FigureId::BrakeForce, "60000000e-3 MaxBrakeForce [60kN]:5"},
        {FigureId::CouplerBreak, "1500000000e-3 Break [1.5e6]:5"},
        {FigureId::Axles, "8000e-3 NumWheels [8]:3"},
        {FigureId::Passengers, "not-given"},
    };
    for (const auto &[id, expected] : kExpected)
        EXPECT_EQ(shown(seen[id]), expected) << FigureName(id);
}

TEST_F(VehicleFiguresTest, RulesChooseTheEntry)
{
    const struct
    {
        const char *name;
        const char *wagon, *engine; ///< contents of the blocks; no engine block if null
        FigureId id;
        const char *expected;
    } kRows[] = {
        {"unit apart, no quotes", "Mass ( 28.4 t )", nullptr, FigureId::Mass,
         "28400e-3 Mass [28.4]:2"},
        {"sizes apart, no quotes", "Size ( 3 m 4 m 18 m )", nullptr, FigureId::Length,
         "unreadable [m 4 m 18 m]:2"},
        {"length apart, no quotes", "Size ( 3m 4m 18 m )", nullptr, FigureId::Length,
         "18000e-3 Size [18]:2"},
        {"negative length", "Size ( 3m 4m -18m )", nullptr, FigureId::Length, "negative [-18m]:2"},
        {"two sizes", "Size ( 3m 4m )", nullptr, FigureId::Length, "not-given []:2"},
        {"mass not given", "Mass ( - )", nullptr, FigureId::Mass, "not-given [-]:2"},
        {"mass is text", "Mass ( abc )", nullptr, FigureId::Mass, "unreadable [abc]:2"},
        {"mass too large", "Mass ( 1e400 )", nullptr, FigureId::Mass, "not-finite [1e400]:2"},
        {"continuous force", "", "MaxForce ( 2kN ) MaxContinuousForce ( 1kN )",
         FigureId::ContinuousEffort, "1000000e-3 MaxContinuousForce [1kN]:3"},
        {"bad continuous force", "", "MaxForce ( 2kN ) MaxContinuousForce ( x )",
         FigureId::ContinuousEffort, "unreadable [x]:3"},
        {"curves", "", "MaxForce ( 2kN ) ORTSMaxTractiveForceCurves ( 0 ( 0 1 ) )",
         FigureId::ContinuousEffort, "2000000e-3 MaxForce, curve [2kN]:3"},
        {"prime movers", "",
         "ORTSDieselEngineMaxPower ( 9kW ) ORTSDieselEngines ( 2 Diesel ( MaximalPower ( 1kW ) )\n"
         "Diesel ( MaximalPower ( 2kW ) ) )",
         FigureId::PrimeMoverPower, "3000000e-3 ORTSDieselEngines [1kW + 2kW]:3"},
        {"no power", "", "Type ( Electric )", FigureId::Power, "not-given"},
        {"driving trailer", "", "Type ( Control )", FigureId::Power, "not-applicable"},
        {"driving trailer with power", "", "Type ( Control ) MaxPower ( 1W )", FigureId::Power,
         "1000e-3 MaxPower [1W]:3"},
        {"speed of 0", "", "MaxVelocity ( 0 )", FigureId::MaximumSpeed, "not-given [0]:3"},
        {"speed without a unit", "", "MaxVelocity ( 40 )", FigureId::MaximumSpeed,
         "40000e-3 MaxVelocity [40]:3"},
        {"axles of a wagon", "NumWheels ( 8 ) ORTSNumberAxles ( 4 )", nullptr, FigureId::Axles,
         "4000e-3 ORTSNumberAxles [4]:2"},
        {"axles of an engine", "NumWheels ( 8 ) ORTSNumberAxles ( 2 )",
         "ORTSNumberDriveAxles ( 4 )", FigureId::Axles,
         "6000e-3 ORTSNumberAxles + ORTSNumberDriveAxles [2 + 4]:2"},
        {"drive axles only", "NumWheels ( 8 )", "ORTSNumberDriveAxles ( 4 )", FigureId::Axles,
         "4000e-3 ORTSNumberDriveAxles [4]:3"},
        {"no break force", "Coupling ( Spring ( Break ( 0N 0N ) ) )", nullptr,
         FigureId::CouplerBreak, "not-given"},
        {"bad break force", "Coupling ( Spring ( Break ( 1N x ) ) )", nullptr,
         FigureId::CouplerBreak, "unreadable [x]:2"},
        {"type of another block only", "Coupling ( Mass ( 1t ) ) X ( Size ( 1 2 3 ) )", nullptr,
         FigureId::Mass, "not-given"},
        {"passengers", "PassengerCapacity ( 80 )", nullptr, FigureId::Passengers,
         "80000e-3 PassengerCapacity [80]:2"},
    };
    for (const auto &row : kRows) {
        SCOPED_TRACE(row.name);
        std::string text = std::string("Wagon ( x ") + row.wagon + " )\n";
        if (row.engine)
            text += std::string("Engine ( x ") + row.engine + " )";
        const char *const name = row.engine ? "x.eng" : "x.wag";
        EXPECT_EQ(shown(figures(text, Profile::OpenRails, name)[row.id]), row.expected);
    }
    const VehicleFigures wagon = figures("Wagon ( x )", Profile::Msts, "x.wag");
    EXPECT_EQ(shown(wagon[FigureId::Power]), "not-applicable");
    EXPECT_EQ(shown(wagon[FigureId::MaximumSpeed]), "not-applicable");
    const VehicleFigures engine = figures("Wagon ( x )", Profile::Msts, "x.eng");
    EXPECT_EQ(shown(engine[FigureId::Power]), "not-given"); // its Engine block is lost
}

TEST_F(VehicleFiguresTest, LoadsCountForOpenRailsIfTheEmptyWeightIsKnown)
{
    const auto mass = [&](const std::string &loads, Profile profile = Profile::OpenRails) {
        const VehicleFigures seen = figures(
            "Wagon ( x Mass ( 90t ) ORTSFreightAnims (\n" + loads + " ) )", profile, "x.wag");
        return shown(seen[FigureId::Mass]) + ", empty " + shown(seen[FigureId::EmptyMass]);
    };
    const std::string empty = "WagonEmptyWeight ( 20t )\n";
    const std::string fixed = "FreightAnimStatic ( FreightWeight ( 5t ) )";
    const auto load = [](const char *weight, int full) {
        return "FreightAnimContinuous ( FreightWeightWhenFull ( " + std::string(weight) +
               " ) FullAtStart ( " + std::to_string(full) + " ) )\n";
    };
    EXPECT_EQ(mass(fixed + load("60t", 1)), "90000000e-3 Mass [90t]:2, empty not-given");
    EXPECT_EQ(mass(empty), "20000000e-3 WagonEmptyWeight + freight [20t]:3, "
                           "empty 20000000e-3 WagonEmptyWeight [20t]:3");
    // 20 t + 2 x 5 t + 60 t; loads that are not full and later ones count nothing
    EXPECT_EQ(mass(empty + fixed + load("70t", 0) + load("60t", 1) + load("50t", 1) + fixed),
              "90000000e-3 WagonEmptyWeight + freight [20t + 5t + 5t + 60t]:3, "
              "empty 20000000e-3 WagonEmptyWeight [20t]:3");
    EXPECT_EQ(mass(empty + load("x", 1)),
              "unreadable [x]:4, empty 20000000e-3 WagonEmptyWeight [20t]:3");
    EXPECT_EQ(mass(empty + "FreightAnimStatic ( )"),
              "20000000e-3 WagonEmptyWeight + freight [20t]:3, "
              "empty 20000000e-3 WagonEmptyWeight [20t]:3");
    EXPECT_EQ(mass(empty + fixed, Profile::Msts), "90000000e-3 Mass [90t]:2, empty not-given");
}

TEST_F(VehicleFiguresTest, OverrideReplacesValuesAndCouplers)
{
    m_disk.Write("A/OpenRails/x.wag", "\ninclude ( ../x.wag )\nWagon ( Name ( New ) Mass ( 30t )\n"
                                      "Coupling ( Type ( Bar ) Spring ( Break ( 9kN ) ) ) )");
    const std::string base = "Wagon ( x Name ( Old ) Size ( 1 2 12 ) Mass ( 20t ) Coupling (\n"
                             "Type ( Chain ) Spring ( Break ( 1kN ) ) ) )";
    const VehicleFigures msts = figures(base, Profile::Msts, "x.wag");
    const VehicleFigures openRails = figures(base, Profile::OpenRails, "x.wag");
    EXPECT_EQ(shown(msts[FigureId::Mass]), "20000000e-3 Mass [20t]:2");
    EXPECT_EQ(shown(openRails[FigureId::Mass]), "30000000e-3 Mass [30t]:3");
    EXPECT_EQ(shown(openRails[FigureId::CouplerBreak]), "9000000e-3 Break [9kN]:4");
    EXPECT_EQ(openRails.couplers, std::vector<std::string>{"Bar"});
    EXPECT_EQ(openRails.name, "Old");
    const Figure &length = openRails[FigureId::Length];
    EXPECT_EQ(openRails.files.at(length.file), m_disk.Shown("A/x.wag"));
}

} // namespace
} // namespace content
