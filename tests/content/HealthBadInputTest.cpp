// SPDX-License-Identifier: MIT
#include "CompleteInstallation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <map>
#include <set>
#include <thread>

namespace content {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

const std::string kA = "Trains/Trainset/A/";

void expectPartition(const HealthReport &report)
{
    std::set<std::size_t> grouped;
    for (const Cause &cause : report.causes)
        for (const std::size_t index : cause.findings)
            EXPECT_TRUE(grouped.insert(index).second);
    for (std::size_t i = 0; i < report.findings.size(); ++i)
        EXPECT_EQ(grouped.contains(i), report.findings[i].IsProblem());
}

std::map<std::string, std::size_t> countsOfRules(const HealthReport &report)
{
    std::map<std::string, std::size_t> counts;
    for (const Finding &finding : report.findings)
        ++counts[finding.rule];
    return counts;
}

using Counts = std::map<std::string, std::size_t>;

std::string numbered(const char *name, int number)
{
    return name + std::to_string(1000 + number);
}

TEST(HealthBadInputTest, EachFolderThatVanishesDuringTheRunIsAFinding)
{
    constexpr int kFolders = 700, kFirstGone = 600; // more than a run reads ahead
    FileChanges changes;
    for (int i = 0; i < kFolders; ++i)
        changes.emplace_back("Trains/Trainset/" + numbered("V", i) + "/v.wag", "\nWagon ( v )");
    CompleteInstallation installation(changes);
    HealthOptions options;
    options.workers = 2;
    HealthRun run(installation.Files(), installation.Folder().Path(), options);
    bool isGone = false;
    run.Progress = [&](std::size_t, std::size_t) {
        for (int i = kFirstGone; !isGone && i < kFolders; ++i)
            fs::remove_all(installation.Folder().At("Trains/Trainset/" + numbered("V", i)));
        isGone = true;
    };
    const HealthReport report = run.Run();
    EXPECT_EQ(countsOfRules(report), (Counts{{"unreadable-folder", kFolders - kFirstGone}}));
    expectPartition(report);
}

/// Renames a folder; Windows refuses while a file in it is open.
void move(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    do
        fs::rename(from, to, error);
    while (error);
}

TEST(HealthBadInputTest, SurvivesFilesThatComeAndGo)
{
    CompleteInstallation installation;
    const fs::path root(installation.Folder().Path());
    std::atomic<bool> ends = false;
    std::thread mover([&] {
        const fs::path stock = root / "Trains/Trainset/A", routes = root / "Routes/R";
        while (!ends) {
            for (const fs::path &folder : {stock, routes, root / "Sound"})
                move(folder, folder.string() + "-away");
            for (const fs::path &folder : {stock, routes, root / "Sound"})
                move(folder.string() + "-away", folder);
        }
    });
    HealthOptions options;
    options.workers = 3;
    options.routes = true;
    for (int i = 0; i < 20; ++i)
        expectPartition(installation.Check(options));
    ends = true;
    mover.join();
    EXPECT_EQ(installation.Problems(options), Lines{});
}

TEST(HealthBadInputTest, IncludesInACycleOrTooDeepAreOneFindingEach)
{
    FileChanges changes = {
        {kA + "OpenRails/w.wag", "\ninclude ( ../w.wag )\ninclude ( round.inc )"},
        {kA + "OpenRails/round.inc", "\ninclude ( ROUND.INC )"},
        {kA + "deep.wag", "\nWagon ( deep ) include ( 1000.inc )"},
    };
    for (int i = 0; i < 120; ++i)
        changes.emplace_back(kA + numbered("", i) + ".inc",
                             "\ninclude ( " + numbered("", i + 1) + ".inc )");
    EXPECT_EQ(CompleteInstallation(changes).Problems(),
              (Lines{"openrails error include-cycle here " + kA + "OpenRails/round.inc:ROUND.INC",
                     "openrails warning include-depth here " + kA + "1099.inc:1100.inc"}));
}

TEST(HealthBadInputTest, OverridesWithAnIncludeWithoutBracketsAreNotDamaged)
{
    EXPECT_EQ(CompleteInstallation({{kA + "OpenRails/w.wag", "\nINCLUDE \"../w.wag\"\n"},
                                    {kA + "OpenRails/e.eng", "\nEngine ( e )\n"}})
                  .Problems(),
              (Lines{"openrails error damaged-vehicle here " + kA + "OpenRails/e.eng:e.eng"}));
}

TEST(HealthBadInputTest, TimetablesOfAnyWidthAreRead)
{
    constexpr int kColumns = 2000;
    std::string titles, consists = "\n#consist";
    for (int i = 0; i < kColumns; ++i) {
        titles += ';' + numbered("T", i);
        consists += ';' + numbered("lost ", i) + "+c";
    }
    const std::string folder = "Routes/R/Activities/OpenRails/";
    CompleteInstallation installation(
        {{folder + "wide.timetable-or", titles + consists},
         {folder + "narrow.timetable-or", "Train\n#consist\nc\n"},
         {folder + "empty.timetable_or", ""},
         {folder + "self.timetablelist-or", "self.timetablelist-or"}});
    const HealthReport report = installation.Check();
    EXPECT_EQ(countsOfRules(report), (Counts{{"missing-consist", kColumns}}));
    expectPartition(report);
}

TEST(HealthBadInputTest, NamesThatLeadNowhereAreMissingOnce)
{
    const std::string longName(5000, 'x');
    CompleteInstallation installation(
        {{kA + "x.wag", "\nWagon ( x WagonShape ( \"../../../../../../../../../../no.s\" ) Sound ( "
                        "\"" +
                            longName + ".sms\" ) FreightAnim ( \"a|b?*.s\" ) )"},
         {kA + "y.wag", "\nWagon ( y WagonShape ( \"w.s  \" ) Sound ( \"  \" ) CabView ( \"\" ) )"},
         {kA + "SOUND/inside.sms", "\nTr_SMS ( File ( \" \" -1 ) )"},
         {"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( w \"a \" ) ) Wagon "
                                   "( WagonData ( \"\" \"\" ) ) "
                                   "Wagon ( WagonData ( ) ) Wagon ( WagonData ( .. .. ) ) ) )"}});
    const HealthReport report = installation.Check();
    EXPECT_EQ(countsOfRules(report), (Counts{{"missing-shape", 1},
                                             {"missing-sound", 1},
                                             {"missing-freight-animation", 1},
                                             {"missing-vehicle", 2}}));
}

} // namespace
} // namespace content
