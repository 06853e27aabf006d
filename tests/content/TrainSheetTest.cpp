// SPDX-License-Identifier: MIT
#include "content/TrainSheet.h"
#include "content/SheetText.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <thread>

namespace content {
namespace {

using Names = std::vector<std::string>;

class TrainSheetTest : public testing::Test
{
protected:
    void stock(const std::string &name, const std::string &text)
    {
        m_disk.Write("TRAINS/TRAINSET/" + name, "\n" + text);
    }
    /// Sums units such as "A/x.wag".
    TrainSheet sheet(const Names &units, std::optional<double> ownMaximum = std::nullopt)
    {
        TrainSheet sheet(ownMaximum);
        for (const std::string &unit : units)
            sheet.Add(*m_cache.Get(itemOf(unit)));
        return sheet;
    }
    static install::StockItem itemOf(const std::string &unit)
    {
        const std::size_t slash = unit.find('/');
        return {unit.ends_with(".eng") ? "Engine" : "Wagon", unit.substr(0, slash),
                unit.substr(slash + 1, unit.size() - slash - 5)};
    }
    static std::string lines(const TrainSheet &sheet, UnitSystem system)
    {
        std::string text;
        for (const SheetLine &line : LinesOf(sheet, system))
            text += line.label + ": " + line.text + '\n';
        return text;
    }

