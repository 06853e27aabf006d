// SPDX-License-Identifier: MIT
#include "document/ReplacementPlan.h"

#include <gtest/gtest.h>

using document::FileInUse;
using document::FoundInUse;
using document::ReplacementPlan;

namespace {

const install::StockItem kBox = {"Wagon", "Boxcars", "box"};

/// A plan for files with these numbers of units; the name of an activity begins with "R/".
ReplacementPlan planFor(const std::vector<std::pair<std::string, std::size_t>> &files,
                        const std::string &bytes = "same")
{
    std::vector<document::SearchedFile> searched;
    FoundInUse found;
    for (const auto &[name, units] : files) {
        searched.push_back({"/" + name, name, name.starts_with("R/")});
        FileInUse file;
        file.path = "/" + name;
        file.bytes = bytes;
        file.units.resize(units);
        found.files.push_back(file);
    }
    return {kBox, searched, found};
}

TEST(ReplacementPlanTest, SummaryCountsTheChosenUnitsAndTheirFiles)
{
    ReplacementPlan plan = planFor({{"a", 3}, {"b", 1}, {"R/x.act", 2}});
    EXPECT_EQ(plan.ChosenUnits(), 4u);
    EXPECT_EQ(plan.Summary(), "4 of 6 units in 2 consists will change.");
    plan.Choose(2, 1, true);
    plan.Choose(0, 0, false);
    plan.Choose(1, false);
    EXPECT_EQ(plan.Summary(), "3 of 6 units in 1 consist and 1 activity will change.");
    plan.Choose(0, true);
    plan.Choose(1, true);
    plan.Choose(2, true);
    EXPECT_EQ(plan.Summary(), "6 units in 2 consists and 1 activity will change.");
    for (const std::size_t file : {0, 1, 2})
        plan.Choose(file, false);
    EXPECT_EQ(plan.Summary(), "None of 6 units is ticked.");
    EXPECT_EQ(planFor({}).Summary(), "No consist and no activity uses Boxcars/box.wag.");
}

TEST(ReplacementPlanTest, BlockedFileHasNoChosenUnits)
{
    ReplacementPlan plan = planFor({{"a", 2}, {"b", 1}});
    plan.Block(0, "it has unsaved changes");
    plan.Choose(0, true);
    plan.Choose(0, 1, true);
    EXPECT_EQ(plan.Summary(), "1 of 3 units in 1 consist will change.");
    plan.Block(0, "");
    EXPECT_EQ(plan.ChosenUnits(), 1u) << "lifting a block chooses nothing";
    plan.Choose(0, 1, true);
    plan.Block(0, "");
    EXPECT_EQ(plan.ChosenUnits(), 2u) << "and withdraws nothing";
}

TEST(ReplacementPlanTest, EarlierChoiceIsRepeatedForUnchangedFiles)
{
    ReplacementPlan earlier = planFor({{"some", 2}, {"none", 2}, {"all", 2}, {"blocked", 2}});
    earlier.Choose(0, 1, false);
    earlier.Choose(1, false);
    earlier.Block(3, "it has unsaved changes");
    const auto chosenIn = [](const ReplacementPlan &plan) {
        std::string text;
        for (const ReplacementPlan::File &file : plan.Files())
            text += file.name + ' ' + std::to_string(file.ChosenUnits()) + ", ";
        return text;
    };
    const auto again = [&](const std::string &bytes) {
        ReplacementPlan plan =
            planFor({{"some", 2}, {"none", 2}, {"all", 2}, {"blocked", 2}, {"new", 1}}, bytes);
        plan.ChooseAsIn(earlier);
        return chosenIn(plan);
    };
    EXPECT_EQ(again("same"), "some 1, none 0, all 2, blocked 2, new 1, ");
    EXPECT_EQ(again("changed"), "some 0, none 0, all 2, blocked 2, new 1, ");
}

} // namespace
