// SPDX-License-Identifier: MIT
#include "host/Disk-win32.h"

#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "host/Windows-win32.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace disk = host::disk;
using Names = std::vector<std::string>;

namespace {

/// Returns the "number reason" of a failing call without the path, or "" if the call succeeds.
template <typename Call> std::string errorOf(Call call)
{
    try {
        call();
    } catch (const host::RuntimeError &error) {
        const std::string detail = error.Detail();
        return std::to_string(error.Number()) + detail.substr(detail.rfind(": ") + 1);
    }
    return {};
}

class DiskTest : public testing::Test
{
protected:
    std::wstring system(std::string_view name) const { return disk::SystemPath(folder.At(name)); }

    support::TempFolder folder;
    host::GameFiles files;
};

TEST(DiskPathsTest, FindsTheRootOfAPath)
{
    struct Row
    {
        const char *path;
        std::size_t length;
    };
    const Row rows[] = {
        {"C:\\x", 3},
        {"c:/x", 3},
        {"C:", 2},
        {"C:x", 0},
        {"x\\y", 0},
        {"", 0},
        {"\\x", 1},
        {"/", 1},
        {"\\\\server\\share\\x", 15},
        {"//server/share", 14},
        {"\\\\?\\C:\\x", 7},
        {"\\\\?\\UNC\\server\\share\\x", 21},
        {"\\\\", 1},
        {"1:\\x", 0},
    };
    for (const Row &row : rows)
        EXPECT_EQ(disk::RootLength(row.path), row.length) << row.path;
}

TEST(DiskPathsTest, MakesSystemPaths)
{
    const std::wstring longName(300, L'n');
    const std::pair<std::string, std::wstring> rows[] = {
        {"C:\\a/b", L"\\\\?\\C:\\a\\b"},
        {"C:", L"\\\\?\\C:\\"},
        {"\\\\server\\share\\x", L"\\\\?\\UNC\\server\\share\\x"},
        {"\\\\?\\C:\\x", L"\\\\?\\C:\\x"},
        {"C:\\" + disk::Narrow(longName) + "\\x", L"\\\\?\\C:\\" + longName + L"\\x"},
        {"C:\\\xE4", L"\\\\?\\C:\\ä"}, // not UTF-8
        {"C:\\a:stream", L""},
        {"C:x", L""},
        {"C:\\a*", L""},
        {std::string("C:\\a\0b", 6), L""},
        {"", L""},
    };
    for (const auto &[path, expected] : rows)
        EXPECT_EQ(disk::Narrow(disk::SystemPath(path)), disk::Narrow(expected)) << path;
}

TEST_F(DiskTest, NamesOutsideTheCodePageSurviveARoundTrip)
{
    const std::string name = "Güter 日本 🚂.con";
    files.WriteFile(folder.At("x\\..\\" + name), "x");
    EXPECT_EQ(files.ListFiles(folder.Path(), "*.CON"), Names{name});
    EXPECT_EQ(files.ReadFile(folder.At("GÜTER 日本 🚂.CON")), "x");
    EXPECT_EQ(folder.Read(name), "x");
}

TEST_F(DiskTest, HandlesLongPaths)
{
    std::string deep = folder.At("deep");
    for (int i = 0; i < 6; ++i)
        deep += '/' + std::string(100, static_cast<char>('a' + i));
    ASSERT_FALSE(disk::MakeFolders(deep));
    files.WriteFile(deep + "/x.con", "1");
    files.WriteFile(deep + "/X.CON", "2");
    EXPECT_EQ(files.ListFiles(deep, "*"), Names{"x.con"});
    EXPECT_EQ(files.ReadFile(deep + "/x.con"), "2");
    files.RemoveFile(deep + "/x.con");
    EXPECT_EQ(files.ListFiles(deep, "*"), Names{});
    while (deep.size() > folder.Path().size()) { // too long for TempFolder
        EXPECT_TRUE(RemoveDirectoryW(disk::SystemPath(deep).c_str())) << deep;
        deep.resize(deep.rfind('/'));
    }
    EXPECT_FALSE(folder.Exists("deep"));
}

TEST_F(DiskTest, RefusesNamesThatWindowsWouldChange)
{
    for (const char *name : {"a.con.", "a.con ", "a:b.con", "a.con:x", "a?.con", "a\".con", "a|b"})
        EXPECT_TRUE(errorOf([&] { files.WriteFile(folder.At(name), "x"); }).starts_with("75 "))
            << name;
    EXPECT_EQ(folder.Names(), Names{});
    EXPECT_TRUE(disk::MakeFolders(folder.At("sub./x")));
    for (const char *name : {"nul", "con.con", "LPT1.eng", "aux .x.y"}) {
        EXPECT_EQ(errorOf([&] { files.WriteFile(folder.At(name), "x"); }), "75 choose another one")
            << name << ": the end of the reason for names of devices";
        EXPECT_FALSE(files.FileExists(folder.At(name))) << name;
    }
    files.WriteFile(folder.At("console.con"), "x");
    files.WriteFile(folder.At("com0.con"), "x");
    EXPECT_EQ(folder.Names(), (Names{"com0.con", "console.con"}));
}

TEST_F(DiskTest, RefusesReadOnlyFiles)
{
    const std::string file = folder.Write("a.con", "old");
    ASSERT_TRUE(SetFileAttributesW(system("a.con").c_str(), FILE_ATTRIBUTE_READONLY));
    EXPECT_EQ(errorOf([&] { files.WriteFile(file, "new"); }), "70 the file is read-only");
    EXPECT_EQ(errorOf([&] { files.RemoveFile(file); }), "70 the file is read-only");
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_EQ(folder.Names(), Names{"a.con"});
    SetFileAttributesW(system("a.con").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(DiskTest, LeavesFilesInUseUnchanged)
{
    struct Row
    {
        const char *name;
        DWORD access, share;
        bool canRead;
    };
    const Row rows[] = {
        {"opened exclusively", GENERIC_READ | GENERIC_WRITE, 0, false},
        {"open for reading", GENERIC_READ, FILE_SHARE_READ, true},
        {"open without permission to rename", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
         true},
    };
    const std::string file = folder.Write("a.con", "old");
    for (const Row &row : rows) {
        const disk::Handle other(CreateFileW(system("a.con").c_str(), row.access, row.share,
                                             nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(other) << row.name;
        const std::string inUse = "70 another program has the file open";
        EXPECT_EQ(errorOf([&] { files.WriteFile(file, "new"); }), inUse) << row.name;
        EXPECT_EQ(errorOf([&] { files.RemoveFile(file); }), inUse) << row.name;
        EXPECT_EQ(errorOf([&] { files.ReadFile(file); }), row.canRead ? "" : inUse) << row.name;
    }
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_EQ(folder.Names(), Names{"a.con"});
    files.WriteFile(file, "new");
    EXPECT_EQ(folder.Read("a.con"), "new");
}

TEST_F(DiskTest, WritingKeepsTheAttributes)
{
    const std::string file = folder.Write("a.con", "old");
    ASSERT_TRUE(SetFileAttributesW(system("a.con").c_str(), FILE_ATTRIBUTE_HIDDEN));
    if ((GetFileAttributesW(system("a.con").c_str()) & FILE_ATTRIBUTE_HIDDEN) == 0)
        GTEST_SKIP() << "this disk does not store attributes";
    files.WriteFile(file, "new");
    EXPECT_EQ(folder.Read("a.con"), "new");
    EXPECT_TRUE(GetFileAttributesW(system("a.con").c_str()) & FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(folder.Names(), Names{"a.con"});
}

TEST_F(DiskTest, DrivesAndDevicesAreNotFiles)
{
    EXPECT_TRUE(files.FolderExists("c:"));
    EXPECT_TRUE(files.FolderExists("C:\\"));
    EXPECT_FALSE(files.FileExists("C:\\"));
    EXPECT_FALSE(files.FolderExists("C:relative"));
    std::string bytes;
    EXPECT_TRUE(disk::Read("\\\\.\\nul", 10, bytes));
    EXPECT_TRUE(disk::Read(folder.Path(), 10, bytes));
    EXPECT_FALSE(errorOf([&] { files.WriteFile("C:\\", "x"); }).empty());
}

} // namespace
