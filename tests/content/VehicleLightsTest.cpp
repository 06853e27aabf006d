// SPDX-License-Identifier: MIT
#include "content/VehicleLights.h"

#include "content/VehicleBoxes.h"
#include "host/Path.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace content {
namespace {

class VehicleLightsTest : public testing::Test
{
protected:
    /// Reads a wagon with these entries.
    Vehicle read(const std::string &entries)
    {
        m_disk.Write("A/x.wag", "\nWagon ( x\n" + entries + " )");
        host::Snapshot folders(m_files);
        FileStore store(folders);
        return Vehicle(store, FindVehicle(store, m_disk.At("A"), "x.wag"), Profile::Msts);
    }
    /// Returns each light as "glow 1,2,3 azimuth radius colour", and each problem after "!".
    std::string lights(const std::string &entries)
    {
        std::string text;
        const VehicleLights read = LightsOf(this->read("Lights ( 9\n" + entries + " )"));
        for (const VehicleLight &light : read.lights) {
            char line[128];
            const auto number = [](float value) { return static_cast<double>(value); };
            std::snprintf(line, sizeof line, "%s %g,%g,%g %g %g %08x",
                          light.isCone ? "cone" : "glow", number(light.at[0]), number(light.at[1]),
                          number(light.at[2]), number(light.azimuth), number(light.radius),
                          light.colour);
            text +=
                line + (light.isCone ? ' ' + std::to_string(light.angle).substr(0, 2) : "") + '\n';
        }
        for (const std::string &problem : read.problems)
            text += '!' + m_disk.Relative(problem) + '\n';
        return text;
    }

