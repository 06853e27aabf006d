// SPDX-License-Identifier: MIT
#include "content/VehicleCatalogue.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

const std::string kHead = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n";

std::string wagonOf(const char *length, const char *coupler)
{
    return kHead + "Wagon ( x Type ( Freight ) Size ( 3m 4m " + length + " ) Coupling ( Type ( " +
           coupler + " ) ) )\r\n";
}

class VehicleCatalogueTest : public testing::Test
{
protected:
    VehicleCatalogueTest()
    {
        installation.Write("Trains/Trainset/A/box.wag", wagonOf("12m", "Chain"));
        installation.Write("Trains/Trainset/A/van.wag", wagonOf("15m", "Chain"));
        installation.Write("Trains/Trainset/B/tank.WAG", wagonOf("12m", "Chain"));
        installation.Write("Trains/Trainset/B/notes.txt");
        installation.Write("Trains/Trainset/C/loco.eng", kHead + "Wagon ( loco )");
        installation.Write("Trains/Trainset/C/OpenRails/new.wag", wagonOf("12m", "Chain"));
        installation.Write("Trains/Consists/a.con",
                           kHead + "Train ( TrainCfg ( \"a\"\r\n"
                                   "Engine ( EngineData ( loco C ) )\r\n"
                                   "Wagon ( WagonData ( BOX a ) ) Wagon ( WagonData ( box A ) )\r\n"
                                   "Wagon ( WagonData ( gone My Stock ) )\r\n"
                                   "Wagon ( WagonData ( new C ) )\r\n"
                                   "Wagon ( EOTData ( flag f ) ) Wagon ( WagonData ( x ) ) ) )");
        installation.Write("Trains/Consists/broken.con", "SIMISA@F\x10");
    }
    /// Returns the catalogue, each entry as "FOLDER/NAME.wag UNITS", with "!" if it is missing.
    std::vector<std::string> catalogue(const content::GoOn &goOn = {}) const
    {
        std::vector<std::string> lines;
        for (const auto &entry : content::VehicleCatalogue(installation.Path(), goOn))
            lines.push_back(entry.vehicle.folder + '/' +
                            install::StockFileName(entry.vehicle.type, entry.vehicle.shape) + ' ' +
                            std::to_string(entry.units) + (entry.isInstalled ? "" : " !"));
        return lines;
    }

    support::TempFolder installation;
};

TEST_F(VehicleCatalogueTest, ListsInstalledVehiclesAndThoseThatConsistsName)
{
    EXPECT_EQ(catalogue(),
              (std::vector<std::string>{"A/box.wag 2", "A/van.wag 0", "B/tank.wag 0",
                                        "C/loco.eng 1", "C/new.wag 1", "My Stock/gone.wag 1 !"}));
    EXPECT_EQ(catalogue([](std::size_t, std::size_t total) { return total == 0; }).size(), 6u)
        << "ends after one of the two consists";
    EXPECT_TRUE(catalogue([](std::size_t, std::size_t) { return false; }).empty());
}

TEST_F(VehicleCatalogueTest, CandidatesComeWithTheReason)
{
    const auto nearest = [this](const install::StockItem &vehicle) {
        std::vector<std::string> lines;
        for (const auto &each : content::ReadCandidates(
                 installation.Path(), vehicle, content::InstalledVehicles(installation.Path())))
            lines.push_back(each.vehicle.folder + '/' + each.vehicle.shape + ": " + each.why);
        return lines;
    };
    EXPECT_EQ(nearest({"Wagon", "A", "box"}),
              (std::vector<std::string>{"B/tank: same length, same couplers, same kind",
                                        "A/van: same couplers, same kind"}));
    EXPECT_EQ(nearest({"Wagon", "gone", "Tank"}),
              (std::vector<std::string>{"B/tank: same name", "A/box: ", "A/van: "}));
    EXPECT_TRUE(nearest({"Engine", "C", "loco"}).empty());
}

} // namespace
