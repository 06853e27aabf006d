// SPDX-License-Identifier: MIT
#include "host/FilesUsed.h"

#include "host/GameFiles.h"
#include "host/Snapshot.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

namespace {

class FilesUsedTest : public testing::Test
{
protected:
    /// Looks the files up until none of them is too new for a record, and returns the record.
    std::string record(const std::vector<std::string> &paths)
    {
        const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (std::chrono::steady_clock::now() < patience) {
            const host::FilesUsed used;
            for (const std::string &path : paths)
                files.FileExists(path);
            if (used.IsSettled())
                return used.Record();
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        ADD_FAILURE() << "the files stay new";
        return {};
    }

    support::TempFolder folder;
    host::GameFiles files;
};

TEST_F(FilesUsedTest, HoldsUntilAFileChangesAppearsOrDisappears)
{
    folder.Write("a.s", "1234");
    folder.Write("b.s", "1234");
    folder.MakeFolder("textures");
    const std::vector<std::string> paths = {folder.At("A.S"), folder.At("b.s"),
                                            folder.At("textures/c.ace")};
    const std::string before = record(paths);
    EXPECT_TRUE(host::FilesUsed::Holds(files, before));

    folder.Write("other.s", "1");
    EXPECT_TRUE(host::FilesUsed::Holds(files, before)) << "a file that was not looked up";
    folder.Write("a.s", "123");
    EXPECT_FALSE(host::FilesUsed::Holds(files, before)) << "another size";

    const std::string smaller = record(paths);
    folder.Write("b.s", "4321");
    EXPECT_FALSE(host::FilesUsed::Holds(files, smaller)) << "other bytes, the same size";

    const std::string changed = record(paths);
    const auto time = std::filesystem::last_write_time(folder.At("b.s"));
    std::filesystem::last_write_time(folder.At("b.s"), time - std::chrono::hours(1));
    EXPECT_FALSE(host::FilesUsed::Holds(files, changed)) << "another time";

    const std::string older = record(paths);
    folder.Write("textures/C.ace");
    EXPECT_FALSE(host::FilesUsed::Holds(files, older)) << "a missing file has appeared";
    const std::string appeared = record(paths);
    std::filesystem::remove(folder.At("textures/C.ace"));
    EXPECT_FALSE(host::FilesUsed::Holds(files, appeared)) << "a file has disappeared";
}

TEST_F(FilesUsedTest, NoOtherTextHolds)
{
    folder.Write("a.s");
    const std::string whole = record({folder.At("a.s"), folder.At("gone.s")});
    for (std::size_t length = 0; length < whole.size(); ++length)
        ASSERT_FALSE(host::FilesUsed::Holds(files, whole.substr(0, length))) << length;
    EXPECT_TRUE(host::FilesUsed::Holds(files, whole));
    EXPECT_FALSE(host::FilesUsed::Holds(files, whole + "x"));
}

TEST_F(FilesUsedTest, RecordsThisThreadAndTheInnermostBlockOnly)
{
    folder.Write("a.s");
    record({folder.At("a.s")}); // from here on the file is old enough
    const host::FilesUsed outer;
    const std::string nothing = outer.Record();
    {
        const host::FilesUsed inner;
        std::jthread([&] { files.FileExists(folder.At("a.s")); }).join();
        EXPECT_EQ(inner.Record(), nothing);
        files.ReadFile(folder.At("a.s"));
        EXPECT_NE(inner.Record(), nothing);
    }
    EXPECT_EQ(outer.Record(), nothing);
    host::Snapshot(files).FileExists(folder.At("a.s"));
    const std::string one = outer.Record();
    EXPECT_NE(one, nothing);
    files.FindFile(folder.At("A.S"));
    EXPECT_NE(outer.Record(), one) << "another spelling, which may lead to another file later";
}

} // namespace
