// SPDX-License-Identifier: MIT
#include "SmallInstallation.h"
#include "host/Disk.h"
#include "support/RandomEdits.h"
#include "validation/TSValidation.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

namespace {

constexpr std::int64_t kSecond = 1000000000;

/// A clock that is ahead, so that files that were written a moment ago are old enough.
std::int64_t later()
{
    return host::disk::Now() + 10 * kSecond;
}

/// Waits until the clock of the file system has certainly moved on.
void waitForTick()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(12));
}

const Changes kMoreStock = {
    {"Trains/Trainset/B/b.wag",
     "Wagon ( b WagonShape ( ../A/a.s ) Sound ( ../../A/Sound/a.sms ) )"},
    {"Trains/Trainset/B/c.wag", "Wagon ( c WagonShape ( c.s ) Thumbnail ( c.ace ) )"},
    {"Trains/Trainset/B/c.s", ""},
    {"Trains/Trainset/B/c.sd", ""},
    {"Trains/Trainset/C/d.eng", "Wagon ( d WagonShape ( d.s ) Sound ( ../../../../Sound/d.sms ) )"
                                "Engine ( d Wagon ( d ) CabView ( ../../A/Cabview/e.cvf ) )"},
    {"Trains/Trainset/C/d.s", ""},
    {"Sound/d.sms", R"(Tr_SMS ( File ( "d.wav" ) File ( "../Trains/Trainset/A/Sound/a.wav" ) ))"},
    {"Sound/d.wav", ""},
};

struct Setting
{
    bool verbose = false, messages = false, steps = false;
};

/// Returns everything that a check of all stock reports, in order.
std::string transcript(const SmallInstallation &small, const host::IndexOptions &index,
                       const Setting &setting)
{
    host::GameFiles files;
    TSValidation validation(small.Location(), files, 2);
    std::string text;
    validation.SetVerboseMessages(setting.verbose);
    validation.SetStepMessages(setting.steps);
    if (setting.messages)
        validation.MessageRaised = [&](const std::string &message, std::int16_t level) {
            text += std::to_string(level) + message + '\n';
        };
    validation.ResultRecorded = [&](const validation::Finding &finding) {
        text += validation::ResultKey(finding) + '\n';
    };
    validation.ProgressRaised = [&](std::size_t done, std::size_t total) {
        text += std::to_string(done) + " of " + std::to_string(total) + '\n';
    };
    validation.SetIndex(index);
    validation.Reset();
    text += std::to_string(validation.CheckAllStock());
    for (const std::string &key : validation.Errors())
        text += '\n' + key;
    return text;
}

class StockIndexTest : public testing::Test
{
protected:
    std::string withIndex(const Setting &setting = {})
    {
        return transcript(small, {cache.Path(), later}, setting);
    }
    std::string without(const Setting &setting = {}) { return transcript(small, {}, setting); }
    /// Returns the identity of the only index.
    host::disk::Stamp savedIndex() const
    {
        return host::disk::StampOf(cache.At(cache.Names().at(0))).value();
    }

    SmallInstallation small{kMoreStock};
    support::TempFolder cache;
};

TEST_F(StockIndexTest, ChecksFindTheSameAfterAnyChange)
{
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        const SmallInstallation changing(kMoreStock);
        const support::TempFolder indexes;
        const Setting setting{seed % 2 == 0, seed % 3 == 0, seed % 6 == 0};
        support::RandomEdits edits(changing.Folder(), seed);
        std::string history;
        for (int step = 0; step < 40; ++step) {
            ASSERT_EQ(transcript(changing, {indexes.Path(), later}, setting),
                      transcript(changing, {}, setting))
                << "seed " << seed << history;
            waitForTick();
            for (int i = 0; i <= step % 3; ++i)
                history += '\n' + edits.Step();
            waitForTick();
        }
    }
}

TEST_F(StockIndexTest, ASecondCheckFindsEverythingInTheIndex)
{
    const std::string first = withIndex();
    const auto saved = savedIndex();
    EXPECT_EQ(withIndex(), first);
    EXPECT_EQ(savedIndex(), saved) << "it is saved again only if something is checked again";
    small.Folder().Write("Trains/Trainset/A/a.wag", "Wagon ( a WagonShape ( none.s ) )");
    EXPECT_EQ(withIndex(), without());
    EXPECT_NE(savedIndex(), saved);
}

TEST_F(StockIndexTest, NewFilesAreCheckedAgain)
{
    const host::IndexOptions now{cache.Path(), false, [at = host::disk::Now()] { return at; }};
    small.Folder().Write("Trains/Trainset/B/b.wag", "Wagon ( n )");
    EXPECT_EQ(transcript(small, now, {}), without());
    const auto saved = savedIndex();
    EXPECT_EQ(transcript(small, now, {}), without());
    EXPECT_NE(savedIndex(), saved) << "the files are too new";
}

TEST_F(StockIndexTest, AClockThatWasSetBackMakesTheIndexUseless)
{
    withIndex();
    const auto saved = savedIndex();
    const auto earlier = [] { return later() - 5 * kSecond; };
    EXPECT_EQ(transcript(small, {cache.Path(), earlier}, {}), without());
    EXPECT_NE(savedIndex(), saved);
}

TEST_F(StockIndexTest, SettingsOfTheCheckHaveTheirOwnResults)
{
    for (const bool verbose : {false, true})
        for (const bool messages : {false, true})
            for (const bool steps : {false, true}) {
                const Setting setting{verbose, messages, steps};
                EXPECT_EQ(withIndex(setting), without(setting));
                EXPECT_EQ(withIndex(setting), without(setting));
            }
}

TEST_F(StockIndexTest, StoppedAndFilteredChecksKeepTheWholeIndex)
{
    withIndex();
    small.Folder().Write("Trains/Trainset/B/b.wag", "Wagon ( n )");
    host::GameFiles files;
    TSValidation validation(small.Location(), files, 1);
    validation.SetIndex({cache.Path(), later});
    validation.Reset();
    validation.CheckAllStock("B");
    validation.Reset();
    validation.ProgressRaised = [&](std::size_t, std::size_t) { validation.Stop(); };
    validation.CheckAllStock();
    const auto saved = savedIndex();
    EXPECT_EQ(withIndex(), without());
    EXPECT_EQ(savedIndex(), saved) << "nothing had to be checked again";
}

TEST_F(StockIndexTest, AForgottenIndexIsMadeAgain)
{
    const std::string first = withIndex();
    const support::TempFolder other;
    host::SavedIndex::Forget(cache.Path(), other.Path());
    EXPECT_EQ(cache.Names().size(), 1);
    host::SavedIndex::Forget(cache.Path(), small.Folder().Path());
    EXPECT_TRUE(cache.Names().empty());
    EXPECT_EQ(withIndex(), first);
    EXPECT_EQ(cache.Names().size(), 1);
}

} // namespace
