// SPDX-License-Identifier: MIT
#include "host/SavedIndex.h"

#include "host/GameFiles.h"
#include "host/IndexTables.h"
#include "host/Path.h"
#include "host/Snapshot.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <thread>

namespace {

constexpr std::int64_t kSecond = 1000000000;

std::int64_t later()
{
    return host::disk::Now() + 10 * kSecond;
}

class SavedIndexTest : public testing::Test
{
protected:
    SavedIndexTest()
    {
        content.Write("TRAINS/a.wag", "1");
        content.Write("TRAINS/b.wag", "2");
    }

    /// A run that joins the content of both files, and of one that is missing.
    struct Run
    {
        Run(const SavedIndexTest &test, const std::string &purpose = "test")
            : root(test.content.Path())
            , index(snapshot, {test.cache.Path(), later}, later(), root, purpose)
        {
        }
        std::string ResultOf(const std::string &name)
        {
            if (const auto kept = index.Find(name)) {
                ++found;
                return std::string(*kept);
            }
            host::Recording recording;
            std::string result = snapshot.TryReadFile(root + "/Trains/" + name).value_or("missing");
            index.Keep(name, result, recording.Take());
            return result;
        }
        /// Returns the names in the folder.
        std::string List()
        {
            if (const auto kept = index.Find("list")) {
                ++found;
                return std::string(*kept);
            }
            host::Recording recording;
            std::string names;
            for (const std::string &name : snapshot.ListFiles(root + "/Trains", "*"))
                names += name + ' ';
            index.Keep("list", names, recording.Take());
            index.Save(host::SavedIndex::Extent::Whole);
            return names;
        }
        std::string All()
        {
            std::string all = ResultOf("a.wag") + ' ' + ResultOf("B.WAG") + ' ' + ResultOf("c.wag");
            index.Save(host::SavedIndex::Extent::Whole);
            return all;
        }

        std::string root;
        host::GameFiles files;
        host::Snapshot snapshot{files};
        host::SavedIndex index;
        int found = 0;
    };
    std::string indexFile() const { return cache.Names().at(0); }

    support::TempFolder content, cache;
};

TEST_F(SavedIndexTest, KeepsResultsUntilWhatTheyDependOnChanges)
{
    EXPECT_EQ(Run(*this).All(), "1 2 missing");
    Run second(*this);
    EXPECT_EQ(second.All(), "1 2 missing");
    EXPECT_EQ(second.found, 3);

    content.Write("TRAINS/a.wag", "3");
    Run third(*this);
    EXPECT_EQ(third.All(), "3 2 missing");
    EXPECT_EQ(third.found, 2);

    content.Write("Trains/C.wag", "4");
    Run fourth(*this);
    EXPECT_EQ(fourth.All(), "3 2 4");
    Run fifth(*this, "another purpose");
    EXPECT_EQ(fifth.All(), "3 2 4");
    EXPECT_EQ(fifth.found, 0);
}

TEST_F(SavedIndexTest, ListsFollowTheNamesInAFolder)
{
    EXPECT_EQ(Run(*this).List(), "a.wag b.wag ");
    content.Write("TRAINS/c.wag");
    EXPECT_EQ(Run(*this).List(), "a.wag b.wag c.wag ");
    std::filesystem::rename(host::path::ToDisk(content.At("TRAINS/a.wag")),
                            host::path::ToDisk(content.At("TRAINS/z.wag")));
    EXPECT_EQ(Run(*this).List(), "b.wag c.wag z.wag ");
    Run again(*this);
    EXPECT_EQ(again.List(), "b.wag c.wag z.wag ");
    EXPECT_EQ(again.found, 1);
}

TEST_F(SavedIndexTest, DropsWhatIsNoLongerUsed)
{
    Run(*this).All();
    const std::size_t size = cache.Read(indexFile()).size();
    Run part(*this);
    part.ResultOf("a.wag");
    part.index.Save(host::SavedIndex::Extent::Whole);
    EXPECT_LT(cache.Read(indexFile()).size(), size);
    Run whole(*this);
    EXPECT_EQ(whole.All(), "1 2 missing");
    EXPECT_EQ(whole.found, 1);
}

TEST_F(SavedIndexTest, IgnoresATornOrDamagedIndex)
{
    Run(*this).All();
    const std::string name = indexFile(), bytes = cache.Read(name);
    ASSERT_TRUE(host::IndexTables::Unpack(bytes));
    for (std::size_t length = 0; length < bytes.size(); ++length)
        ASSERT_FALSE(host::IndexTables::Unpack(bytes.substr(0, length))) << length;
    EXPECT_FALSE(host::IndexTables::Unpack(bytes + '\0'));
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        std::string damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ (1 << at % 8));
        ASSERT_FALSE(host::IndexTables::Unpack(damaged)) << at;
        if (at % 16 != 0)
            continue;
        cache.Write(name, damaged);
        Run run(*this);
        ASSERT_EQ(run.All(), "1 2 missing");
        ASSERT_EQ(run.found, 0);
    }
    EXPECT_EQ(cache.Read(name).size(), bytes.size()) << "it is replaced";
}

