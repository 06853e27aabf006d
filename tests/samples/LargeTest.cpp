// SPDX-License-Identifier: MIT
#include "InstallationScan.h"
#include "samples/Sample.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using samples::WriteSample;
using Counts = std::vector<std::size_t>;

TEST(LargeTest, ReachesTheRequestedTotals)
{
    const struct
    {
        samples::Options options;
        Counts totals; ///< folders with stock, stock, consists
    } rows[] = {
        {{.folders = 30, .stock = 200, .consists = 50}, {30, 200, 50}},
        {{.folders = 10}, {10, 65, 14}},
        {{.stock = 66}, {11, 66, 14}},
        {{.consists = 20}, {8, 45, 20}},
        {{.folders = 20, .stock = 46}, {9, 46, 14}},  // one file for twelve folders
        {{.folders = 20, .stock = 57}, {20, 57, 14}}, // one each
        {{.seed = 7}, {8, 45, 14}},
    };
    for (const auto &row : rows) {
        const support::TempFolder temp;
        const samples::Totals said = WriteSample(temp.At("s"), row.options);
        EXPECT_EQ(scan::Installation(temp.At("s")).Totals(), row.totals);
        EXPECT_EQ(said.stock, row.totals[1]);
        EXPECT_EQ(said.consists, row.totals[2]);
    }
}

TEST(LargeTest, CreatesFoldersWithoutStock)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"), {.folders = 20, .stock = 46});
    const auto names = temp.Names("s/TRAINS/TRAINSET");
    EXPECT_EQ(std::count_if(names.begin(), names.end(),
                            [](const std::string &name) { return name.find('.') == name.npos; }),
              20);
}

TEST(LargeTest, GeneratedPartIsClean)
{
    const support::TempFolder temp;
    WriteSample(temp.At("plain"));
    WriteSample(temp.At("large"), {.folders = 30, .stock = 200, .consists = 50});
    const scan::Installation large(temp.At("large"));
    EXPECT_EQ(large.Unresolved(), scan::Installation(temp.At("plain")).Unresolved());
    for (const std::string &path : large.Files(".s")) {
        const std::string text = large.Text(path);
        if (text.find("shape (") == std::string::npos) {
            EXPECT_EQ(scan::Payload(large.Bytes(path)).find("JINX0s1b____"), 0U) << path;
        }
    }
}

std::size_t countOf(const std::string &text, std::string_view piece)
{
    std::size_t count = 0;
    for (auto at = text.find(piece); at != text.npos; at = text.find(piece, at + 1))
        ++count;
    return count;
}

TEST(LargeTest, ConsistsHaveOneToSixtyUnitsAndUseBothParts)
{
    const support::TempFolder temp;
    WriteSample(temp.At("s"), {.folders = 30, .stock = 200, .consists = 700});
    const scan::Installation large(temp.At("s"));
    std::size_t units = 0;
    std::size_t ofGenerated = 0;
    std::set<std::size_t> lengths;
    for (const std::string &path : large.Files(".con")) {
        if (path.find("Generated") == std::string::npos)
            continue;
        const std::string text = large.Text(path);
        lengths.insert(countOf(text, "Data ( "));
        units += countOf(text, "Data ( ");
        ofGenerated += countOf(text, " \"Stock ");
    }
    EXPECT_EQ(*lengths.begin(), 1U);
    EXPECT_EQ(*lengths.rbegin(), 60U);
    EXPECT_EQ(lengths.size(), 60U);
    EXPECT_GT(ofGenerated, units / 2);
    EXPECT_LT(ofGenerated, units);
}

TEST(LargeTest, SeedDecidesTheContent)
{
    const support::TempFolder temp;
    const auto consist = [&](const char *folder, std::optional<std::uint64_t> seed) {
        WriteSample(temp.At(folder), {.folders = 12, .consists = 15, .seed = seed});
        return temp.Read(std::string(folder) + "/TRAINS/CONSISTS/Generated 00001.con");
    };
    const std::string first = consist("a", {});
    EXPECT_EQ(first, consist("b", 1));
    EXPECT_NE(first, consist("c", 2));
}

} // namespace
