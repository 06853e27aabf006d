// SPDX-License-Identifier: MIT
#include "ChangedFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace {

/// Returns the detail of the RuntimeError that the work throws, "" if it throws none.
std::string errorOf(const std::function<void()> &work)
{
    try {
        work();
    } catch (const host::RuntimeError &error) {
        return error.Detail();
    }
    return {};
}

bool contains(const std::string &text, const std::string &part)
{
    return text.find(part) != text.npos;
}

TEST(ChangeJournalTest, LastChangeIsTakenBackOnce)
{
    ChangedFiles files;
    EXPECT_FALSE(files.journal.Last());
    files.journal.Apply("first", {{files.changes[0]}});
    files.journal.Apply("second", {{files.changes[1], files.changes[2]}});
    EXPECT_EQ(files.State(), "nnn");
    EXPECT_EQ(files.journal.Last()->title, "second");
    EXPECT_EQ(files.journal.Undo().title, "second");
    EXPECT_EQ(files.State(), "noo");
    EXPECT_EQ(errorOf([&] { files.journal.Undo(); }), "There is no change to take back.");
    EXPECT_EQ(files.Others(), ChangedFiles::Names());
    EXPECT_TRUE(files.journal.Recover().empty());
}

TEST(ChangeJournalTest, FileThatChangedAfterTheSearchStopsTheWholeChange)
{
    for (std::size_t i = 0; i < 3; ++i) {
        ChangedFiles files;
        files.folder.Write(ChangedFiles::kNames[i], "mine");
        const std::string error = errorOf([&] { files.journal.Apply("x", files.changes); });
        EXPECT_TRUE(error.starts_with(files.changes[i].path + ": it was changed")) << error;
        EXPECT_TRUE(error.ends_with(". No file was changed.")) << error;
        EXPECT_EQ(files.State(), std::string("ooo").replace(i, 1, "x"));
        EXPECT_EQ(files.Others(), ChangedFiles::Names());
        EXPECT_FALSE(files.journal.Last());
    }
}

TEST(ChangeJournalTest, UndoNamesTheFileThatChangedSince)
{
    const struct
    {
        const char *what;
        std::function<void(ChangedFiles &)> act;
        char state;
    } rows[] = {
        {"changed", [](auto &files) { files.folder.Write("A/b.con", "mine"); }, 'x'},
        {"gone",
         [](auto &files) {
             std::filesystem::remove(host::path::ToDisk(files.folder.At("A/b.con")));
         },
         '-'},
        {"old again",
         [](auto &files) { files.folder.Write("A/b.con", ChangedFiles::OldOf("A/b.con")); }, 'o'},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        ChangedFiles files;
        files.journal.Apply("x", files.changes);
        row.act(files);
        const std::string error = errorOf([&] { files.journal.Undo(); });
        EXPECT_TRUE(error.starts_with(files.changes[1].path + ": ")) << error;
        EXPECT_EQ(files.State(), std::string("n") + row.state + "n");
        EXPECT_TRUE(files.journal.Last()) << "it can be taken back once the file is restored";
    }
}

TEST(ChangeJournalTest, InterruptedChangeIsRolledBackOrFinished)
{
    for (const std::string before : {"ooo", "noo", "nno", "ono", "nnn", "n-o"}) {
        ChangedFiles files;
        files.LeaveJournal(files.JournalBytes());
        for (std::size_t i = 0; i < before.size(); ++i)
            if (before[i] == 'n')
                files.folder.Write(ChangedFiles::kNames[i], files.changes[i].after);
            else if (before[i] == '-')
                std::filesystem::remove(host::path::ToDisk(files.changes[i].path));
        const auto messages = files.journal.Recover();
        EXPECT_EQ(files.State(), before == "nnn" ? "nnn" : "ooo") << before;
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0],
                  before == "nnn" ? "\"Replace\" was interrupted. All 3 files have the new content."
                                  : "\"Replace\" was interrupted. All 3 files have the old content "
                                    "again.");
        EXPECT_EQ(files.journal.Last().has_value(), before == "nnn");
        EXPECT_EQ(files.Others(), ChangedFiles::Names());
    }
}

TEST(ChangeJournalTest, FileThatChangedSinceTheInterruptionIsKept)
{
    ChangedFiles files;
    const std::string record = files.JournalBytes();
    files.LeaveJournal(record);
    files.folder.Write("A/a.con", files.changes[0].after);
    files.folder.Write("A/b.con", "mine");
    const auto messages = files.journal.Recover();
    EXPECT_EQ(files.State(), "oxo");
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_TRUE(contains(messages[0], files.changes[1].path + ": it was changed since"));
    EXPECT_FALSE(contains(messages[0], files.changes[0].path));
    ASSERT_EQ(files.Others().size(), 1u);
    EXPECT_TRUE(contains(messages[0], files.Others()[0])) << messages[0];
    EXPECT_EQ(files.folder.Read("state/" + files.Others()[0]), record);
    EXPECT_TRUE(files.journal.Recover().empty()) << "it is reported once";
}

TEST(ChangeJournalTest, RecordCutAtAnyLengthLosesNothing)
{
    const ChangedFiles files;
    const std::string whole = files.JournalBytes();
    std::size_t restored = 0;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        files.LeaveJournal(cut);
        files.folder.Write("B/c.con", files.changes[2].before);
        files.folder.Write("A/a.con", files.changes[0].after);
        files.folder.Write("A/b.con", files.changes[1].after);
        host::ChangeJournal journal(files.folder.At("state"));
        const auto messages = journal.Recover();
        ASSERT_EQ(messages.size(), 1u) << length;
        ASSERT_TRUE(files.State() == "nno" || files.State() == "ono" || files.State() == "ooo")
            << length << files.State();
        restored += files.State() == "ooo" ? 1 : 0;
        ASSERT_EQ(files.Others().size(), 1u) << length;
        ASSERT_TRUE(contains(messages[0], files.Others()[0])) << messages[0];
        ASSERT_EQ(files.folder.Read("state/" + files.Others()[0]), cut);

        files.folder.Write("state/last.zelk-change", cut);
        ASSERT_TRUE(contains(errorOf([&] { journal.Undo(); }), "is damaged")) << length;
        std::filesystem::remove_all(host::path::ToDisk(files.folder.At("state")));
    }
    EXPECT_GT(restored, 10u) << "only the content of the third file was missing";
}

TEST(ChangeJournalTest, DamagedByteIsRecognised)
{
    const std::string whole = ChangedFiles().JournalBytes();
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::string damaged = whole;
        damaged[place] = damaged[place] == '7' ? '8' : '7';
        const auto record = host::ChangeRecord::FromBytes(damaged);
        ASSERT_FALSE(record && record->whole) << place;
    }
    EXPECT_TRUE(host::ChangeRecord::FromBytes(whole)->whole);
}

TEST(ChangeJournalTest, ChangesOfOtherMachinesAreLeftAlone)
{
    ChangedFiles files;
    files.folder.Write("A/a.con", files.changes[0].after);
    files.WriteJournal({host::disk::MarkOf("elsewhere"), 1, 1}, files.JournalBytes());
    EXPECT_TRUE(files.journal.Recover().empty());
    EXPECT_EQ(files.State(), "noo");
    files.folder.Write("A/a.con", files.changes[0].before);
    files.journal.Apply("x", files.changes);
    EXPECT_EQ(files.State(), "nnn");
    EXPECT_EQ(files.Others().size(), 1u);
}

} // namespace
