// SPDX-License-Identifier: MIT
// Makes every step of a change of several files fail once, and ends the process there once.
// Afterwards, or after the next start, all files are old or all are new.
#include "ChangedFiles.h"
#include "host/RuntimeError.h"
#include "support/FailingStep-posix.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>

#include <sys/wait.h>
#include <unistd.h>

using support::FailingStep;

namespace {

struct Operation
{
    const char *name;
    void (*prepare)(ChangedFiles &files);
    void (*run)(ChangedFiles &files);
    const char *before, *after;
};

const Operation kOperations[] = {
    {"apply", [](ChangedFiles &) {},
     [](ChangedFiles &files) { files.journal.Apply("x", files.changes); }, "ooo", "nnn"},
    {"undo", [](ChangedFiles &files) { files.journal.Apply("x", files.changes); },
     [](ChangedFiles &files) { files.journal.Undo(); }, "nnn", "ooo"},
};

/// Returns the names of all steps of an operation.
std::vector<std::string> stepsOf(const Operation &operation)
{
    ChangedFiles files;
    operation.prepare(files);
    const FailingStep counted(FailingStep::kNone, 0);
    operation.run(files);
    return counted.Calls();
}

/// Runs work in another process, which ends before a step of it. Returns the exit code.
template <typename Work> int endingAt(int step, const Work &work)
{
    const pid_t child = fork();
    if (child == 0) {
        const FailingStep ending(step, FailingStep::EndsProcess());
        _exit(work());
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

template <typename How>
void expectWholeIfItFails(const Operation &operation, int step, const How &how)
{
    ChangedFiles files;
    operation.prepare(files);
    std::string error;
    {
        const FailingStep failing(step, how);
        try {
            operation.run(files);
        } catch (const host::RuntimeError &failure) {
            error = failure.Detail();
        }
    }
    EXPECT_EQ(files.State(), error.empty() ? operation.after : operation.before) << error;
    EXPECT_TRUE(error.empty() || error.find(files.folder.Path()) != error.npos) << error;
    files.journal.Recover();
    EXPECT_EQ(files.State(), error.empty() ? operation.after : operation.before) << error;
    EXPECT_EQ(files.Others(), ChangedFiles::Names()) << error;
    EXPECT_EQ(files.journal.Last().has_value(), files.State() == "nnn");
}

TEST(ChangeJournalPosixTest, FlushesTheJournalAndAllNewFilesBeforeTheFirstIsReplaced)
{
    for (const Operation &operation : kOperations) {
        const auto steps = stepsOf(operation);
        const auto journal = std::find(steps.begin(), steps.end(), "rename");
        ASSERT_NE(journal, steps.end());
        const auto first = std::find(journal + 1, steps.end(), "rename");
        EXPECT_GE(std::count(steps.begin(), journal, "fsync"), 1) << "the journal";
        EXPECT_GE(std::count(journal, first, "fsync"), 4) << "its name and the new files";
    }
}

TEST(ChangeJournalPosixTest, FailedStepLeavesAllFilesOldOrNew)
{
    for (const Operation &operation : kOperations) {
        const auto steps = stepsOf(operation);
        ASSERT_GT(std::count(steps.begin(), steps.end(), "rename"), 3);
        for (std::size_t step = 0; step < steps.size(); ++step) {
            SCOPED_TRACE(operation.name + (' ' + std::to_string(step)) + ' ' + steps[step]);
            const int errors[] = {EIO, ENOSPC, EACCES};
            expectWholeIfItFails(operation, static_cast<int>(step), errors[step % 3]);
        }
    }
}

TEST(ChangeJournalPosixTest, DiskThatFillsLeavesAllFilesOldOrNew)
{
    for (const Operation &operation : kOperations) {
        const int steps = static_cast<int>(stepsOf(operation).size());
        for (int step = 0; step < steps; ++step) {
            SCOPED_TRACE(operation.name + (' ' + std::to_string(step)));
            expectWholeIfItFails(operation, step, FailingStep::FillsDisk());
        }
    }
}

TEST(ChangeJournalPosixTest, ProcessExitAtAStepIsMadeGoodAtTheNextStart)
{
    for (const Operation &operation : kOperations) {
        const auto steps = stepsOf(operation);
        std::string seen;
        for (int step = 0; step < static_cast<int>(steps.size()); ++step) {
            SCOPED_TRACE(operation.name + (' ' + std::to_string(step)));
            ChangedFiles files;
            operation.prepare(files);
            ASSERT_EQ(endingAt(step, [&] { return operation.run(files), 0; }),
                      FailingStep::kExitCode);
            seen += files.State() + ' ';
            files.journal.Recover();
            const std::string state = files.State();
            EXPECT_TRUE(state == "ooo" || state == "nnn") << state;
            EXPECT_EQ(files.journal.Last().has_value(), state == "nnn");
            EXPECT_TRUE(files.journal.Recover().empty());
            if (state == operation.before) // and it works now
                operation.run(files);
            EXPECT_EQ(files.State(), operation.after);
            EXPECT_EQ(files.Others(), ChangedFiles::Names());
        }
        const char *const mixture = operation.after[0] == 'n' ? "noo" : "onn";
        EXPECT_NE(seen.find(mixture), seen.npos) << "no process ended in the middle";
    }
}

TEST(ChangeJournalPosixTest, ProcessExitDuringRecoveryIsMadeGood)
{
    for (const char *const half : {"noo", "nno", "nnn"})
        for (int step = 0, code = FailingStep::kExitCode; code == FailingStep::kExitCode; ++step) {
            ChangedFiles files;
            files.LeaveJournal(files.JournalBytes());
            for (std::size_t i = 0; half[i]; ++i)
                if (half[i] == 'n')
                    files.folder.Write(ChangedFiles::kNames[i], files.changes[i].after);
            code = endingAt(step, [&] { return static_cast<int>(files.journal.Recover().size()); });
            files.journal.Recover();
            EXPECT_EQ(files.State(), half == std::string("nnn") ? "nnn" : "ooo") << step;
            EXPECT_EQ(files.Others(), ChangedFiles::Names());
        }
}

TEST(ChangeJournalPosixTest, NothingIsChangedWhileAnotherProcessChangesFiles)
{
    ChangedFiles files;
    files.journal.Apply("x", files.changes);
    files.folder.Write("A/a.con", files.changes[0].before);
    files.WriteJournal(
        {host::disk::ThisProcess().machine, static_cast<std::uint64_t>(getppid()), 0},
        files.JournalBytes());
    EXPECT_TRUE(files.journal.Recover().empty());
    for (const bool undo : {true, false}) {
        files.folder.Write("A/a.con", undo ? files.changes[0].after : files.changes[0].before);
        const std::string before = files.State();
        try {
            if (undo)
                files.journal.Undo();
            else
                files.journal.Apply("y", {{files.changes[0]}});
            ADD_FAILURE();
        } catch (const host::RuntimeError &error) {
            EXPECT_NE(error.Detail().find("another ZELK"), std::string::npos) << error.Detail();
        }
        EXPECT_EQ(files.State(), before);
    }
    EXPECT_EQ(files.Others().size(), 1u) << "only the journal of the other process";
}

TEST(ChangeJournalPosixTest, OneOfSeveralProcessesRecovers)
{
    for (int round = 0; round < 20; ++round) {
        ChangedFiles files;
        files.LeaveJournal(files.JournalBytes());
        files.folder.Write("A/a.con", files.changes[0].after);
        std::vector<pid_t> children;
        for (int i = 0; i < 4; ++i) {
            children.push_back(fork());
            if (children.back() == 0)
                _exit(static_cast<int>(files.journal.Recover().size()));
        }
        int recovered = 0;
        for (const pid_t child : children) {
            int status = 0;
            waitpid(child, &status, 0);
            recovered += WEXITSTATUS(status);
        }
        EXPECT_EQ(recovered, 1);
        EXPECT_EQ(files.State(), "ooo");
    }
}

} // namespace
