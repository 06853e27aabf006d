// SPDX-License-Identifier: MIT
#include "CompleteInstallation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace content {
namespace {

using Lines = std::vector<std::string>;

constexpr auto kGone = std::nullopt;
const std::string kR = "Routes/R/";

std::string shapeOf(const std::string &image)
{
    return "SIMISA@@@@@@@@@@JINX0s1t______\n\nshape ( images ( 1 image ( " + image + " ) ) )";
}

std::string worldOf(const std::string &shape)
{
    return "\nTr_Worldfile ( Static ( FileName ( " + shape + " ) ) )";
}

HealthOptions routes()
{
    HealthOptions options;
    options.routes = true;
    return options;
}

/// The expected lines were derived by hand from the rules of the simulators.
TEST(HealthRoutesTest, FindsExactlyWhatIsWrong)
{
    const struct
    {
        const char *name;
        FileChanges changes;
        Lines expected;
    } kCases[] = {
        {"a shape is missing, in two world files",
         {{kR + "World/w-2.w", worldOf("gone.s")}, {kR + "World/w-3.w", worldOf("GONE.s")}},
         {"both warning missing-route-shape nowhere " + kR + "World/w-2.w:gone.s"}},
        {"MSTS does not read the pieces of Open Rails",
         {{kR + "Shapes/extra.s", kGone}},
         {"openrails warning missing-route-shape nowhere " + kR + "World/OpenRails/w-1.w:extra.s"}},
        {"a shape of another route",
         {{kR + "World/w-2.w", worldOf("barn.s")},
          {"Routes/S/Shapes/barn.s", shapeOf("barn.ace")},
          {"Trains/Trainset/A/barn.s", shapeOf("w.ace")}},
         {"both warning wrong-folder misplaced " + kR + "World/w-2.w:barn.s"}},
        {"a shape among the stock is no help",
         {{kR + "World/w-2.w", worldOf("seats.s")}},
         {"both warning missing-route-shape nowhere " + kR + "World/w-2.w:seats.s"}},
        {"textures of the other folder",
         {{"Global/Textures/track.ace", kGone},
          {kR + "Textures/TRACK.ACE", ""},
          {kR + "Shapes/extra.s", shapeOf("wire.ace")},
          {"Global/Textures/wire.dds", ""},
          {"Global/Textures/wire.ace", ""}},
         {}},
        {"a texture is missing, and its season with it",
         {{kR + "Shapes/extra.s", shapeOf("gone.ace")},
          {kR + "Shapes/extra.sd", "\nshape ( ESD_Alternative_Texture ( 1 ) )"},
          {kR + "World/w-2.w", worldOf("extra.s")}},
         {"msts note missing-season-texture nowhere " + kR + "Shapes/extra.s:Snow/gone.ace",
          "msts warning missing-route-texture nowhere " + kR + "Shapes/extra.s:gone.ace",
          "openrails error missing-route-texture nowhere " + kR + "Shapes/extra.s:gone.ace"}},
        {"a .dds beside a missing .ace",
         {{kR + "Textures/house.ace", kGone}, {kR + "Textures/house.dds", ""}},
         {"msts warning wrong-extension misplaced " + kR + "Shapes/house.s:house.ace"}},
        {"a season falls back to the plain texture",
         {{kR + "Textures/SNOW/house.ace", kGone}, {kR + "Textures/SNOW/x.ace", ""}},
         {"msts note missing-season-texture nowhere " + kR + "Shapes/house.s:Snow/house.ace"}},
        {"files that cannot be read",
         {{kR + "Shapes/house.s", "SIMISA@F\x10"},
          {kR + "World/w-2.w", std::string("SIMISA@@@@@@@@@@JINX0w0b______\r\n\xff\0\0", 35)}},
         {"both note unread-world here " + kR + "World/w-2.w:w-2.w",
          "both warning damaged-shape here " + kR + "Shapes/house.s:house.s"}},
        {"world files without content",
         {{kR + "World/w-2.w", ""}, {kR + "World/w-3.w", "\nTr_Worldfile ( )"}},
         {}},
    };
    for (const auto &each : kCases) {
        SCOPED_TRACE(each.name);
        CompleteInstallation installation(each.changes);
        EXPECT_EQ(installation.Problems(routes()), each.expected);
        EXPECT_EQ(installation.Problems(), Lines{});
    }
}

TEST(HealthRoutesTest, OneFindingServesAllWorldFilesOfARoute)
{
    FileChanges changes;
    for (const char *const route : {"R", "S"})
        for (int i = 2; i < 9; ++i)
            changes.emplace_back("Routes/" + std::string(route) + "/World/w-" + std::to_string(i) +
                                     ".w",
                                 worldOf("gone.s") + worldOf("lost.s"));
    changes.emplace_back("Global/Textures/track.ace", kGone);
    changes.emplace_back("Routes/S/World/w-1.w", worldOf("track.s"));
    CompleteInstallation installation(changes);
    const HealthReport report = installation.Check(routes());
    std::map<std::string, std::size_t> users;
    for (const Finding &finding : report.findings)
        if (finding.profiles.Has(Profile::OpenRails))
            users[installation.Folder().Relative(finding.file) + ' ' + finding.wants + ' ' +
                  finding.id] = finding.neededBy.size();
    EXPECT_EQ(users.size(), 6u); // for each route two shapes and a texture
    std::size_t most = 0;
    for (const auto &[key, count] : users)
        most += count;
    EXPECT_EQ(most, 4u * 7u + 2u);
    changes.erase(changes.begin()); // the file in which the shapes were found first
    CompleteInstallation less(changes);
    std::size_t known = 0;
    for (const Finding &finding : less.Check(routes()).findings)
        known += static_cast<std::size_t>(
            std::count_if(report.findings.begin(), report.findings.end(),
                          [&](const Finding &each) { return each.id == finding.id; }));
    EXPECT_EQ(known, report.findings.size());
}

TEST(HealthRoutesTest, ReferencesInOrderNameTheirPlaces)
{
    CompleteInstallation installation({{kR + "Textures/house.ace", kGone},
                                       {kR + "Textures/SNOW/house.ace", kGone},
                                       {kR + "Textures/house.dds", ""}});
    HealthOptions options = routes();
    options.keepAll = true;
    options.profiles = Profile::OpenRails;
    std::map<std::string, std::string> found;
    for (const Finding &finding : installation.Check(options).findings)
        found[finding.wants] = std::string(AnswerName(finding.answer)) + ' ' +
                               installation.Folder().Relative(finding.foundAt);
    EXPECT_EQ(found["House.s"], "here Routes/R/Shapes/house.s");
    EXPECT_EQ(found["track.s"], "elsewhere Global/Shapes/track.s");
    EXPECT_EQ(found["track.ace"], "here Global/Textures/track.ace");
    EXPECT_EQ(found["house.ace"], "elsewhere Routes/R/Textures/house.dds");
    EXPECT_EQ(found["Snow/house.ace"], "elsewhere Routes/R/Textures/house.dds");
}

} // namespace
} // namespace content
