// SPDX-License-Identifier: MIT
#include "document/UnsavedConsist.h"

#include "document/ConsistTree.h"
#include "host/GameFiles.h"
#include "host/Leftovers.h"
#include "host/Path.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using document::ConsistTree;
using document::LostConsists;
using document::RecoveryFile;
using document::UnsavedConsist;

namespace {

class UnsavedConsistTest : public testing::Test
{
protected:
    /// Keeps the state of the consist, and lets the file belong to a process that has ended.
    void crashWith(const ConsistTree &tree)
    {
        RecoveryFile file(unsaved);
        EXPECT_TRUE(file.Keep(UnsavedStateOf(tree, path, "Consist - a")));
        EXPECT_EQ(file.Finish(), "");
        const auto names = folder.Names("unsaved");
        ASSERT_EQ(names.size(), 1u);
        folder.Write("unsaved/" + ended(), folder.Read("unsaved/" + names[0]));
    }
    static std::string ended()
    {
        constexpr std::uint64_t kNobody = 0x7ffffffe; // larger than any process number
        return "unsaved" +
               host::disk::TemporaryName({host::disk::ThisProcess().machine, kNobody, 1}, 0) +
               ".tmp";
    }
    std::string state(const ConsistTree &tree) const { return tree.Document().ToBytes(); }

    support::TempFolder folder;
    host::GameFiles files;
    const std::string unsaved = folder.At("unsaved");
    const std::string path =
        folder.Write("a.con", "\nTrain ( TrainCfg ( a\n Wagon ( WagonData ( w A ) ) ) )");
};

TEST_F(UnsavedConsistTest, LastKeptStateSurvivesTheProcess)
{
    ConsistTree tree(files);
    tree.Load(path);
    tree.Edit(document::Move::Flip, 1);
    crashWith(tree);
    LostConsists lost(unsaved);
    ASSERT_EQ(lost.All().size(), 1u);
    const UnsavedConsist &consist = lost.All()[0];
    EXPECT_EQ(consist.path, path);
    EXPECT_EQ(consist.title, "Consist - a");
    EXPECT_GT(consist.time, 0);
    EXPECT_FALSE(consist.changedOnDisk);
    EXPECT_TRUE(LostConsists(unsaved).All().empty()) << "two programs offer it";

    ConsistTree restored(files);
    restored.Restore(consist.path, consist.bytes, consist.changedOnDisk);
    EXPECT_EQ(state(restored), state(tree));
    EXPECT_TRUE(restored.Changed());
    EXPECT_FALSE(restored.ChangedOnDisk(path));
    restored.Save(path, restored.OnDisk());
    EXPECT_EQ(folder.Read("a.con"), state(restored));
    lost.Drop(0);
    EXPECT_TRUE(folder.Names("unsaved").empty());
}

TEST_F(UnsavedConsistTest, ChangeByAnotherProgramIsNotOverwrittenSilently)
{
    ConsistTree tree(files);
    tree.Load(path);
    tree.Edit(document::Move::Flip, 1);
    crashWith(tree);
    std::filesystem::last_write_time(
        host::path::ToDisk(folder.Write("a.con", "\nTrain ( TrainCfg ( other ) )")),
        std::filesystem::file_time_type::clock::now() + std::chrono::seconds(5));
    const LostConsists lost(unsaved);
    ASSERT_EQ(lost.All().size(), 1u);
    ConsistTree restored(files);
    restored.Restore(path, lost.All()[0].bytes, lost.All()[0].changedOnDisk);
    EXPECT_TRUE(restored.ChangedOnDisk(path));
}

TEST_F(UnsavedConsistTest, SavedAndClosedConsistsLeaveNoFile)
{
    ConsistTree tree(files);
    tree.New();
    {
        RecoveryFile file(unsaved);
        file.Drop(); // nothing was kept
        EXPECT_TRUE(file.Keep(UnsavedStateOf(tree, "", "Consist")));
        file.Drop();
        EXPECT_TRUE(folder.Names("unsaved").empty());
        EXPECT_TRUE(file.Keep(UnsavedStateOf(tree, "", "Consist")));
        EXPECT_EQ(file.Finish(), "");
        EXPECT_EQ(folder.Names("unsaved").size(), 1u);
        EXPECT_TRUE(LostConsists(unsaved).All().empty()) << "its process still runs";
    }
    EXPECT_TRUE(folder.Names("unsaved").empty());
}

TEST_F(UnsavedConsistTest, FileCutAtAnyLengthIsIgnoredAndKept)
{
    ConsistTree tree(files);
    tree.Load(path);
    crashWith(tree);
    const std::string name = "unsaved/" + ended(), whole = folder.Read(name);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder.Write(name, whole.substr(0, length));
        ASSERT_TRUE(LostConsists(unsaved).All().empty()) << length;
        ASSERT_EQ(folder.Read(name).size(), length);
    }
}

TEST_F(UnsavedConsistTest, FailureNamesTheFile)
{
    ConsistTree tree(files);
    tree.New();
    folder.Write("file", "x");
    RecoveryFile file(folder.At("file/unsaved"));
    EXPECT_TRUE(file.Keep(UnsavedStateOf(tree, "", "Consist")));
    EXPECT_NE(file.Finish().find(folder.At("file")), std::string::npos);
}

} // namespace
