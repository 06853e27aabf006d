// SPDX-License-Identifier: MIT
#include "content/AddedShapes.h"

#include "host/Path.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace content {
namespace {

class AddedShapesTest : public testing::Test
{
protected:
    AddedShapesTest()
    {
        for (const char *name : {"own.s", "coal.s", "crate.s", "hook.s", "hose.s"})
            m_disk.Write(std::string("A/") + name, "shape");
    }
    /// Reads a wagon with these entries after its own shape.
    AddedShapes read(Profile profile, const std::string &entries)
    {
        m_disk.Write("A/x.wag", "\nWagon ( x WagonShape ( own.s )\n" + entries + " )");
        host::Snapshot folders(m_files);
        FileStore store(folders);
        const VehicleFiles files = FindVehicle(store, m_disk.At("A"), "x.wag");
        return AddedShapesOf(Vehicle(store, files, profile), files, store);
    }
    /// Returns each shape as "coal.s 0,1,0 load", and each problem after "!".
    static std::string textOf(const AddedShapes &added)
    {
        std::string text;
        for (const AddedShape &shape : added.shapes) {
            char place[64];
            std::snprintf(place, sizeof place, " %g,%g,%g", static_cast<double>(shape.offset[0]),
                          static_cast<double>(shape.offset[1]),
                          static_cast<double>(shape.offset[2]));
            const char *const from[] = {"", " front", " rear"}, *const when[] = {"", " coupled",
                                                                                 " free"};
            text += (text.empty() ? "" : "; ") + std::string(host::path::FileName(shape.path)) +
                    place + from[static_cast<int>(shape.from)] +
                    when[static_cast<int>(shape.when)] + (shape.isLoad ? " load" : "") +
                    (shape.turned ? " turned" : "");
        }
        for (const std::string &problem : added.problems)
            text += "!" + problem.substr(std::min(problem.size(), problem.find(".wag") + 4));
        return text;
    }

    support::TempFolder m_disk;
    host::GameFiles m_files;
};

std::string openRails(const std::string &animations)
{
    return "ORTSFreightAnims ( " + animations + " )";
}

} // namespace

