// SPDX-License-Identifier: MIT
#include "host/FileState.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <system_error>

namespace fs = std::filesystem;
using host::FileState;
using support::TempFolder;

namespace {

class FileStateTest : public testing::Test
{
protected:
    fs::path disk() const { return host::path::ToDisk(path); }

    TempFolder folder;
    host::GameFiles files;
    const std::string path = folder.Write("Trains/a.con", "old");
    const FileState state{path, "old"};
};

TEST_F(FileStateTest, OnlyDifferentContentIsAChange)
{
    const struct
    {
        const char *what;
        std::function<void()> act;
        bool changed;
    } rows[] = {
        {"nothing", [] {}, false},
        {"touched", [&] { fs::last_write_time(disk(), fs::file_time_type::clock::now()); }, false},
        {"deleted", [&] { fs::remove(disk()); }, false},
        {"written again with the same bytes", [&] { folder.Write("Trains/a.con", "old"); }, false},
        {"other bytes of the same size and time",
         [&] {
             const auto time = fs::last_write_time(disk());
             folder.Write("Trains/a.con", "new");
             fs::last_write_time(disk(), time);
         },
         true},
        {"longer", [&] { folder.Write("Trains/a.con", "older"); }, true},
        {"shorter", [&] { folder.Write("Trains/a.con", "ol"); }, true},
        {"empty", [&] { folder.Write("Trains/a.con", ""); }, true},
        {"replaced by another file",
         [&] { fs::rename(host::path::ToDisk(folder.Write("b", "by")), disk()); }, true},
        {"replaced by a folder",
         [&] {
             fs::remove(disk());
             folder.MakeFolder("Trains/a.con");
         },
         false},
    };
    for (const auto &row : rows) {
        row.act();
        EXPECT_EQ(state.HasChanged(files, path), row.changed) << row.what;
        fs::remove(disk());
        folder.Write("Trains/a.con", "old");
    }
}

TEST_F(FileStateTest, RecognisesAFileUnderAnySpellingAndThroughLinks)
{
    folder.Write("Trains/b.con", "another file");
    folder.Write("Trains/a.con", "changed");
    EXPECT_TRUE(state.HasChanged(files, folder.Path() + "/TRAINS/../trains\\A.CON"));
    EXPECT_FALSE(state.HasChanged(files, folder.At("Trains/b.con")));
    EXPECT_FALSE(state.HasChanged(files, folder.At("Trains/c.con")));
    EXPECT_FALSE(state.HasChanged(files, ""));
    std::error_code failed;
    fs::create_directory_symlink(host::path::ToDisk(folder.At("Trains")),
                                 host::path::ToDisk(folder.At("Link")), failed);
    // Windows may refuse to create a link.
    EXPECT_EQ(state.HasChanged(files, folder.At("Link/a.con")), !failed);
}

TEST_F(FileStateTest, AppearanceOfAnAbsentFileIsAChange)
{
    const FileState absent = FileState::Absent(folder.At("Trains/new.con"));
    EXPECT_FALSE(absent.HasChanged(files, folder.At("Trains/new.con")));
    folder.Write("Trains/new.con", "");
    EXPECT_TRUE(absent.HasChanged(files, folder.At("Trains/new.con")));
    EXPECT_FALSE(absent.HasChanged(files, path));
    EXPECT_FALSE(FileState().HasChanged(files, path));
}

} // namespace
