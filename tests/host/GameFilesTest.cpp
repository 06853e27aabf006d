// SPDX-License-Identifier: MIT
#include "host/GameFiles.h"
#include "host/Path.h"

#include "host/Disk.h"
#include "host/FileState.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

using host::GameFiles;
using Names = std::vector<std::string>;

namespace {

class GameFilesTest : public testing::Test
{
protected:
    /// Returns the name of the file, relative to the folder, that a game path finds; "" for none.
    std::string found(std::string_view name) { return inside(files.FindFile(folder.At(name))); }
    std::string foundFolder(std::string_view name)
    {
        return inside(files.FindFolder(folder.At(name)));
    }
    std::string target(std::string_view name) { return inside(files.TargetOf(folder.At(name))); }
    Names listed(std::string_view name, std::string_view pattern)
    {
        return files.ListFiles(folder.At(name), pattern);
    }
    /// Returns the error of a call as "number detail", without the path of the test folder.
    template <typename Call> std::string errorOf(Call call)
    {
        try {
            call();
        } catch (const host::RuntimeError &error) {
            std::string text = std::to_string(error.Number()) + ' ' + error.Detail();
            if (const auto at = text.find(folder.Path()); at != std::string::npos)
                text.replace(at, folder.Path().size(), "~");
            return text;
        }
        return "no error";
    }