    support::TempFolder m_disk;
    host::GameFiles m_files;
};

TEST_F(VehicleLightsTest, ReadsTheFirstStateAndReportsWhatItCannotShow)
{
    EXPECT_EQ(
        lights("Light ( Type ( 0 ) States ( 2 State ( LightColour ( 80ff0000 ) "
               "Position ( -1 20cm \"3m\" ) Azimuth ( 180 -10 10 ) Radius ( 0.5 ) ) "
               "State ( LightColour ( ffffffff ) Position ( 9 9 9 ) ) ) )\n"
               "Light ( Type ( 1 ) States ( 1 State ( LightColour ( ffffffff ) "
               "Position ( 0 3 9 ) Radius ( 400 ) Angle ( 12 ) ) ) )\n"
               "Light ( States ( 1 State ( LightColour ( FF00FF00 ) Position ( 0 1 0 ) "
               "Radius ( 900 ) ) ) )\n"
               "Light ( States ( 1 State ( LightColour ( 00000000 ) Position ( 0 1 0 ) ) ) )"),
        "glow -1,0.2,3 180 0.5 80ff0000\ncone 0,3,9 0 400 ffffffff 12\n"
        "glow 0,1,0 0 5 ff00ff00\n");
    EXPECT_EQ(
        lights("Light ( Type ( 0 ) )\nLight ( States ( 1 ) )\n"
               "Light ( Type ( 7 ) States ( State ( LightColour ( ffffffff ) Position ( 0 1 0 "
               ") ) ) )\n"
               "Light ( States ( State ( LightColour ( red ) Position ( 0 1 0 ) ) ) )\n"
               "Light ( States ( State ( LightColour ( ffffffff ) ) ) )\n"
               "Light ( States ( State ( LightColour ( ffffffff ) Position ( nan 1 0 ) ) ) )\n"
               "Light ( States ( State ( LightColour ( ffffffff ) Position ( 0 1 0 ) "
               "Radius ( -1 ) ) ) )\n"
               "Light ( States ( State ( LightColour ( ffffffff ) Position ( 0 1 0 ) ) ) )"),
        "glow 0,1,0 0 1 ffffffff\n"
        "!A/x.wag, line 4: light 1 has no states\n"
        "!A/x.wag, line 5: light 2 has no states\n"
        "!A/x.wag, line 6: light 3 has the unknown type 7\n"
        "!A/x.wag, line 7: light 4 has no usable LightColour: red\n"
        "!A/x.wag, line 8: light 5 has no position\n"
        "!A/x.wag, line 9: light 6 has no usable Position: nan\n"
        "!A/x.wag, line 10: light 7 has no usable Radius: -1\n");
}

TEST_F(VehicleLightsTest, ThousandsOfLightsAreBounded)
{
    std::string many;
    for (int i = 0; i < 1000; ++i)
        many += "Light ( Type ( 1 ) States ( State ( LightColour ( ffffffff ) Position ( 0 1 0 ) ) "
                ") )\n";
    const VehicleLights read = LightsOf(this->read("Lights ( 1000\n" + many + ")"));
    EXPECT_EQ(read.lights.size(), kMaxLights);
    ASSERT_EQ(read.problems.size(), 1U);
    EXPECT_EQ(m_disk.Relative(read.problems[0]),
              "A/x.wag: of 1000 lights only the first 100 are shown");
}

TEST_F(VehicleLightsTest, ConditionsDecideWhereInTheTrainALightShines)
{
    const LightSituation lead{true, false, false, true, true},
        middle{false, false, true, true, true}, last{false, true, true, false, true},
        day{true, true, false, false, false};
    const struct
    {
        const char *conditions;
        std::string shinesIn; ///< l(ead), m(iddle), r(ear), d(ay)
    } rows[] = {
        {"", "lmrd"},
        {"Conditions ( Headlight ( 3 ) Unit ( 2 ) )", "ld"},
        {"Conditions ( Headlight ( 2 ) Unit ( 2 ) )", ""},
        {"Conditions ( Unit ( 1 ) )", "m"},
        {"Conditions ( Unit ( 3 ) Penalty ( 1 ) Control ( 2 ) Service ( 2 ) )", "rd"},
        {"Conditions ( Unit ( 3 ) ) Conditions ( Coupling ( 2 ) )", "lrd"},
        {"Conditions ( Headlight ( 0 ) Coupling ( 3 ) TimeOfDay ( 2 ) )", "m"},
        {"Conditions ( TimeOfDay ( 1 ) )", "d"},
        {"Conditions ( Penalty ( 2 ) )", ""},
        {"Conditions ( Unit ( 9 ) )", ""},
        {"Conditions ( Unit ( x ) )", ""},
        {"Conditions ( Humidity ( 1 ) )", ""},
        {"Conditions ( Humidity ( 0 ) )", "lmrd"},
    };
    for (const auto &row : rows) {
        const VehicleLights read = LightsOf(
            this->read(std::string("Lights ( 1 Light ( Type ( 0 ) ") + row.conditions +
                       " States ( State ( LightColour ( ffffffff ) Position ( 0 1 0 ) ) ) ) )"));
        ASSERT_EQ(read.lights.size(), 1U) << row.conditions;
        std::string shines;
        for (const auto &[name, now] : {std::pair{'l', lead}, std::pair{'m', middle},
                                        std::pair{'r', last}, std::pair{'d', day}})
            if (read.lights[0].ShinesIn(now))
                shines += name;
        EXPECT_EQ(shines, row.shinesIn) << row.conditions;
    }
}

TEST_F(VehicleLightsTest, BoxesFollowTheRulesForLengths)
{
    const auto boxes = [this](const std::string &entries) { return BoxesOf(read(entries)); };
    EXPECT_EQ(boxes("Size ( 3m 4 10ft )").size, (std::array<float, 3>{3, 4, 3.048F}));
    for (const char *none : {"", "Size ( 0m 0m 0m )", "Size ( 3m 4m )", "Size ( 3m 4m 1e9m )"})
        EXPECT_FALSE(boxes(none).size) << none;
    EXPECT_FALSE(boxes("Size ( 3m 4m 9m )").hasCouplers);
    const VehicleBoxes placed =
        boxes("Coupling ( Type ( Automatic ) FrontCouplerAnim ( x.s 0 1.1 0.2 ) )");
    EXPECT_TRUE(placed.hasCouplers);
    EXPECT_EQ(placed.front, (std::array<float, 3>{0, 1.1F, 0.2F}));
    EXPECT_EQ(placed.rear, VehicleBoxes::kCoupler);
}

} // namespace
} // namespace content
