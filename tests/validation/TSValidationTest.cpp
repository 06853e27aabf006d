// SPDX-License-Identifier: MIT
#include "validation/TSValidation.h"

#include "SmallInstallation.h"
#include "host/Path.h"
#include "host/RuntimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

namespace {

TEST(TSValidationTest, TranslatesResultKeys)
{
    const std::pair<const char *, const char *> rows[] = {
        {"no bar at all", "no bar at all"},
        {"-1|a|", "INFO: a is OK"},
        {"0|a|b", "INFO: b referenced by a is OK"},
        {"1|a|b", "ERROR: b referenced by a is MISSING"},
        {"2|a|", "ERROR: a is COMPRESSED"},
        {"3|a|", "ERROR: a appears CORRUPT"},
        {"4|a", "ERROR: a is EMPTY"},
        {"5|a|", "ERROR: a is SUSPECT due to problems with dependent files"},
        {"5|a|   ", "ERROR: a is SUSPECT due to problems with dependent files"},
        {"6|a|b", "ERROR: a references missing file b"},
        {"7|a|b|c", "INFO: a references file b|c"},
        {"8|a|b", "ERROR: "},
        {"-2|a|b", "ERROR: "},
        {"70000|a|b", "ERROR: "},
        {"1x|a", "ERROR: a is MISSING"},
        {"x|a", "INFO: a is OK"},
        {"|a", "INFO: a is OK"},
        {"6|a|b.s\r\nERROR: \x1b[2J\x7f", "ERROR: a references missing file b.s  ERROR:  [2J "},
    };
    for (const auto &[key, line] : rows)
        EXPECT_EQ(TSValidation::TranslateError(key), line) << key;
}

TEST(TSValidationTest, PrintsAndJudgesFindingsFromTheirData)
{
    using validation::Finding;
    using validation::Verdict;
    const struct
    {
        Finding finding;
        const char *line;
        bool isError;
    } rows[] = {
        {{Verdict::Missing, "a|b.wag", ""}, "ERROR: a|b.wag is MISSING", true},
        {{Verdict::HasMissingReference, "a|b", "c|d"},
         "ERROR: a|b references missing file c|d",
         true},
        {{Verdict::Referenced, "ERROR: |a", "b"}, "INFO: ERROR: |a references file b", false},
        {{Verdict::Ok, "a", ""}, "INFO: a is OK", false},
        {{Verdict::Valid, "a", "b"}, "INFO: b referenced by a is OK", false},
        {{Verdict::Suspect, "a", " "},
         "ERROR: a is SUSPECT due to problems with dependent files",
         true},
        {{Verdict::Missing, "a\nb", ""}, "ERROR: a b is MISSING", true},
        {{Verdict{99}, "a", "b"}, "ERROR: ", true},
    };
    for (const auto &[finding, line, isError] : rows) {
        EXPECT_EQ(ReportLine(finding), line);
        EXPECT_EQ(IsError(finding), isError) << line;
        if (finding.file.find('|') == std::string::npos) {
            EXPECT_EQ(TSValidation::TranslateError(ResultKey(finding)), line);
        }
    }
    SmallInstallation place;
    TSValidation validation(place.Location(), place.Files());
    const std::string file = place.At("no|ne.wag");
    validation.CheckStock(file);
    EXPECT_EQ(validation.Findings(), (std::vector<Finding>{{Verdict::Missing, file, ""}}));
    EXPECT_EQ(validation.Errors(), std::vector<std::string>{"1|" + file + '|'});
    validation.Reset();
    EXPECT_TRUE(validation.Findings().empty());
}

/// Records all events of a validation, one per line.
class Listener
{
public:
    Listener(TSValidation &validation, const SmallInstallation &place)
    {
        validation.MessageRaised = [this, &place](const std::string &message, std::int16_t level) {
            m_log.push_back(std::to_string(level) + ' ' + place.Neutral(message));
        };
        validation.ErrorRaised = [this, &place](const auto &dependent, const auto &file,
                                                std::int16_t code) {
            m_log.push_back(
                place.Neutral("E " + std::to_string(code) + ' ' + file + ' ' + dependent));
        };
        validation.ProgressRaised = [this](std::size_t done, std::size_t total) {
            m_log.push_back("P " + std::to_string(done) + '/' + std::to_string(total));
        };
    }
    std::vector<std::string> Take() { return std::exchange(m_log, {}); }

private:
    std::vector<std::string> m_log;
};

using Lines = std::vector<std::string>;
const std::string kA = "Trains/Trainset/A/";

TEST(TSValidationTest, RaisesTheStepsOfAnEngine)
{
    SmallInstallation place;
    TSValidation validation(place.Location(), place.Files());
    Listener listener(validation, place);
    validation.CheckStock(place.At(kA + "e.eng"));
    const Lines steps = {"0 Checking <M>/Trains/Trainset/A/e.eng",
                         "0 Checking shape files",
                         "0 Checking sound files",
                         "0 Checking engine related files",
                         "0 Checking cabview files",
                         "0 Checking sound files"};
    EXPECT_EQ(listener.Take(), steps);
}

TEST(TSValidationTest, RaisesEventsInOrder)
{
    SmallInstallation place(Changes{{kA + "Sound/a.wav", std::nullopt}});
    TSValidation validation(place.Location(), place.Files());
    Listener listener(validation, place);
    const Lines sound = {"E 6 <M>/Trains/Trainset/A/Sound/a.sms <M>/Trains/Trainset/A/Sound/a.wav",
                         "E 5 <M>/Trains/Trainset/A/Sound/a.sms "};
    validation.CheckStock(place.At(kA + "a.wag"));
    const Lines quiet = {"0 Checking <M>/Trains/Trainset/A/a.wag",
                         "0 Checking shape files",
                         "0 Checking sound files",
                         sound[0],
                         sound[1],
                         "0 Checking engine related files"};
    EXPECT_EQ(listener.Take(), quiet);

    validation.SetVerboseMessages(true);
    validation.CheckCabView(place.At(kA + "Cabview/e.cvf"));
    const std::string cab = "1 INFO: <M>/Trains/Trainset/A/Cabview/";
    EXPECT_EQ(listener.Take(),
              (Lines{cab + "front.ace is OK", cab + "left.ace is OK", cab + "dial.ace is OK"}));
    validation.CheckConsistUseInRoute("R", "d");
    EXPECT_EQ(listener.Take(), (Lines{"P 1/1", "1 INFO: d referenced by R services is OK"}));
    validation.CheckStockUseInRoute(place.At(kA + "a.wag"), "R");
    EXPECT_EQ(listener.Take()[2], "2 INFO: <M>/Routes/R/Activities/x.act references file "
                                  "<M>/Trains/Trainset/A/a.wag");
    EXPECT_EQ(validation.Errors().size(), 3U) << "results add up";
    validation.Reset();
    EXPECT_EQ(validation.Errors(), Lines());
    EXPECT_TRUE(validation.VerboseMessages());
}

TEST(TSValidationTest, ReportsTheProgressOfTheSearchInConsists)
{
    SmallInstallation place(Changes{{"Trains/Consists/b.con", "Train ( TrainCfg ( b ) )"}});
    TSValidation validation(place.Location(), place.Files());
    Listener listener(validation, place);
    validation.CheckStockInConsists(place.At(kA + "a.wag"));
    EXPECT_EQ(listener.Take(),
              (Lines{"P 1/2", "0 Checking b.con", "P 2/2", "0 Checking c.con",
                     "E 7 <M>/Trains/Consists/c.con <M>/Trains/Trainset/A/a.wag", "0 Done"}));
}

TEST(TSValidationTest, LeavesOutTheStepsWithinFilesOnRequest)
{
    SmallInstallation place(Changes{{kA + "Sound/a.sms", std::nullopt}});
    TSValidation validation(place.Location(), place.Files());
    Listener listener(validation, place);
    validation.SetStepMessages(false);
    validation.CheckAllStock();
    const std::string sound = " <M>/Trains/Trainset/A/Sound/a.sms",
                      error = "E 6 <M>/Trains/Trainset/A/";
    EXPECT_EQ(listener.Take(),
              (Lines{"0 Checking your TS Installation", "P 1/2", "0 Checking (1 of 2) A/a.wag",
                     error + "a.wag" + sound, "P 2/2", "0 Checking (2 of 2) A/e.eng",
                     error + "e.eng" + sound, "0 TS Installation check complete"}));
    validation.CheckSound(place.At(kA + "Sound/a.sms"));
    validation.CheckStock(place.At(kA + "a.wag"));
    EXPECT_EQ(listener.Take()[2], "0 Checking shape files") << "steps of a single file are raised";
}

/// Writes many folders, with several kinds of faults in some of their wagons.
Changes manyFolders()
{
    Changes changes;
    for (int i = 10; i < 60; ++i) {
        const std::string folder = "Trains/Trainset/F" + std::to_string(i) + '/';
        changes.emplace_back(folder + "w.wag", "Wagon ( w WagonShape ( w.s ) Sound ( " +
                                                   std::string(i % 3 ? "w" : "none") + ".sms ) )");
        changes.emplace_back(folder + "w.s", "");
        if (i % 4)
            changes.emplace_back(folder + "w.sd", "");
        changes.emplace_back(folder + "Sound/w.sms",
                             i % 5 ? "Tr_SMS ( File ( w.wav ) )" : "nothing");
        if (i % 7)
            changes.emplace_back(folder + "Sound/w.wav", "");
        changes.emplace_back("Trains/Consists/F" + std::to_string(i) + ".con",
                             "Train ( TrainCfg ( Wagon ( WagonData ( w F" + std::to_string(i % 9) +
                                 "1 ) ) Wagon ( WagonData ( w F11 ) ) ) )");
    }
    return changes;
}

TEST(TSValidationTest, ResultIsTheSameForAnyNumberOfWorkers)
{
    SmallInstallation place(manyFolders());
    const auto logOf = [&](std::size_t workers, bool pumped) {
        TSValidation validation(place.Location(), place.Files(), workers);
        validation.SetVerboseMessages(true);
        Listener listener(validation, place);
        if (pumped)
            validation.ProcessEvents = [] {};
        EXPECT_EQ(validation.CheckAllStock(), TSValidation::IsSuspect);
        validation.CheckStockInConsists(place.At("Trains/Trainset/F11/w.wag"));
        validation.CheckConsist(place.At("Trains/Consists/c.con"));
        Lines log = listener.Take();
        std::copy(validation.Errors().begin(), validation.Errors().end(), std::back_inserter(log));
        return log;
    };
    const Lines one = logOf(1, false);
    EXPECT_GT(one.size(), 500U);
    EXPECT_EQ(logOf(2, false), one);
    EXPECT_EQ(logOf(7, false), one);
    EXPECT_EQ(logOf(7, true), one);
}

TEST(TSValidationTest, ChecksAllStockInListingOrder)
{
    SmallInstallation place(Changes{{"Trains/Trainset/b/z.wag", ""},
                                    {"Trains/Trainset/b/Y.WAG", ""},
                                    {"Trains/Trainset/b/x.txt", ""},
                                    {"Trains/Trainset/no.stock/x.wag", ""}});
    TSValidation validation(place.Location(), place.Files());
    Listener listener(validation, place);
    const auto items = [&](const char *filter, std::int16_t verdict) {
        EXPECT_EQ(validation.CheckAllStock(filter), verdict) << filter;
        Lines log = listener.Take();
        EXPECT_EQ(log.front(), "0 Checking your TS Installation");
        EXPECT_EQ(log.back(), "0 TS Installation check complete");
        std::erase_if(log, [](const auto &line) { return !line.starts_with("0 Checking ("); });
        return log;
    };
    EXPECT_EQ(items("*", TSValidation::IsSuspect),
              (Lines{"0 Checking (1 of 4) A/a.wag", "0 Checking (2 of 4) A/e.eng",
                     "0 Checking (3 of 4) b/Y.WAG", "0 Checking (4 of 4) b/z.wag"}));
    EXPECT_EQ(items("a", TSValidation::IsValid).size(), 2U);
    EXPECT_EQ(items("none", TSValidation::IsValid), Lines());
    EXPECT_EQ(validation.Errors().size(), 2U);
}

TEST(TSValidationTest, StopsBetweenTwoFilesUntilReset)
{
    SmallInstallation place(manyFolders());
    TSValidation validation(place.Location(), place.Files(), 3);
    Listener listener(validation, place);
    int passes = 0;
    validation.ProcessEvents = [&] { ++passes; };
    validation.ProgressRaised = [&](std::size_t done, std::size_t) {
        if (done == 20)
            validation.Stop();
    };
    validation.CheckAllStock();
    Lines log = listener.Take();
    EXPECT_GE(passes, 51 + 20) << "after each folder and each file";
    EXPECT_EQ(log.back(), "0 Checking engine related files") << "of the 20th file";
    EXPECT_EQ(std::count_if(log.begin(), log.end(),
                            [](const auto &line) { return line.starts_with("0 Checking ("); }),
              20);
    const Lines errors = validation.Errors();
    EXPECT_FALSE(errors.empty());
    EXPECT_TRUE(validation.Stopped());

    EXPECT_EQ(validation.CheckStockInConsists("x/y.wag"), TSValidation::IsValid);
    EXPECT_EQ(validation.CheckStock("x/y.wag"), TSValidation::IsValid);
    EXPECT_EQ(validation.CheckConsistUseInRoute("none", "x"), TSValidation::IsValid);
    validation.CheckAllStock();
    EXPECT_EQ(listener.Take(), Lines());
    EXPECT_EQ(validation.Errors(), errors);
    validation.Reset();
    EXPECT_EQ(validation.CheckStock("x/y.wag"), TSValidation::IsMissing);
}

TEST(TSValidationTest, StoppedSearchDoesNotReportUnusedStock)
{
    SmallInstallation place(manyFolders());
    TSValidation validation(place.Location(), place.Files());
    validation.ProgressRaised = [&](std::size_t, std::size_t) { validation.Stop(); };
    validation.CheckStockInConsists(place.At("Trains/Trainset/F11/none.wag"));
    EXPECT_EQ(validation.Errors(), Lines());
}

TEST(TSValidationTest, RefusesASecondCheckFromWithinAnEvent)
{
    SmallInstallation place(manyFolders());
    TSValidation validation(place.Location(), place.Files());
    int refused = 0;
    const auto attempt = [&](const auto &work) {
        try {
            work();
        } catch (const host::RuntimeError &error) {
            refused += error.Number() == 5 ? 1 : 0;
        }
    };
    validation.MessageRaised = [&](const std::string &, std::int16_t) {
        EXPECT_TRUE(validation.Running());
        attempt([&] { validation.CheckStock("x"); });
        attempt([&] { validation.Reset(); });
    };
    EXPECT_EQ(validation.CheckStock(place.At(kA + "a.wag")), TSValidation::IsValid);
    EXPECT_EQ(refused, 2 * 4);
    EXPECT_FALSE(validation.Running());

    validation.MessageRaised = [](const std::string &, std::int16_t) { throw 1; };
    EXPECT_THROW(validation.CheckAllStock(), int);
    EXPECT_FALSE(validation.Running()) << "a handler's exception ends the check";
}

TEST(TSValidationTest, ReportsFoldersThatCannotBeRead)
{
    SmallInstallation place(Changes{{"Trains/Trainset/B/b.wag", ""}});
    TSValidation validation(place.Location(), place.Files());
    const auto goes = [&](const char *folder) {
        std::filesystem::remove_all(host::path::ToDisk(place.At(folder)));
    };
    auto newLines = [&, told = std::size_t(0)]() mutable {
        Lines lines;
        for (; told < validation.Errors().size(); ++told)
            lines.push_back(place.Neutral(TSValidation::TranslateError(validation.Errors()[told])));
        return lines;
    };
    const auto closed = [](const char *folder) {
        return std::string("ERROR: Error 75 - Path/File access error referenced by <M>/") + folder +
               " appears CORRUPT";
    };
    // Tests may run as root, who can read every folder, so the folders are removed during the check
    // instead.
    EXPECT_EQ(validation.CheckAllStock("none"), TSValidation::IsValid);
    validation.CheckStockUseInRoute(place.At(kA + "none.wag"), "R");
    goes("Trains/Trainset/B");
    goes("Trains/Consists");
    goes("Routes/R/Services");
    EXPECT_EQ(validation.CheckAllStock(), TSValidation::IsSuspect);
    EXPECT_EQ(newLines(), (Lines{closed("Trains/Trainset/B")}));
    validation.CheckStockInConsists(place.At(kA + "a.wag"));
    EXPECT_EQ(newLines().front(), closed("Trains/Consists"));
    validation.CheckConsistUseInRoute("R", "c");
    EXPECT_EQ(newLines(), (Lines{closed("Routes/R/Services")}));

    goes("Trains/Trainset");
    validation.Reset();
    EXPECT_EQ(validation.CheckAllStock(), TSValidation::IsSuspect);
    EXPECT_EQ(place.Neutral(TSValidation::TranslateError(validation.Errors().front())),
              "ERROR: <M>/Trains/Trainset is MISSING");
}

TEST(TSValidationTest, ResetForgetsTheListings)
{
    SmallInstallation place;
    TSValidation validation(place.Location(), place.Files());
    const std::string consist = place.At("Trains/Consists/new.con");
    EXPECT_EQ(validation.CheckConsist(consist), TSValidation::IsMissing);
    place.Folder().Write("Trains/Consists/NEW.CON", "Train ( TrainCfg ( ) )");
    validation.Reset();
    EXPECT_EQ(validation.CheckConsist(consist), TSValidation::IsValid);
}

} // namespace