TEST_F(SavedIndexTest, ReadsNothingBeyondForgedTables)
{
    // A right checksum over wrong numbers: reading must end, without a crash.
    Run(*this).All();
    const std::string bytes = cache.Read(indexFile());
    auto tables = host::IndexTables::Unpack(bytes);
    ASSERT_TRUE(tables);
    tables->files.at(0).folder = 1000;
    EXPECT_FALSE(host::IndexTables::Unpack(tables->Pack()));
    tables->files.at(0).folder = 0;
    tables->places.at(0).parent = 0;
    EXPECT_FALSE(host::IndexTables::Unpack(tables->Pack()));
    tables->places.at(0).parent = host::IndexTables::kNone;
    const std::string wrong = host::IndexTables::PackDependencies({{}, {7000}, {}, {}});
    tables->units.at(0).dependencies = wrong;
    cache.Write(indexFile(), tables->Pack());
    Run run(*this);
    EXPECT_EQ(run.All(), "1 2 missing");
    EXPECT_EQ(run.found, 2);
}

TEST_F(SavedIndexTest, TwoProgramsAtOnceNeverMix)
{
    const std::function<void()> work = [this] {
        for (int i = 0; i < 60; ++i) {
            EXPECT_EQ(Run(*this).All(), "1 2 missing");
            if (i % 3 == 0)
                host::SavedIndex::Forget(cache.Path(), content.Path());
        }
    };
    std::jthread first(work), second(work);
}

TEST_F(SavedIndexTest, ResultsOfClosedOrForeignFoldersAreNotKept)
{
    const support::TempFolder other;
    other.Write("x.wag", "9");
    Run first(*this);
    host::Recording recording;
    EXPECT_EQ(first.snapshot.TryReadFile(other.At("x.wag")), "9");
    first.index.Keep("x", "9", recording.Take());
    first.index.Save(host::SavedIndex::Extent::Whole);
    EXPECT_FALSE(Run(*this).index.Find("x"));
}

TEST_F(SavedIndexTest, FoldersThatAppearOrLeadElsewhereAreNoticed)
{
    content.MakeFolder("SOUND");
    for (const char *const name : {"Sound", "Extra/Sound", "Trains/Extra"}) {
        const std::string path = content.At(name);
        Run first(*this);
        {
            host::Recording recording;
            const std::string there = first.snapshot.FolderExists(path) ? "there" : "absent";
            first.index.Keep("x", there, recording.Take());
        }
        first.index.Save(host::SavedIndex::Extent::Whole);
        content.Write("TRAINS/more.wag", name);
        EXPECT_TRUE(Run(*this).index.Find("x")) << name << ": other names do not matter";
        const bool isSame = std::filesystem::exists(path); // the folder in other letters
        content.MakeFolder(name);
        EXPECT_EQ(Run(*this).index.Find("x").has_value(), isSame) << name;
    }
}