    support::TempFolder m_disk;
    host::GameFiles m_files;
    host::Snapshot m_snapshot{m_files};
    FileStore m_store{m_snapshot};
    InstallFolders m_folders{m_snapshot, m_disk.Path()};
    FigureCache m_cache{m_store, m_folders, Profile::OpenRails};
};

constexpr const char *kEngine =
    "Wagon ( e Size ( 3m 4m 20m ) Mass ( 100t ) NumWheels ( 6 ) MaxBrakeForce ( 80kN )\n"
    "BrakeSystemType ( Air_single_pipe ) Coupling ( Spring ( Break ( 4e6N ) ) ) )\n"
    "Engine ( e MaxPower ( 2000kW ) MaxForce ( 300kN ) MaxContinuousForce ( 200kN )\n"
    "MaxVelocity ( 120km/h ) )";
constexpr const char *kWagon =
    "Wagon ( w Size ( 3m 4m 15m ) Mass ( 40t ) ORTSNumberAxles ( 4 ) MaxBrakeForce ( 20kN )\n"
    "BrakeSystemType ( Vacuum_single_pipe ) Coupling ( Spring ( Break ( 2e6N ) ) ) )";

TEST_F(TrainSheetTest, IncompleteFiguresNameTheirVehicles)
{
    stock("A/e.eng", kEngine);
    stock("A/slow.eng", "Wagon ( s Size ( 1 1 10m ) Mass ( 50t ) ) Engine ( s MaxPower ( 1e400 )\n"
                        "MaxForce ( 100kN ) MaxVelocity ( 90km/h ) )");
    stock("B/w.wag", kWagon);
    stock("B/bad.wag", "Wagon ( b Size ( 1 1 5m ) Mass ( abc ) )");
    stock("B/broken.wag", "Engine ( b )");
    const TrainSheet seen = sheet({"A/e.eng", "A/slow.eng", "B/w.wag", "b/W.wag", "B/bad.wag",
                                   "B/bad.wag", "B/gone.wag", "B/broken.wag"});
    EXPECT_EQ(seen.Units(), 8u);
    EXPECT_EQ(seen[FigureId::Length].value, 20 + 10 + 15 + 15 + 5 + 5);
    EXPECT_EQ(seen[FigureId::Length].unknown, (Names{"B/gone.wag", "B/broken.wag"}));
    EXPECT_EQ(seen[FigureId::Mass].value, 230000); // 100 + 50 + 2 x 40 t
    EXPECT_EQ(seen[FigureId::Mass].unknown, (Names{"B/bad.wag", "B/gone.wag", "B/broken.wag"}));
    EXPECT_EQ(seen[FigureId::Mass].unknownUnits, 4u);
    EXPECT_EQ(seen[FigureId::Power].value, 2000000);
    EXPECT_EQ(seen[FigureId::Power].unknown, Names{"A/slow.eng"}); // wagons have no power
    EXPECT_EQ(seen[FigureId::MaximumSpeed].value, 25);
    EXPECT_EQ(seen[FigureId::MaximumSpeed].limitedBy, "A/slow.eng");
    EXPECT_EQ(seen[FigureId::CouplerBreak].limitedBy, "B/w.wag");
    EXPECT_EQ(seen.Missing(), Names{"B/gone.wag"});
    EXPECT_EQ(seen.Damaged(), Names{"B/broken.wag"});
    EXPECT_EQ(lines(seen, UnitSystem::Metric),
              "Units: 8\nLength: \u2265 70 m, 2 unknown\nMass: \u2265 230 t, 4 unknown\n"
              "Power: \u2265 2,000 kW, 1 unknown\nStarting effort: 400 kN\n"
              "Continuous effort: 300 kN\nTop speed: 90 km/h (A/slow.eng)\n"
              "Brake force: \u2265 120 kN, 5 unknown\n"
              "Brakes: mixed: Air_single_pipe (1), Vacuum_single_pipe (2)\n"
              "Weakest coupler: \u2264 2,000 kN, 5 unknown (B/w.wag)\n"
              "Axles: \u2265 14, 5 unknown (1 unit by NumWheels)\n"
              "Missing: B/gone.wag\nDamaged: B/broken.wag\n");
}

TEST_F(TrainSheetTest, TheConsistsOwnSpeedReplacesThoseOfTheVehicles)
{
    stock("A/e.eng", kEngine);
    const TrainSheet seen = sheet({"A/e.eng", "A/gone.eng"}, 50.0);
    EXPECT_EQ(seen[FigureId::MaximumSpeed].value, 50);
    EXPECT_EQ(seen[FigureId::MaximumSpeed].limitedBy, "");
    EXPECT_TRUE(seen[FigureId::MaximumSpeed].unknown.empty());
    EXPECT_EQ(FigureText(seen, FigureId::MaximumSpeed, UnitSystem::Uk),
              "112 mph (set by the consist)");
    const TrainSheet engines = sheet({"A/e.eng", "A/gone.eng"});
    EXPECT_EQ(FigureText(engines, FigureId::MaximumSpeed, UnitSystem::Us),
              "\u2264 74.6 mph, 1 unknown (A/e.eng)");
}

TEST_F(TrainSheetTest, WithoutAnyFigureThereIsNoZero)
{
    stock("B/w.wag", "Wagon ( w )");
    stock("B/x.wag", "Wagon ( x Mass ( 7t ) )");
    const TrainSheet none = sheet({"B/w.wag"}), empty = sheet({});
    EXPECT_EQ(none[FigureId::Mass].value, std::nullopt);
    EXPECT_EQ(none[FigureId::Power].value, 0); // complete: wagons have no power
    EXPECT_EQ(FigureText(none, FigureId::Mass, UnitSystem::Metric), "unknown");
    EXPECT_EQ(FigureText(none, FigureId::MaximumSpeed, UnitSystem::Metric), "none");
    EXPECT_EQ(empty[FigureId::Length].value, 0);
    EXPECT_EQ(sheet({"B/w.wag", "B/x.wag"})[FigureId::Mass].value, 7000);
}

TEST_F(TrainSheetTest, TextsHaveTheUnitsOfTheSystem)
{
    stock("A/e.eng", kEngine);
    stock("B/full.wag", "Wagon ( f Mass ( 90t ) ORTSFreightAnims ( WagonEmptyWeight ( 10t )\n"
                        "FreightAnimStatic ( FreightWeight ( 33t ) ) ) PassengerCapacity ( 8 ) )");
    const TrainSheet one = sheet({"A/e.eng"});
    // 20 m = 65.6 ft; 100 t = 110.2 t-us = 98.4 t-uk; 2000 kW = 2682 hp; 300 kN = 67,443 lbf
    EXPECT_EQ(lines(one, UnitSystem::Us),
              "Units: 1\nLength: 65.6 ft\nMass: 110 t-us\nPower: 2,680 hp\n"
              "Starting effort: 67,443 lbf\nContinuous effort: 44,962 lbf\n"
              "Top speed: 74.6 mph (A/e.eng)\nBrake force: 17,985 lbf\nBrakes: Air_single_pipe\n"
              "Weakest coupler: 899,236 lbf (A/e.eng)\nAxles: 6 (NumWheels)\n");
    EXPECT_EQ(FigureText(one, FigureId::Mass, UnitSystem::Uk), "98.4 t-uk");
    EXPECT_EQ(FigureText(FigureId::Length, 99.96, UnitSystem::Metric), "100 m");
    EXPECT_EQ(FigureText(FigureId::Mass, 0, UnitSystem::Metric), "0 t");
    EXPECT_EQ(FigureText(FigureId::Mass, 1234567890, UnitSystem::Metric), "1,234,568 t");
    const TrainSheet loaded = sheet({"B/full.wag"});
    EXPECT_EQ(FigureText(loaded, FigureId::Mass, UnitSystem::Metric), "43 t");
    const std::string text = lines(loaded, UnitSystem::Metric);
    EXPECT_NE(text.find("Empty mass: 10 t\n"), text.npos) << text;
    EXPECT_NE(text.find("Passengers: 8\n"), text.npos) << text;
}

TEST_F(TrainSheetTest, CacheKeepsVehiclesAndReadsNoneTwice)
{
    stock("A/e.eng", kEngine);
    const auto item = itemOf("A/e.eng");
    EXPECT_EQ(m_cache.Known(item), nullptr);
    std::vector<std::shared_ptr<const SheetVehicle>> seen(4);
    std::vector<std::thread> threads;
    for (auto &place : seen)
        threads.emplace_back([&] { place = m_cache.Get(item); });
    for (std::thread &thread : threads)
        thread.join();
    for (const auto &vehicle : seen)
        EXPECT_EQ(vehicle, m_cache.Known(itemOf("a/E.eng")));
    m_disk.Write("TRAINS/TRAINSET/A/e.eng", "gone");
    EXPECT_EQ(m_cache.Get(item)->figures[FigureId::Mass].value, 100000);
    const std::string longName(10000, 'n');
    EXPECT_TRUE(m_cache.Get({"Wagon", "A", longName})->IsMissing());
    EXPECT_TRUE(m_cache.Get({"Wagon", "", ""})->IsMissing());
}

TEST(OwnMaximumTest, NewConsistsSetNone)
{
    const std::pair<const char *, std::optional<double>> kRows[] = {
        {"MaxVelocity ( 27.5 0.1 )", 27.5},    {"MaxVelocity ( 40.00000 1 )", std::nullopt},
        {"MaxVelocity ( 0 1 )", std::nullopt}, {"MaxVelocity ( abc )", std::nullopt},
        {"MaxVelocity ( 72km/h )", 20.0},      {"", std::nullopt},
        {"MaxVelocity ( -5 )", std::nullopt},  {"MaxVelocity ( 1e400 )", std::nullopt},
    };
    for (const auto &[text, expected] : kRows) {
        support::TempFolder disk;
        disk.Write("c.con", "\nTrain ( TrainCfg ( c " + std::string(text) + " ) )");
        host::GameFiles files;
        StfFile file(files);
        file.SetFileName(disk.At("c.con"));
        file.Load();
        EXPECT_EQ(OwnMaximumOf(install::RequireTrain(file)), expected) << text;
    }
}

} // namespace
} // namespace content
