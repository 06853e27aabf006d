// SPDX-License-Identifier: MIT
#include "host/Snapshot.h"

#include "host/Path.h"
#include "host/RuntimeError.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;

TEST(SnapshotTest, FindsTheSameFilesAsGameFiles)
{
    support::TempFolder folder;
    folder.Write("TRAINS/Set/a.wag");
    folder.Write("TRAINS/Set/B.WAG");
    folder.Write("TRAINS/Set/a.wag.d/x");
    host::GameFiles files;
    host::Snapshot snapshot(files);
    for (const char *name : {"TRAINS/Set/a.wag", "trains\\SET\\A.WAG", "Trains/none/../Set/b.wag",
                             "trains/set/./c.wag", "trains/set/a.wag/", "trains/set/a.wag.d",
                             "none/a.wag", "trains/set/a.wag/x", ""}) {
        SCOPED_TRACE(name);
        const auto expected = files.FindFile(folder.At(name));
        const auto found = snapshot.FindFile(folder.At(name));
        ASSERT_EQ(found.has_value(), expected.has_value());
        EXPECT_TRUE(!found || std::filesystem::equivalent(host::path::ToDisk(*found), *expected));
        EXPECT_EQ(snapshot.FolderExists(folder.At(name)),
                  files.FindFolder(folder.At(name)).has_value());
    }
    EXPECT_EQ(snapshot.ListFiles(folder.At("trains/set"), "*.wag"), (Names{"a.wag", "B.WAG"}));
    EXPECT_EQ(snapshot.ListFolders(folder.At("trains/set")), (Names{"a.wag.d"}));
    EXPECT_EQ(snapshot.ListFiles(folder.At("none"), "*"), Names());
    EXPECT_FALSE(snapshot.FileExists(""));
}

TEST(SnapshotTest, FolderFindsTheSameFilesAsWholePaths)
{
    support::TempFolder folder;
    folder.Write("Set/a.wag");
    folder.Write("Set/Sound/x.sms");
    folder.Write("other.sms");
    host::GameFiles files;
    for (const bool isKnown : {false, true}) {
        host::Snapshot snapshot(files);
        if (isKnown)
            snapshot.FileExists(folder.At("Set/") + "a.wag");
        host::Snapshot::Folder set(snapshot, folder.At("Set/"));
        for (const char *name : {"A.WAG", "b.wag", "", ".", "..", "Sound", "sound\\X.sms", "/a.wag",
                                 "../other.sms", "a.wag/"}) {
            std::string bytes;
            EXPECT_EQ(set.FileExists(name), files.FileExists(set.Path() + name)) << name;
            EXPECT_EQ(set.ReadFileInto(bytes, name), files.FileExists(set.Path() + name)) << name;
        }
    }
}

TEST(SnapshotTest, ListsEachFolderOnce)
{
    support::TempFolder folder;
    folder.Write("Set/a.wag");
    host::GameFiles files;
    host::Snapshot before(files);
    EXPECT_EQ(before.ListFiles(folder.At("set"), "*"), (Names{"a.wag"}));
    folder.Write("Set/b.wag");
    EXPECT_EQ(before.ListFiles(folder.At("SET"), "*"), (Names{"a.wag"}));
    EXPECT_EQ(host::Snapshot(files).ListFiles(folder.At("set"), "*"), (Names{"a.wag", "b.wag"}));
}

TEST(SnapshotTest, IdentifiesFilesUnderAnySpelling)
{
    support::TempFolder folder;
    folder.Write("Set/a.wag", "first");
    folder.Write("Set/b.wag");
    host::GameFiles files;
    host::Snapshot snapshot(files);
    const void *first = snapshot.IdentityOf(folder.At("Set/a.wag"));
    EXPECT_TRUE(first);
    EXPECT_EQ(snapshot.IdentityOf(folder.At("none\\..\\SET\\A.wag")), first);
    EXPECT_NE(snapshot.IdentityOf(folder.At("Set/b.wag")), first);
    EXPECT_FALSE(snapshot.IdentityOf(folder.At("Set/c.wag")));
    EXPECT_EQ(snapshot.TryReadFile(folder.At("set/A.WAG")), "first");
    EXPECT_EQ(snapshot.TryReadFile(folder.At("Set/c.wag")), std::nullopt);
    std::filesystem::remove(folder.At("Set/a.wag"));
    EXPECT_THROW(snapshot.TryReadFile(folder.At("Set/a.wag")), host::RuntimeError);
}

TEST(SnapshotTest, SearchesFoldersThatDifferInCase)
{
    support::TempFolder folder;
    folder.Write("SET/a.wag");
    folder.Write("Set/b.wag");
    host::GameFiles files;
    host::Snapshot snapshot(files);
    EXPECT_TRUE(snapshot.FileExists(folder.At("set/A.WAG")));
    EXPECT_TRUE(snapshot.FileExists(folder.At("set/B.WAG")));
    EXPECT_EQ(snapshot.ListFiles(folder.At("set"), "*.wag"), (Names{"a.wag", "b.wag"}));
}

TEST(SnapshotTest, HandlesVeryDeepPaths)
{
    support::TempFolder folder;
    host::GameFiles files;
    host::Snapshot snapshot(files);
    std::string deep = folder.Path(), back;
    for (int i = 0; i < 100000; ++i)
        deep += "/x", back += "/..";
    EXPECT_FALSE(snapshot.FileExists(deep));
    EXPECT_FALSE(snapshot.FolderExists(deep));
    EXPECT_TRUE(snapshot.FolderExists(deep + back));
}

} // namespace