TEST_F(AddedShapesTest, LoadsStandWhereTheirSimulatorPutsThem)
{
    const std::string tender = "Type ( Tender ) ";
    const std::string full = "FreightAnimContinuous ( Shape ( coal.s ) MaxHeight ( 0.5m ) "
                             "MinHeight ( -2 ) FullAtStart ( 1 ) Offset ( 0.1, 0.2, 3 ) )";
    const struct
    {
        std::string entries;
        const char *msts, *openRails;
    } rows[] = {
        {"FreightAnim ( coal.s 1 1 )", "coal.s 0,0,0 load", "coal.s 0,0,0 load"},
        {"FreightAnim ( COAL.S 1 0 ) FreightAnim ( crate.s )",
         "coal.s 0,0,0 load; crate.s 0,0,0 load", "coal.s 0,0,0 load; crate.s 0,0,0 load"},
        {tender + "FreightAnim ( coal.s 0.3 -1.5 )", "coal.s 0,0.3,0 load", "coal.s 0,0.3,0 load"},
        {tender + "FreightAnim ( coal.s coal.sd 30cm 0 )", "coal.s 0,0.3,0 load",
         "coal.s 0,0.3,0 load"},
        {tender + "FreightAnim ( coal.s 1 1 )", "coal.s 0,0,0 load", "coal.s 0,0,0 load"},
        {openRails("FreightAnimStatic ( Shape ( crate.s ) Offset ( 1 20cm -3.5 ) Flip ( ) )"), "",
         "crate.s 1,0.2,-3.5 load turned"},
        {openRails("FreightAnimStatic ( Offset ( \"0,1,2\" ) Shape ( \".\\\\crate.s\" ) )"), "",
         "crate.s 0,1,2 load"},
        {openRails("FreightAnimStatic ( Shape ( crate.s ) Visibility ( \"Cab2D, Cab3D\" ) )"), "",
         ""},
        {openRails("FreightAnimStatic ( Shape ( crate.s ) Visibility ( \"Cab3D, Outside\" ) )"), "",
         "crate.s 0,0,0 load"},
        {openRails(full), "", "coal.s 0.1,0.7,3 load"},
        {openRails("FreightAnimContinuous ( Shape ( coal.s ) MaxHeight ( 1 ) )"), "", ""},
        {openRails("FreightAnimContinuous ( Shape ( coal.s ) FullAtStart ( 0 ) ) "
                   "FreightAnimContinuous ( FullAtStart ( true ) ) "
                   "FreightAnimContinuous ( Shape ( crate.s ) FullAtStart ( true ) )" +
                   full),
         "", "crate.s 0,0,0 load"},
        {"FreightAnim ( coal.s 1 1 )" +
             openRails("MSTSFreightAnimEnabled ( 0 ) FreightAnimStatic ( Shape ( crate.s ) )"),
         "coal.s 0,0,0 load", "crate.s 0,0,0 load"},
        // What one entry lacks costs only that entry.
        {"FreightAnim ( gone.s 1 1 ) FreightAnim ( coal.s 1 1 )",
         "coal.s 0,0,0 load!, line 3: gone.s is missing",
         "coal.s 0,0,0 load!, line 3: gone.s is missing"},
        {"FreightAnim ( own.s 1 1 ) FreightAnim ( x.wag 0 0 )",
         "x.wag 0,0,0 load!, line 3: own.s is the shape of the vehicle itself",
         "x.wag 0,0,0 load!, line 3: own.s is the shape of the vehicle itself"},
        {openRails("FreightAnimStatic ( Shape ( own.s ) Offset ( 0 1 0 ) )"), "",
         "own.s 0,1,0 load"},
        {openRails("FreightAnimStatic ( Shape ( coal.s ) Offset ( 0 nan 0 ) ) "
                   "FreightAnimStatic ( Shape ( coal.s ) Offset ( 1e400 0 0 ) ) "
                   "FreightAnimStatic ( Shape ( coal.s ) Offset ( 0 0 1001 ) ) "
                   "FreightAnimStatic ( Shape ( coal.s ) Offset ( 1.2.3 2parsecs - ) )"),
         "",
         "coal.s 1.2,2,0 load"
         "!, line 3: coal.s has no place: nan is no usable number of metres"
         "!, line 3: coal.s has no place: 1e400 is no usable number of metres"
         "!, line 3: coal.s has no place: 1001 is no usable number of metres"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(textOf(read(Profile::Msts, row.entries)), row.msts) << row.entries;
        EXPECT_EQ(textOf(read(Profile::OpenRails, row.entries)), row.openRails) << row.entries;
    }
}

TEST_F(AddedShapesTest, CouplersAndHosesDependOnWhatStandsAtTheEnd)
{
    const struct
    {
        const char *coupling, *added;
    } rows[] = {
        {"FrontCouplerAnim ( hook.s 0 0.9 0.1 )", "hook.s 0,0.9,0.1 front"},
        {"RearCouplerAnim ( hook.s ) RearCouplerOpenAnim ( crate.s 0 1 0 )",
         "hook.s 0,0,0 rear coupled; crate.s 0,1,0 rear free"},
        {"FrontCouplerOpenAnim ( hook.s ) RearCouplerAnim ( crate.s )",
         "hook.s 0,0,0 front free; crate.s 0,0,0 rear"},
        {"FrontAirHoseAnim ( hose.s 0.3 1 0 ) RearAirHoseDisconnectedAnim ( hose.s 0.3 1 0 )",
         "hose.s 0.3,1,0 front coupled; hose.s 0.3,1,0 rear free"},
        {"CouplingHasRigidConnection ( ) Type ( Automatic )", ""},
        {"FrontAirHoseAnim ( gone.s ) FrontCouplerAnim ( hook.s )",
         "hook.s 0,0,0 front!, line 3: gone.s is missing"},
    };
    for (const auto &row : rows) {
        const std::string entries = std::string("Coupling ( ") + row.coupling + " )";
        EXPECT_EQ(textOf(read(Profile::OpenRails, entries)), row.added) << row.coupling;
        EXPECT_EQ(textOf(read(Profile::Msts, entries)), "") << "MSTS has no such shapes";
    }
}

TEST_F(AddedShapesTest, OverrideAndIncludesAddTheirOwn)
{
    m_disk.Write("A/OpenRails/x.wag", "\ninclude ( ../x.wag )\nWagon ( ORTSFreightAnims ( "
                                      "FreightAnimStatic ( Shape ( crate.s )\n"
                                      "include ( place.inc ) ) ) )");
    m_disk.Write("A/OpenRails/place.inc", "\nOffset ( 0 0 4 )");
    EXPECT_EQ(textOf(read(Profile::OpenRails, "FreightAnim ( coal.s 1 1 )")),
              "coal.s 0,0,0 load; crate.s 0,0,4 load");
    EXPECT_EQ(textOf(read(Profile::Msts, "FreightAnim ( coal.s 1 1 )")), "coal.s 0,0,0 load");
}

TEST_F(AddedShapesTest, TenThousandLoadsAreLimited)
{
    std::string entries, equal;
    for (int i = 0; i < 10000; ++i) {
        entries +=
            "FreightAnimStatic ( Shape ( coal.s ) Offset ( 0 0 0." + std::to_string(i) + ") )\n";
        equal += "Shape ( coal.s )\n";
    }
    const AddedShapes added = read(Profile::OpenRails, openRails(entries));
    EXPECT_LE(added.shapes.size(), kMaxLoads);
    EXPECT_GT(added.shapes.size(), kMaxLoads / 2);
    ASSERT_EQ(added.problems.size(), 1U);
    EXPECT_NE(added.problems[0].find("of 10000 loads only the first 100 are shown"),
              std::string::npos)
        << added.problems[0];
    EXPECT_EQ(
        read(Profile::OpenRails, openRails("FreightAnimStatic ( " + equal + " )")).shapes.size(),
        1U)
        << "equal shapes at the same place are one";
}

} // namespace content
