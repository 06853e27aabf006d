// SPDX-License-Identifier: MIT
#include "samples/Sample.h"

#include "InstallationScan.h"
#include "samples/Consists.h"
#include "samples/HealthCases.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;
using samples::WriteSample;

/// Returns the message of WriteSample when it refuses.
std::string refusal(const std::string &out, const samples::Options &options = {})
{
    try {
        WriteSample(out, options);
    } catch (const std::runtime_error &error) {
        return error.what();
    }
    return "not refused";
}

std::map<std::string, std::string> allBytes(const std::string &root)
{
    const scan::Installation installation(root);
    std::map<std::string, std::string> all;
    for (const std::string &path : installation.Files())
        all[path] = installation.Bytes(path);
    return all;
}

TEST(SampleTest, TheSameOptionsGiveTheSameBytes)
{
    const support::TempFolder temp;
    const samples::Totals totals = WriteSample(temp.At("a"));
    WriteSample(temp.At("b"));
    const auto bytes = allBytes(temp.At("a"));
    EXPECT_EQ(allBytes(temp.At("b")), bytes);
    EXPECT_EQ(bytes.size(), static_cast<std::size_t>(totals.files) + 1);
    EXPECT_TRUE(bytes.contains(samples::kMarkerFile));
}

TEST(SampleTest, DefaultSampleHasItsTotals)
{
    const support::TempFolder temp;
    const samples::Totals totals = WriteSample(temp.At("s"));
    EXPECT_EQ(scan::Installation(temp.At("s")).Totals(), (std::vector<std::size_t>{8, 45, 14}));
    EXPECT_EQ(totals.folders, 8);
    EXPECT_EQ(totals.stock, 45);
    EXPECT_EQ(totals.consists, 14);
}

TEST(SampleTest, NoOtherFilesLookLikeStockOrARoute)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"));
    for (const std::string &path : scan::Installation(temp.At("s")).Files("g"))
        EXPECT_TRUE(path.ends_with(".eng") || path.ends_with(".wag")) << path;
    EXPECT_EQ(temp.Names("s/ROUTES"),
              (std::vector<std::string>{"Ochre Coast", "Old.Backup", "TARNWICK"}));
    for (const char *shared : {"Common.Cab", "Common.Inc", "Common.Snd"})
        EXPECT_TRUE(temp.Exists(std::string("s/TRAINS/TRAINSET/") + shared)) << shared;
}

TEST(SampleTest, CanBeWrittenAgainInPlace)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"));
    const auto before = allBytes(temp.At("s"));
    temp.Write("s/TRAINS/CONSISTS/Depot Shunter.con", "spoilt");
    fs::remove_all(temp.At("s/ROUTES"));
    temp.Write("s/TRAINS/CONSISTS/Mine.con", "mine");
    WriteSample(temp.At("s"));
    EXPECT_EQ(temp.Read("s/TRAINS/CONSISTS/Mine.con"), "mine");
    fs::remove(temp.At("s/TRAINS/CONSISTS/Mine.con"));
    EXPECT_EQ(allBytes(temp.At("s")), before);
}

TEST(SampleTest, LoadsAndLooksOnlyAddFiles)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"));
    auto plain = allBytes(temp.At("s"));
    const samples::Totals totals = WriteSample(temp.At("s"), {.loads = true, .looks = true});
    auto all = allBytes(temp.At("s"));
    EXPECT_EQ(all.size(), static_cast<std::size_t>(totals.files) + 1);
    EXPECT_EQ(std::vector({totals.folders, totals.stock, totals.consists}),
              std::vector({10, 50, 16}));
    plain.erase(samples::kMarkerFile);
    for (const auto &[path, bytes] : plain)
        EXPECT_EQ(all[path], bytes) << path;
}