TEST_F(SavedIndexTest, FoldersThatDifferInCaseAreNoticed)
{
    if (host::disk::kIgnoresCase)
        GTEST_SKIP() << "the system has only one folder of a name";
    content.Write("TRAINS/Sub/b.wag", "1");
    const std::string path = content.At("TRAINS/Sub/c.wag");
    const auto isKept = [&] {
        Run run(*this);
        const bool found = run.index.Find("x").has_value();
        host::Recording recording;
        const std::string there = run.snapshot.FileExists(path) ? "there" : "absent";
        if (!found)
            run.index.Keep("x", there, recording.Take());
        run.index.Save(host::SavedIndex::Extent::Whole);
        return found;
    };
    EXPECT_FALSE(isKept());
    EXPECT_TRUE(isKept());
    content.Write("trains/SUB/c.wag", "2");
    EXPECT_FALSE(isKept());
}

TEST_F(SavedIndexTest, FilesThatMoveBetweenFoldersThatDifferInCaseAreNoticed)
{
    if (host::disk::kIgnoresCase)
        GTEST_SKIP() << "the system has only one folder of a name";
    content.Write("TRAINS/SUB/a.wag");
    content.Write("TRAINS/Sub/b.wag");
    content.Write("TRAINS/Sub/c.wag");
    Run first(*this);
    host::Recording recording;
    EXPECT_EQ(first.snapshot.ListFiles(content.At("TRAINS/SUB"), "*").size(), 3u);
    first.index.Keep("x", "9", recording.Take());
    first.index.Save(host::SavedIndex::Extent::Whole);
    EXPECT_TRUE(Run(*this).index.Find("x"));
    // The names of all files one after the other stay the same.
    std::filesystem::rename(content.At("TRAINS/Sub/b.wag"), content.At("TRAINS/SUB/b.wag"));
    EXPECT_FALSE(Run(*this).index.Find("x"));
}

TEST_F(SavedIndexTest, FactsAreAskedAgain)
{
    Run first(*this);
    host::Recording recording;
    recording.AddFact(first.index.FactOf("known"));
    first.index.Keep("x", "9", recording.Take());
    first.index.Save(host::SavedIndex::Extent::Whole);
    Run second(*this);
    EXPECT_FALSE(second.index.Find("x")) << "nobody can say whether it holds";
    Run third(*this);
    third.index.FactHolds = [](std::string_view fact) { return fact == "known"; };
    EXPECT_EQ(third.index.Find("x"), "9");
}

TEST_F(SavedIndexTest, KeepsAFewIndexesOnly)
{
    for (int i = 0; i < 40; ++i)
        Run(*this, std::to_string(i)).All();
    EXPECT_EQ(cache.Names().size(), 16);
}

TEST(FileMarkTest, OnlyMarksOfThePastAreTrusted)
{
    const std::int64_t now = 1000 * kSecond + 1;
    host::FileMark mark;
    const auto trusts = [&](std::int64_t modified, std::int64_t changed) {
        mark.modified = modified;
        mark.changed = changed;
        return mark.IsTrusted(now);
    };
    EXPECT_TRUE(trusts(now - kSecond, now - kSecond));
    EXPECT_FALSE(trusts(now - kSecond, now - 50000001)) << "the last change is within a tick";
    EXPECT_FALSE(trusts(now - 50000001, now - kSecond));
    EXPECT_FALSE(trusts(999 * kSecond, now - kSecond)) << "a clock with steps of seconds";
    EXPECT_TRUE(trusts(990 * kSecond, now - kSecond));
    EXPECT_FALSE(trusts(now + 5000 * kSecond, now - kSecond)) << "the future";
    EXPECT_FALSE(trusts(now - kSecond, now + 5000 * kSecond)) << "the clock was set back";
}

} // namespace
