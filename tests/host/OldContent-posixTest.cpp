// SPDX-License-Identifier: MIT
// Makes every step of overwriting a file fail once, and ends the process there once. The old
// content or the new is then in its place, or comes back with the next start.
#include "host/OldContent.h"

#include "host/Disk.h"
#include "host/Replace.h"
#include "host/RuntimeError.h"
#include "support/FailingStep-posix.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using host::OldContent;
using support::FailingStep;

namespace {

struct Overwritten
{
    Overwritten() { folder.Write("a.con", "old"); }
    std::string At(const char *name) const { return folder.At(name); }
    /// Throws RuntimeError if the old file could not be moved. Puts it back if the new one could
    /// not be written.
    void Run() const
    {
        OldContent old(At("a.con"), At("aside"));
        if (const auto failure = host::disk::Replace(At("a.con"), "new"))
            old.PutBack();
        else
            old.Discard();
    }
    std::string Now() const { return folder.Exists("a.con") ? folder.Read("a.con") : "nothing"; }
    std::vector<std::string> Recover() const { return OldContent::Recover(At("aside")); }
    bool LeavesNothing() const { return !folder.Exists("aside") || folder.Names("aside").empty(); }

    support::TempFolder folder;
};

std::vector<std::string> steps()
{
    const Overwritten file;
    const FailingStep counted(FailingStep::kNone, 0);
    file.Run();
    return counted.Calls();
}

/// Overwrites the file in another process, which ends before a step.
void runUntil(const Overwritten &file, int step)
{
    const pid_t child = fork();
    if (child == 0) {
        const FailingStep ending(step, FailingStep::EndsProcess());
        file.Run();
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    ASSERT_EQ(WEXITSTATUS(status), FailingStep::kExitCode);
}

TEST(OldContentTest, FailedStepKeepsTheOldContentOrTheNew)
{
    const auto calls = steps();
    ASSERT_GE(std::count(calls.begin(), calls.end(), "rename"), 3) << "record, old file, new file";
    for (std::size_t step = 0; step < calls.size(); ++step)
        for (const int error : {EIO, EXDEV}) {
            SCOPED_TRACE(std::to_string(step) + ' ' + calls[step]);
            const Overwritten file;
            std::string reason;
            {
                const FailingStep failing(static_cast<int>(step), error);
                try {
                    file.Run();
                } catch (const host::RuntimeError &failure) {
                    reason = failure.Detail();
                }
            }
            if (!reason.empty()) {
                EXPECT_NE(reason.find(file.folder.Path()), reason.npos) << reason;
                EXPECT_EQ(file.Now(), "old") << reason;
            } else {
                EXPECT_TRUE(file.Now() == "old" || file.Now() == "new") << file.Now();
            }
        }
}

TEST(OldContentTest, ContentThatCannotBeDeletedIsDeletedLater)
{
    const auto calls = steps();
    const auto last = std::find(calls.rbegin(), calls.rend(), "unlink"); // of the record
    const auto content = std::find(last + 1, calls.rend(), "unlink");
    const Overwritten file;
    const pid_t child = fork();
    if (child == 0) {
        const FailingStep failing(static_cast<int>(calls.rend() - content) - 1, EACCES);
        file.Run();
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    EXPECT_EQ(file.folder.Names("aside").size(), 2u);
    EXPECT_TRUE(file.Recover().empty());
    EXPECT_TRUE(file.LeavesNothing());
    EXPECT_EQ(file.Now(), "new");
}

TEST(OldContentTest, KilledProcessLosesNothing)
{
    const auto calls = steps();
    int lacking = 0;
    for (int step = 0; step < static_cast<int>(calls.size()); ++step) {
        SCOPED_TRACE(std::to_string(step) + ' ' + calls[static_cast<std::size_t>(step)]);
        const Overwritten file;
        runUntil(file, step);
        const bool lacks = file.Now() == "nothing";
        lacking += lacks;
        const auto messages = file.Recover();
        EXPECT_TRUE(file.Now() == "old" || file.Now() == "new") << file.Now();
        ASSERT_EQ(messages.size(), lacks ? 1u : 0u);
        if (lacks) {
            EXPECT_EQ(messages[0], file.At("a.con") + ": ZELK ended while it overwrote this file. "
                                                      "It has its old content.");
        }
        EXPECT_TRUE(file.Recover().empty());
        host::disk::MakeFolders(file.At("aside"));
        host::disk::Replace(file.At("aside/other"), ""); // removes temporary files
        EXPECT_EQ(file.folder.Names("aside"), std::vector<std::string>{"other"});
    }
    EXPECT_GT(lacking, 2) << "no process ended while the file was away";
}

TEST(OldContentTest, ComesFromAnotherDiskWithItsPermissions)
{
    const auto calls = steps();
    // The first renaming gives the record its name.
    const auto record = std::find(calls.begin(), calls.end(), "rename");
    const auto moving = std::find(record + 1, calls.end(), "rename") - calls.begin();
    const Overwritten file;
    chmod(file.At("a.con").c_str(), 0640);
    std::optional<OldContent> old;
    {
        const FailingStep otherDisk(static_cast<int>(moving), EXDEV);
        old.emplace(file.At("a.con"), file.At("aside"));
        ASSERT_STREQ(otherDisk.Refused(), "rename");
        EXPECT_EQ(std::count(otherDisk.Calls().begin(), otherDisk.Calls().end(), "fsync"), 4)
            << "record and copy, with their names";
    }
    EXPECT_EQ(file.Now(), "nothing");
    struct stat status = {};
    ASSERT_EQ(stat(old->Place().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);
    old->PutBack();
    EXPECT_EQ(file.Now(), "old");
    EXPECT_TRUE(file.LeavesNothing());
}

TEST(OldContentTest, RefusesWhatMustStay)
{
    const Overwritten file;
    const auto why = [](const auto &work) {
        try {
            work();
        } catch (const host::RuntimeError &error) {
            return error.Detail();
        }
        return std::string("nothing");
    };
    chmod(file.At("a.con").c_str(), 0444);
    EXPECT_EQ(why([&] { OldContent(file.At("a.con"), file.At("aside")); }),
              file.At("a.con") + ": the file is read-only");
    chmod(file.At("a.con").c_str(), 0644);
    EXPECT_TRUE(file.LeavesNothing());

    OldContent old(file.At("a.con"), file.At("aside"));
    EXPECT_TRUE(old.Place().ends_with(".con")) << old.Place() << " can be opened";
    file.folder.Write("a.con", "by others");
    EXPECT_EQ(why([&] { old.PutBack(); }), file.At("a.con") + ": there is a new file of this name");
    EXPECT_EQ(file.Now(), "by others");
    EXPECT_TRUE(file.folder.Exists("aside/" + old.Place().substr(old.Place().rfind('/') + 1)));
}

} // namespace