TEST(SampleTest, HealthCasesOnlyAddFiles)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"));
    auto plain = allBytes(temp.At("s"));
    const samples::Totals totals = WriteSample(temp.At("s"), {.health = true}); // adds them
    WriteSample(temp.At("new"), {.health = true});
    auto all = allBytes(temp.At("s"));
    EXPECT_EQ(allBytes(temp.At("new")), all);
    EXPECT_EQ(all.size(), static_cast<std::size_t>(totals.files) + 1);
    EXPECT_EQ(std::vector({totals.folders, totals.stock, totals.consists}),
              std::vector({12, 71, 20}));
    EXPECT_EQ(refusal(temp.At("s")),
              temp.At("s") +
                  ": holds a sample made with other options; name a new or empty folder");
    EXPECT_NE(plain.extract(samples::kMarkerFile).mapped(),
              all.extract(samples::kMarkerFile).mapped());
    for (const auto &[path, bytes] : plain)
        EXPECT_EQ(all[path], bytes) << path;
    for (const samples::HealthCase &each : samples::HealthCases()) {
        const std::string file(each.file);
        EXPECT_TRUE(all.contains(file)) << file;
        const bool isInPlain =
            each.in == samples::InSample::All || each.in == samples::InSample::DefaultOnly;
        EXPECT_TRUE(plain.contains(file) || !isInPlain) << file;
    }
}

