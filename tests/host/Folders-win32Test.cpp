// SPDX-License-Identifier: MIT
#include "host/Folders.h"

#include "host/Disk.h"
#include "host/GameFiles.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <thread>

using Names = std::vector<std::string>;
using support::ScopedVariable;

namespace {

TEST(FoldersTest, FollowProfileAndSystemFolders)
{
    const support::ScopedHome home;
    EXPECT_EQ(host::HomeFolder(), home.Folder().Path());
    EXPECT_EQ(host::ConfigFolder(), home.Folder().At("Roaming"));
    EXPECT_EQ(host::DataFolder(), home.Folder().At("Local"));
    EXPECT_EQ(host::StateFolder(), home.Folder().At("Local"));
    EXPECT_EQ(host::ConfigFolders(), (Names{home.Folder().At("Roaming"), home.Folder().At("etc")}));
    for (const auto &value :
         {std::optional<std::string>(), std::optional<std::string>("relative")}) {
        const ScopedVariable data("LOCALAPPDATA", value);
        EXPECT_EQ(host::disk::RootLength(host::DataFolder()), 3u);
    }
    const ScopedVariable data("LOCALAPPDATA", "D:\\日本\\");
    EXPECT_EQ(host::DataFolder(), "D:\\日本");
}

TEST(FoldersTest, ProgramFolderIsWritable)
{
    const support::ScopedHome home;
    const support::TempFolder &at = home.Folder();
    EXPECT_EQ(host::disk::KindOf(host::ExecutableFolder() + "\\zelk_host_tests.exe"),
              host::disk::Kind::File);
    EXPECT_TRUE(host::disk::IsWritableFolder(host::ProgramFolder()));
    EXPECT_EQ(host::WritableFolder(at.At("Local"), at.At("unused")), at.At("Local"));
    EXPECT_FALSE(at.Exists("unused"));
    EXPECT_EQ(at.Names("Local"), Names{});
    EXPECT_EQ(host::WritableFolder(at.Write("file"), at.At("a/b")), at.At("a/b"));
    EXPECT_TRUE(host::disk::IsWritableFolder(at.At("a/b")));
    EXPECT_TRUE(host::disk::MakeFolders(at.At("file/x")));
}

TEST(FoldersTest, VolumesAreDrives)
{
    Names paths;
    for (const host::Volume &volume : host::Volumes())
        paths.push_back(volume.path);
    EXPECT_TRUE(std::is_sorted(paths.begin(), paths.end()));
    EXPECT_EQ(std::count(paths.begin(), paths.end(), "C:\\"), 1);
    for (const std::string &path : paths)
        EXPECT_EQ(host::disk::RootLength(path), path.size()) << path;
}

TEST(FoldersTest, AppendsTraceLines)
{
    const support::ScopedHome home;
    const std::string mark = "> test " + std::to_string(std::random_device()());
    {
        std::array<std::jthread, 4> threads;
        for (std::jthread &thread : threads)
            thread = std::jthread([&] {
                for (int line = 0; line < 25; ++line)
                    host::AppendTraceLine(mark);
            });
    }
    const std::string text = host::GameFiles().ReadFile(host::TraceLogFile());
    int lines = 0;
    for (std::size_t at = 0; (at = text.find(' ' + mark + "\r\n", at)) != text.npos; ++at)
        ++lines;
    EXPECT_EQ(lines, 100);
}

} // namespace
