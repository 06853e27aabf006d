// SPDX-License-Identifier: MIT
#include "app/Wastebasket-posix.h"

#include "host/RuntimeError.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

constexpr char kTrash[] = ".local/share/Trash/";

class WastebasketTest : public testing::Test
{
protected:
    /// Returns the line of a wastebasket record that names the origin of the file.
    static std::string originIn(const std::string &record)
    {
        const std::size_t at = record.find("\nPath=") + 6;
        return record.substr(at, record.find('\n', at) - at);
    }

    support::ScopedHome home;
    const support::TempFolder &folder = home.Folder();
};

TEST_F(WastebasketTest, FilesOnTheHomeVolumeCanBeRestoredUnderAnyName)
{
    const std::string name = "Gr\xfcn 100%.con";
    for (const char *content : {"first", "second"})
        EXPECT_TRUE(app::MoveToWastebasket(folder.Write("game/" + name, content)));
    EXPECT_TRUE(folder.Names("game").empty());
    const std::string trash = kTrash;
    EXPECT_EQ(folder.Read(trash + "files/" + name), "first");
    EXPECT_EQ(folder.Read(trash + "files/" + name + ".2"), "second");
    const std::string record = folder.Read(trash + "info/" + name + ".2.trashinfo");
    EXPECT_TRUE(record.starts_with("[Trash Info]\nPath=/")) << record;
    EXPECT_EQ(originIn(record), folder.Path() + "/game/Gr%FCn%20100%25.con");
    EXPECT_NE(record.find("\nDeletionDate=20"), std::string::npos) << record;
}

TEST_F(WastebasketTest, NamesOfMaximumLengthFit)
{
    const std::string name = std::string(251, 'x') + ".con";
    EXPECT_TRUE(app::MoveToWastebasket(folder.Write(name)));
    EXPECT_EQ(folder.Names(std::string(kTrash) + "info").size(), 1u);
}

TEST_F(WastebasketTest, AFileOnAnotherVolumeStaysOnIt)
{
    const fs::path volume = "/dev/shm";
    struct stat here = {}, there = {};
    if (stat(folder.Path().c_str(), &here) != 0 || stat(volume.c_str(), &there) != 0 ||
        here.st_dev == there.st_dev || access(volume.c_str(), W_OK) != 0)
        GTEST_SKIP() << "there is no other volume";
    const fs::path basket = volume / (".Trash-" + std::to_string(geteuid()));
    if (fs::exists(basket))
        GTEST_SKIP() << "in use: " << basket;
    const fs::path file = volume / ("zelk-" + std::to_string(getpid()) + ".con");
    fs::copy_file(folder.Write("a.con", "coal"), file);
    EXPECT_TRUE(app::MoveToWastebasket(file.native()));
    EXPECT_FALSE(fs::exists(file));
    EXPECT_TRUE(fs::exists(basket / "files" / file.filename()));
    EXPECT_TRUE(fs::exists(basket / "info" / (file.filename().native() + ".trashinfo")));
    EXPECT_FALSE(folder.Exists(".local/share/Trash"));
    fs::remove_all(basket);
}

TEST_F(WastebasketTest, WithoutAWastebasketTheFileStays)
{
    const std::string file = folder.Write("game/a.con", "coal");
    {
        const support::ScopedVariable data("XDG_DATA_HOME", folder.Write("file") + "/below");
        EXPECT_FALSE(app::MoveToWastebasket(file));
    }
    folder.Write(".local/share/Trash", "not a folder");
    EXPECT_FALSE(app::MoveToWastebasket(file));
    EXPECT_EQ(folder.Read("game/a.con"), "coal");
    EXPECT_THROW(app::MoveToWastebasket(folder.At("gone.con")), host::RuntimeError);
}

} // namespace