    support::TempFolder folder;
    GameFiles files;

private:
    std::string inside(const std::optional<std::filesystem::path> &path) const
    {
        if (!path)
            return "";
        const std::u8string text = path->generic_u8string();
        const std::string name = std::string(text.begin(), text.end());
        return asOnDisk(name.substr(folder.Path().size() + 1));
    }
    /// Where the disk ignores letter case, a path may be returned as it was spelled in the call.
    std::string asOnDisk(const std::string &path) const
    {
        if (host::path::kSeparator == '/')
            return path;
        std::string spelled;
        for (const std::string &step : host::Split(path, '/')) {
            std::string name = step;
            for (const std::string &there : folder.Names(spelled))
                if (host::EqualsNoCase(there, step))
                    name = there;
            spelled += (spelled.empty() ? "" : "/") + name;
        }
        return spelled;
    }
};

TEST_F(GameFilesTest, ListsInOrderHoweverMuchNamesShare)
{
    Names names = {"z.con", "Consist.con", "\xF0\x90\x90\x80.con", "\xEF\xBD\x81.con",
                   "\xC3\xA4.con"};
    for (const char *start : {"A long name of a train ", "a LONG name of a train to "})
        for (int i = 0; i < 30; ++i)
            names.push_back(start + std::to_string(i * 7) + ".con");
    for (const std::string &name : names)
        folder.Write(name);
    std::sort(names.begin(), names.end(), host::ListsBefore);
    EXPECT_EQ(listed("", "*.con"), names);
}

TEST_F(GameFilesTest, ReturnsTheSpellingOnDisk)
{
    folder.Write("Trains/Box & Co/A b.Wag");
    const auto spelled = [this](std::string_view name) -> std::string {
        std::string path = files.SpellingOf(folder.At(name)).value_or("");
        std::replace(path.begin(), path.end(), '\\', '/');
        return path.empty() ? "none" : path.substr(folder.Path().size() + 1);
    };
    EXPECT_EQ(spelled("Trains/Box & Co/A b.Wag"), "Trains/Box & Co/A b.Wag");
    EXPECT_EQ(spelled("TRAINS\\gone/..\\box & co/a B.wAG"), "Trains/Box & Co/A b.Wag");
    EXPECT_EQ(spelled("trains/BOX & CO"), "Trains/Box & Co") << "a folder";
    EXPECT_EQ(spelled("trains/BOX & CO/none.wag"), "none");
}

TEST_F(GameFilesTest, FindsInAnyCaseAndWithEitherSeparator)
{
    folder.Write("Trains/Trainset/Dash9/dash9.ENG");
    folder.Write("Trains/Trainset/Größe/Ä.eng");
    folder.MakeFolder("Trains/Trainset/Dash9/Sound");
    struct Row
    {
        const char *asked, *found;
    };
    const Row rows[] = {
        {"Trains/Trainset/Dash9/dash9.ENG", "Trains/Trainset/Dash9/dash9.ENG"},
        {"TRAINS\\trainset/DASH9\\Dash9.eng", "Trains/Trainset/Dash9/dash9.ENG"},
        {"trains//trainset/dash9/\\dash9.eng", "Trains/Trainset/Dash9/dash9.ENG"},
        {"trains/trainset/grÖSSe/ä.ENG", ""}, // sharp s has no single upper-case character
        {"trains/trainset/gRÖßE/ä.ENG", "Trains/Trainset/Größe/Ä.eng"},
        {"trains/none/../trainset/./dash9/Sound/../../DASH9/dash9.eng",
         "Trains/Trainset/Dash9/dash9.ENG"},
        {"Trains/Trainset/Dash9/Sound", ""}, // a folder
        {"Trains/Trainset/Dash9/sound/", ""},
        {"Trains/Trainset/Dash9/dash9.ENG/", ""},
        {"Trains/Trainset/Dash9/dash9.ENG/x", ""},
        {"Trains/Trainset/Dash9/dash9", ""},
        {"Trains/Trainset/Dash9/*.eng", ""},
    };
    for (const Row &row : rows)
        EXPECT_EQ(found(row.asked), row.found) << row.asked;
    EXPECT_EQ(found(std::string("Trains/Trainset/Dash9/dash9.ENG\0.s", 34)), "");
    EXPECT_FALSE(files.FileExists(""));
    EXPECT_FALSE(files.FolderExists(""));
    EXPECT_FALSE(files.FileExists("/"));
    EXPECT_TRUE(files.FolderExists("/"));
    EXPECT_TRUE(files.FolderExists("\\..\\.."));
    EXPECT_FALSE(files.FileExists("no such relative path/x.eng"));
}

TEST_F(GameFilesTest, FoldersAreNotFiles)
{
    folder.Write("a/X.s");
    folder.MakeFolder("b/x.S");
    EXPECT_EQ(foundFolder("A"), "a");
    EXPECT_EQ(foundFolder("A/x.s"), "");
    EXPECT_EQ(foundFolder("B/X.s/"), "b/x.S");
    EXPECT_EQ(found("b/x.S"), "");
    EXPECT_EQ(listed("a", "*"), Names{"X.s"});
    EXPECT_EQ(listed("b", "*"), Names{});
    EXPECT_EQ(files.ListFolders(folder.Path()), (Names{"a", "b"}));
    EXPECT_EQ(files.ListFolders(folder.At("b"), "*.s"), Names{"x.S"});
}

TEST_F(GameFilesTest, SortsListingsByUpperCase)
{
    for (const char *name : {"b.con", "_.con", "A.con", "a b.con", "Z.CON", "é.con", "x.eng"})
        folder.Write(std::string("Consists/") + name);
    EXPECT_EQ(listed("consists", "*.con"),
              (Names{"a b.con", "A.con", "b.con", "Z.CON", "_.con", "é.con"}));
    EXPECT_EQ(listed("Consists\\", "x*"), Names{"x.eng"});
    EXPECT_EQ(listed("None", "*"), Names{});
    EXPECT_EQ(listed("Consists/x.eng", "*"), Names{});
}

TEST_F(GameFilesTest, SeesChangesBetweenLookUps)
{
    // Makes many changes within one tick of the clock for folder time stamps.
    folder.MakeFolder("c");
    for (std::size_t i = 1; i <= 200; ++i) {
        const std::string name = "N" + std::to_string(i) + ".con";
        EXPECT_EQ(found("C/n" + std::to_string(i) + ".CON"), "");
        folder.Write("c/" + name);
        ASSERT_EQ(listed("C", "*").size(), i);
        ASSERT_EQ(found("C/n" + std::to_string(i) + ".CON"), "c/" + name);
    }
    std::filesystem::rename(folder.At("c"), folder.At("d"));
    EXPECT_EQ(found("C/n1.con"), "");
    EXPECT_EQ(found("D/n1.con"), "d/N1.con");
    std::filesystem::remove_all(folder.At("d"));
    EXPECT_EQ(listed("D", "*"), Names{});
}

TEST_F(GameFilesTest, DoesNotKeepAnOldListingOfAChangedFolder)
{
    folder.Write("c/a.con");
    // GameFiles keeps a listing if the folder has not changed for longer than the clock's
    // granularity.
    while (!host::disk::IsSettled(*host::disk::StampOf(folder.At("c")), host::disk::Now()))
        std::this_thread::yield();
    EXPECT_EQ(listed("C", "*"), Names{"a.con"});
    folder.Write("c/B.con");
    EXPECT_EQ(listed("C", "*"), (Names{"a.con", "B.con"}));
    std::filesystem::remove(folder.At("c/a.con"));
    EXPECT_EQ(found("C/A.con"), "");
    files.Refresh();
    EXPECT_EQ(listed("C", "*"), Names{"B.con"});
}

TEST_F(GameFilesTest, TargetIsTheExistingFileOrTheGivenName)
{
    folder.Write("Consists/Old.con");
    folder.MakeFolder("Consists/Sub");
    EXPECT_EQ(target("consists/OLD.CON"), "Consists/Old.con");
    EXPECT_EQ(target("consists/New.CON"), "Consists/New.CON");
    EXPECT_EQ(target("consists/sub/../New.CON"), "Consists/New.CON");
    EXPECT_EQ(target("none/New.con"), "");
    EXPECT_EQ(target("consists/sub/"), "");
}

TEST_F(GameFilesTest, WritesWholeFilesAndKeepsTheirSpelling)
{
    folder.Write("Consists/Old.con", "old and longer");
    files.WriteFile(folder.At("CONSISTS\\OLD.CON"), "new");
    files.WriteFile(folder.At("consists/Second.con"), std::string("\0\xFF", 2));
    files.WriteFile(folder.At("consists/Empty.con"), "");
    EXPECT_EQ(folder.Names("Consists"), (Names{"Empty.con", "Old.con", "Second.con"}));
    EXPECT_EQ(folder.Read("Consists/Old.con"), "new");
    EXPECT_EQ(folder.Read("Consists/Second.con"), std::string("\0\xFF", 2));
    EXPECT_EQ(files.ReadFile(folder.At("consists/SECOND.con")), std::string("\0\xFF", 2));
    EXPECT_EQ(files.ReadFile(folder.At("consists/empty.con")), "");
}

TEST_F(GameFilesTest, FileThatWasChangedSinceItWasReadIsNotOverwritten)
{
    const std::string path = folder.Write("c/a.con", "old");
    const host::FileState before(path, "old");
    folder.Write("c/a.con", "by others");
    EXPECT_EQ(
        errorOf([&] { files.WriteFile(folder.At("C\\A.CON"), "new", before); }),
        "75 ~/C\\A.CON: it was changed since it was read, and so was not overwritten. Read it "
        "again and repeat the change.");
    EXPECT_EQ(folder.Read("c/a.con"), "by others");
    EXPECT_EQ(folder.Names("c"), Names{"a.con"});

    files.WriteFile(folder.At("c/b.con"), "another file", before);
    files.WriteFile(path, "new", host::FileState(path, "by others"));
    EXPECT_EQ(folder.Read("c/a.con"), "new");
    files.RemoveFile(path);
    files.WriteFile(path, "again", before); // nothing is lost
    EXPECT_THROW(files.WriteFile(path, "x", host::FileState::Absent(path)), host::FileChanged);
    EXPECT_EQ(folder.Read("c/a.con"), "again");
    EXPECT_THROW(files.WriteFile(folder.At("missing/a.con"), "x", before), host::RuntimeError);
}

TEST_F(GameFilesTest, ErrorsNameTheFileAndTheReason)
{
    folder.Write("c/a.con", "12345");
    folder.MakeFolder("c/folder.con");
    struct Row
    {
        const char *name;
        std::string error, expected;
    };
    const Row rows[] = {
        {"read without file", errorOf([&] { files.ReadFile(folder.At("C/x.con")); }),
         "53 ~/C/x.con: there is no such file"},
        {"read without folder", errorOf([&] { files.ReadFile(folder.At("none/x.con")); }),
         "76 ~/none/x.con: there is no such folder"},
        {"read below a file", errorOf([&] { files.ReadFile(folder.At("c/a.con/x")); }),
         "76 ~/c/a.con/x: there is no such folder"},
        {"read a folder", errorOf([&] { files.ReadFile(folder.At("c/folder.con")); }),
         "53 ~/c/folder.con: there is no such file"},
        {"read nothing", errorOf([&] { files.ReadFile(""); }), "76 no file name is given"},
        {"read too much", errorOf([&] { files.ReadFile(folder.At("c/A.con"), 4); }),
         "5 ~/c/A.con: larger than 4 bytes"},
        {"write without folder", errorOf([&] { files.WriteFile(folder.At("n/x.con"), "x"); }),
         "76 ~/n/x.con: there is no such folder"},
        {"write a folder", errorOf([&] { files.WriteFile(folder.At("c/folder.con"), "x"); }),
         "75 ~/c/folder.con: it is a folder"},
        {"write too long a name",
         errorOf([&] { files.WriteFile(folder.At("c/" + std::string(300, 'x')), "x"); }),
         "75 ~/c/" + std::string(300, 'x') + ": the name is too long: choose a shorter one"},
        {"remove without file", errorOf([&] { files.RemoveFile(folder.At("c/x.con")); }),
         "53 ~/c/x.con: there is no such file"},
        {"remove a folder", errorOf([&] { files.RemoveFile(folder.At("c/folder.con")); }),
         "53 ~/c/folder.con: there is no such file"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(row.error, row.expected) << row.name;
    EXPECT_EQ(files.ReadFile(folder.At("c/A.con"), 5), "12345");
    EXPECT_EQ(folder.Names("c"), (Names{"a.con", "folder.con"}));
}

TEST_F(GameFilesTest, RemovesFilesInAnyCase)
{
    folder.Write("c/a.con");
    files.RemoveFile(folder.At("C\\A.CON"));
    EXPECT_EQ(folder.Names("c"), Names{});
    EXPECT_FALSE(files.FileExists(folder.At("c/a.con")));
}

TEST_F(GameFilesTest, ThreadsMayLookUpWhileFilesChange)
{
    for (int i = 0; i < 20; ++i)
        folder.Write("Set/f" + std::to_string(i) + "/Stay.eng");
    std::atomic<bool> done = false;
    std::atomic<int> wrong = 0;
    {
        std::string failure;
        std::array<std::jthread, 4> threads;
        for (std::jthread &thread : threads)
            thread = std::jthread([&] {
                while (!done)
                    for (int i = 0; i < 20; ++i) {
                        const std::string at = folder.At("SET/F" + std::to_string(i));
                        wrong += files.FileExists(at + "/STAY.ENG") ? 0 : 1;
                        wrong += files.ListFiles(at, "stay.*").size() == 1 ? 0 : 1;
                    }
            });
        try {
            for (int i = 0; i < 100; ++i) {
                const std::string at = folder.At("set/f" + std::to_string(i % 20) + "/come.wag");
                files.WriteFile(at, "x");
                files.Refresh();
                files.RemoveFile(at);
            }
        } catch (const std::exception &error) { // the threads must end before it is passed on
            failure = error.what();
        }
        done = true;
        EXPECT_EQ(failure, "");
    }
    EXPECT_EQ(wrong, 0);
}

} // namespace
