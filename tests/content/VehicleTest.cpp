// SPDX-License-Identifier: MIT
#include "content/Vehicle.h"

#include "content/References.h"
#include "host/Path.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace content {
namespace {

class VehicleTest : public testing::Test
{
protected:
    /// The vehicle of `<folder>/x.wag` and its override, where there are such files.
    Vehicle read(Profile profile)
    {
        VehicleFiles files;
        files.folder = m_disk.At("A");
        files.base = m_folders.FindFile(m_disk.At("A/x.wag")).value_or("");
        files.overrideFile = m_folders.FindFile(m_disk.At("A/OpenRails/x.wag")).value_or("");
        return Vehicle(m_store, files, profile);
    }
    std::string found(const Vehicle &vehicle, std::string_view path)
    {
        const auto value = vehicle.Find(path);
        if (!value)
            return "none";
        std::string file(host::path::FileName(value->file));
        return value->text + " in " + file + ':' + std::to_string(value->line);
    }
    std::vector<Include::State> states(const Vehicle &vehicle)
    {
        std::vector<Include::State> all;
        for (const Include &include : vehicle.Includes())
            all.push_back(include.state);
        return all;
    }

    support::TempFolder m_disk;
    host::GameFiles m_files;
    host::Snapshot m_folders{m_files};
    FileStore m_store{m_folders};
};

using State = Include::State;
using States = std::vector<State>;

TEST_F(VehicleTest, OverrideReplacesValuesButNotTheName)
{
    m_disk.Write("A/x.wag", "\nWagon ( x Name ( Old ) WagonShape ( a.s )\nMass ( 10t ) )");
    m_disk.Write("A/OpenRails/x.wag",
                 "\ninclude ( ../x.wag )\nWagon ( Name ( New ) WagonShape ( b.s ) )");
    const Vehicle msts = read(Profile::Msts), openRails = read(Profile::OpenRails);
    EXPECT_EQ(found(msts, "Wagon/WagonShape"), "a.s in x.wag:2");
    EXPECT_EQ(found(openRails, "wagon/wagonshape"), "b.s in x.wag:3");
    EXPECT_EQ(openRails.Find("Wagon/WagonShape")->file, m_disk.Shown("A/OpenRails/x.wag"));
    EXPECT_EQ(found(openRails, "Wagon/Mass"), "10t in x.wag:3");
    EXPECT_EQ(found(openRails, "Wagon/Name"), "Old in x.wag:2");
    EXPECT_EQ(found(openRails, "WagonShape"), "none");
    EXPECT_TRUE(msts.Includes().empty());
}

TEST_F(VehicleTest, IncludesAreFoundInEverySpelling)
{
    m_disk.Write("Common.Inc/b.inc", "\nMass ( 1t )");
    m_disk.Write("A/OpenRails/parts/c.inc", "\nWagon ( Size ( 1 2 3 ) )");
    m_disk.Write("A/x.wag", "\nWagon ( x )");
    const char *const kSpellings[] = {R"(include ( "..\\..\\Common.Inc\\b.inc" ))",
                                      R"(INCLUDE ( "..\..\COMMON.INC\b.inc" ))",
                                      R"(include ( ../..//common.inc/b.inc ))"};
    for (const char *const spelling : kSpellings) {
        SCOPED_TRACE(spelling);
        m_disk.Write("A/OpenRails/x.wag",
                     std::string("\ninclude ( ../[[SameName]].wag )\ninclude ( ../[[samename]] )"
                                 "\ninclude ( parts/c.inc ) Wagon ( ") +
                         spelling + " )");
        host::Snapshot folders(m_files);
        FileStore store(folders);
        const VehicleFiles files{m_disk.At("A"), m_disk.At("A/x.wag"),
                                 m_disk.At("A/OpenRails/x.wag")};
        const Vehicle vehicle(store, files, Profile::OpenRails);
        EXPECT_EQ(states(vehicle), (States{State::Read, State::Read, State::Read, State::Read}));
        EXPECT_EQ(found(vehicle, "Wagon/Mass"), "1t in b.inc:2"); // within the block around it
        EXPECT_EQ(found(vehicle, "Wagon/Size"), "1 in c.inc:2");
    }
}

TEST_F(VehicleTest, BadIncludesAreRecorded)
{
    m_disk.Write("A/x.wag", "\nWagon ( x ) include ( x.wag ) include ( a.inc ) include ( no.inc )"
                            " include ( ) include ( packed.inc )");
    m_disk.Write("A/a.inc", "Wagon ( Mass ( 1t ) )\ninclude ( b.inc )");
    m_disk.Write("A/b.inc", "\ninclude ( A.INC )");
    m_disk.Write("A/packed.inc", "SIMISA@F\x10\0\0\0@@@@nothing");
    const Vehicle vehicle = read(Profile::OpenRails);
    EXPECT_EQ(states(vehicle), (States{State::Cycle, State::Read, State::Read, State::Cycle,
                                       State::Missing, State::Missing, State::Damaged}));
    EXPECT_TRUE(vehicle.Includes()[1].losesLine);
    EXPECT_FALSE(vehicle.Includes()[2].losesLine);
    EXPECT_EQ(vehicle.Includes()[3].line, 2);
    EXPECT_EQ(vehicle.Includes()[4].looked, (std::vector{m_disk.Shown("A/no.inc")}));
    EXPECT_EQ(found(vehicle, "Wagon/Mass"), "1t in a.inc:1");
}

TEST_F(VehicleTest, DeepAndManyIncludesAreBounded)
{
    for (int i = 0; i < 150; ++i)
        m_disk.Write("A/" + std::to_string(i) + ".inc",
                     "\ninclude ( " + std::to_string(i + 1) + ".inc )");
    m_disk.Write("A/x.wag", "\nWagon ( x ) include ( 0.inc )");
    const Vehicle deep = read(Profile::OpenRails);
    EXPECT_EQ(deep.Includes().size(), kMaxIncludeDepth + 1);
    EXPECT_EQ(deep.Includes().back().state, State::TooMany);

    for (int level = 0; level <= 6; ++level) {
        std::string text = "\n";
        for (int i = 0; level < 6 && i < 10; ++i)
            text += "\ninclude ( t" + std::to_string(level + 1) + ".inc )";
        m_disk.Write("B/t" + std::to_string(level) + ".inc", text);
    }
    m_disk.Write("B/x.wag", "\nWagon ( x ) include ( t0.inc )");
    const Vehicle many(m_store, {m_disk.At("B"), m_disk.At("B/x.wag"), {}}, Profile::OpenRails);
    EXPECT_EQ(many.Includes().size(), kMaxIncludes + 1);
    EXPECT_EQ(many.Includes().back().state, State::TooMany);
}

TEST_F(VehicleTest, FilesWithoutWagonDifferFromAbsentFiles)
{
    const Vehicle absent = read(Profile::Msts);
    EXPECT_TRUE(absent.Files().empty());
    EXPECT_FALSE(absent.Fault().empty());
    m_disk.Write("A/x.wag", "\nEngine ( x )");
    host::Snapshot folders(m_files);
    FileStore store(folders);
    const Vehicle noWagon(store, {m_disk.At("A"), m_disk.At("A/x.wag"), {}}, Profile::Msts);
    EXPECT_FALSE(IsVehicle(noWagon));
}

} // namespace
} // namespace content