TEST(SampleTest, RefusesFoldersThatItDidNotMake)
{
    const support::TempFolder temp;
    temp.Write("full/letter.txt", "dear");
    temp.Write("file", "text");
    temp.Write("forged/zelk-sample.txt", "hello");
    temp.MakeFolder("marked/zelk-sample.txt");
    WriteSample(temp.At("other"), {.consists = 15});
    const struct
    {
        const char *folder;
        const char *reason;
    } rows[] = {
        {"full", "is not empty and was not made by this program; name a new or empty folder"},
        {"file", "is not a folder"},
        {"forged", "holds a sample made with other options; name a new or empty folder"},
        {"marked", "is not empty and was not made by this program; name a new or empty folder"},
        {"other", "holds a sample made with other options; name a new or empty folder"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(refusal(temp.At(row.folder)), temp.At(row.folder) + ": " + row.reason);
    EXPECT_EQ(temp.Names("full"), std::vector<std::string>{"letter.txt"});
    EXPECT_EQ(temp.Read("forged/zelk-sample.txt"), "hello");
    EXPECT_EQ(refusal(temp.At("file/below")).find(temp.At("file/below") + ": cannot be made"), 0);
}

TEST(SampleTest, DoesNotWriteThroughLinks)
{
    const support::TempFolder temp;
    temp.Write("outside/letter.txt", "dear");
    WriteSample(temp.At("s"));
    const std::string file = "s/TRAINS/CONSISTS/night mail.con";
    fs::remove(temp.At(file));
    std::error_code error;
    fs::create_symlink(temp.At("outside/letter.txt"), temp.At(file), error);
    if (error)
        GTEST_SKIP() << "links cannot be created here: " << error.message();
    EXPECT_EQ(refusal(temp.At("s")), temp.At(file) + ": is in the way: not a plain file");
    fs::remove_all(temp.At("s/TRAINS/CONSISTS"));
    fs::create_directory_symlink(temp.At("outside"), temp.At("s/TRAINS/CONSISTS"));
    EXPECT_EQ(refusal(temp.At("s")),
              temp.At("s/TRAINS/CONSISTS") + ": is a symbolic link, which is not followed");
    EXPECT_EQ(temp.Names("outside"), std::vector<std::string>{"letter.txt"});
    EXPECT_EQ(temp.Read("outside/letter.txt"), "dear");
}

TEST(SampleTest, RefusesImpossibleTotals)
{
    const support::TempFolder temp;
    const struct
    {
        samples::Options options;
        const char *reason;
    } rows[] = {
        {{.folders = 7}, "--folders 7: must be 8 to 99999"},
        {{.stock = -1}, "--stock -1: must be 45 to 10000000"},
        {{.consists = 100000}, "--consists 100000: must be 14 to 99999"},
        {{.folders = 8, .stock = 46}, "--folders 8: more stock needs at least one folder more"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(refusal(temp.At("s"), row.options), row.reason);
    EXPECT_FALSE(temp.Exists("s"));
}

/// Checks the special feature of each consist in its bytes and its text.
TEST(SampleTest, ConsistsHaveTheirSpecialFeatures)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"));
    const struct
    {
        const char *file;
        const char *begins;
        std::size_t units;
        const char *first; ///< block of TrainCfg
        std::vector<const char *> pieces;
    } rows[] = {
        {"Depot Shunter", "\xFF\xFES", 1, "Name", {}},
        {"Long Coal Drag", "\xFF\xFES", 64, "Name", {"NextWagonUID ( 64 )"}},
        {"coastal express",
         "\xFF\xFES",
         6,
         "Name",
         {"Flip ( )", R"(\"Coastal\")", "\"Ardmoor Valley\""}},
        {"Steam Special", "\xFF\xFES", 5, "Name", {"Default ( )", "EngineVariables ( 0.5"}},
        {"Repair Train", "\xFF\xFES", 19, "Name", {}},
        {"Quarry_Local", "\xFF\xFES", 3, "Name", {"( avr_hopper_12 Ardmoor Valley )"}},
        {"Harbour Transfer", "\xFF\xFES", 6, "Name", {"NextWagonUID ( 380102 )", "box_gone"}},
        {"night mail", "\xFE\xFF", 4, "Serial", {"UiD ( 114 )", "NextWagonUID ( 118 )"}},
        {"double (2)", "\xFF\xFET", 2, "MaxVelocity", {"TrainCfg ( \"double (2)\""}},
        {"Ferry Goods ", "\xFF\xFES", 11, "Serial", {"TrainCfg ( \"Ferry Goods\"", "güterwagen"}},
        {"Broken Tail", "\xFF\xFES", 3, "Name", {"106.7t full\" )"}},
        {"Works Train #3",
         "\xFF\xFES",
         3,
         "Name",
         {"comment (", "#Wagon (", "ORTSEOT (", "\r\n\r\n"}},
        {"Förster Bummel", "SIMISA", 3, "Name", {"Förstenwald"}},
        {"Cafe Car", "SIMISA", 3, "Name", {"Café", "COASTLINE"}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.file);
        const std::string bytes = temp.Read(std::string("s/TRAINS/CONSISTS/") + row.file + ".con");
        const std::string text = scan::Decode(bytes);
        EXPECT_EQ(bytes.find(row.begins), 0U);
        EXPECT_EQ(scan::Values(text, "(?:Engine|Wagon)Data").size(), row.units);
        EXPECT_NE(text.find(std::string("\n\t\t") + row.first), std::string::npos);
        EXPECT_EQ(text.find("\tName (") != std::string::npos, row.first == std::string("Name"));
        for (const char *piece : row.pieces)
            EXPECT_NE(text.find(piece), std::string::npos) << piece;
        EXPECT_EQ(text.find('\n') - 1, text.find('\r'));
    }
}

TEST(SampleTest, HarbourTransferRepeatsItsNumbers)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"));
    const std::string text = scan::Decode(temp.Read("s/TRAINS/CONSISTS/Harbour Transfer.con"));
    EXPECT_EQ(scan::FirstValues(text, "UiD"),
              (std::vector<std::string>{"0", "0", "1", "1", "2", "2"}));
}

TEST(SampleTest, ActivitiesHaveTheirLooseConsists)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"));
    const struct
    {
        const char *file;
        std::vector<std::string> types;
        std::size_t trains;
    } rows[] = {
        {"TARNWICK/ACTIVITIES/Light engine.act", {}, 0},
        {"TARNWICK/ACTIVITIES/Morning coal.act", {"WagonsList"}, 1},
        {"TARNWICK/ACTIVITIES/Five cuts.act", std::vector<std::string>(5, "WagonsList"), 5},
        {"Ochre Coast/ACTIVITIES/Harbour shunt.act", {"WagonsList", "PickupArea", "WagonsList"}, 2},
        {"Ochre Coast/ACTIVITIES/Autumn leaves.act", {"WagonsList", "WagonsList"}, 2},
    };
    for (const auto &row : rows) {
        const std::string text = scan::Decode(temp.Read(std::string("s/ROUTES/") + row.file));
        EXPECT_EQ(scan::FirstValues(text, "ObjectType"), row.types) << row.file;
        EXPECT_EQ(scan::Values(text, "TrainCfg").size(), row.trains) << row.file;
        EXPECT_EQ(text.find("ActivityObjects") == std::string::npos, row.types.empty());
    }
}

} // namespace
