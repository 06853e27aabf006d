// SPDX-License-Identifier: MIT
#include "host/Folders.h"

#include "host/Disk.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

#include <array>
#include <regex>
#include <thread>

using Names = std::vector<std::string>;
using support::ScopedVariable;

namespace {

TEST(FoldersTest, FollowHomeAndTheXdgVariables)
{
    const support::ScopedHome home;
    const std::string &at = home.Folder().Path();
    EXPECT_EQ(host::HomeFolder(), at);
    EXPECT_EQ(host::ConfigFolder(), at + "/.config");
    EXPECT_EQ(host::DataFolder(), at + "/.local/share");
    EXPECT_EQ(host::StateFolder(), at + "/.local/state");
    EXPECT_EQ(host::CacheFolder(), at + "/.cache");
    EXPECT_EQ(host::ConfigFolders(), (Names{at + "/.config", at + "/etc"}));
    EXPECT_EQ(host::TraceLogFile(), at + "/.local/state/zelk/zelk.log");
    {
        const ScopedVariable config("XDG_CONFIG_HOME", "/c//"), data("XDG_DATA_HOME", "relative"),
            state("XDG_STATE_HOME", ""), folders("XDG_CONFIG_DIRS", "/one/:relative::/two");
        EXPECT_EQ(host::ConfigFolder(), "/c");
        EXPECT_EQ(host::DataFolder(), at + "/.local/share");
        EXPECT_EQ(host::StateFolder(), at + "/.local/state");
        EXPECT_EQ(host::ConfigFolders(), (Names{"/c", "/one", "/two"}));
    }
    const ScopedVariable folders("XDG_CONFIG_DIRS", std::nullopt), none("HOME", std::nullopt);
    EXPECT_EQ(host::ConfigFolders().back(), "/etc/xdg");
    EXPECT_TRUE(host::HomeFolder().starts_with('/'));
}

TEST(FoldersTest, ProgramFolderIsWritable)
{
    const support::ScopedHome home;
    const support::TempFolder &at = home.Folder();
    EXPECT_EQ(host::disk::KindOf(host::ExecutableFolder() + "/zelk_host_tests"),
              host::disk::Kind::File);
    EXPECT_TRUE(host::disk::IsWritableFolder(host::ProgramFolder()));
    EXPECT_EQ(host::WritableFolder(at.Path(), at.At("unused")), at.Path());
    EXPECT_FALSE(at.Exists("unused"));
    EXPECT_EQ(host::WritableFolder("/proc/self", at.At("a/b")), at.At("a/b"));
    EXPECT_TRUE(host::disk::IsWritableFolder(at.At("a/b")));
    EXPECT_EQ(host::WritableFolder(at.Write("file"), at.At("file/x")), at.At("file/x"));
}

TEST(FoldersTest, ReadsVolumesFromTheMountTable)
{
    constexpr std::string_view kTable = "proc /proc proc rw 0 0\n"
                                        "/dev/sda1 / ext4 rw 0 0\n"
                                        "tmpfs /run tmpfs rw 0 0\n"
                                        "/dev/sdb1 /media/My\\040Disk\\134x vfat rw 0 0\n"
                                        "/dev/sdb1 /media/My\\040Disk\\134x vfat rw 0 0\n"
                                        "/dev/loop3 /snap/core squashfs ro 0 0\n"
                                        "server:/games /mnt/games nfs4 rw 0 0\n"
                                        "broken\n"
                                        "/dev/sdc1 /mnt/end\\04 ntfs3 rw 0 0";
    Names paths;
    for (const host::Volume &volume : host::VolumesFromMounts(kTable))
        paths.push_back(volume.path);
    EXPECT_EQ(paths, (Names{"/", "/media/My Disk\\x", "/mnt/games", "/mnt/end\\04"}));
    EXPECT_EQ(host::VolumesFromMounts("").size(), 1u);

    const std::vector<host::Volume> volumes = host::Volumes();
    ASSERT_FALSE(volumes.empty());
    EXPECT_EQ(volumes.front().path, "/");
    for (const host::Volume &volume : volumes)
        EXPECT_EQ(host::disk::KindOf(volume.path), host::disk::Kind::Folder) << volume.path;
}

TEST(FoldersTest, AppendsTraceLines)
{
    const support::ScopedHome home;
    {
        std::array<std::jthread, 4> threads;
        for (std::jthread &thread : threads)
            thread = std::jthread([] {
                for (int line = 0; line < 25; ++line)
                    host::AppendTraceLine("> tsview 12");
            });
    }
    const std::string text = home.Folder().Read(".local/state/zelk/zelk.log");
    const std::regex line("([01][0-9]|2[0-3]):[0-5][0-9]:[0-6][0-9] > tsview 12\n");
    EXPECT_EQ(std::distance(std::sregex_iterator(text.begin(), text.end(), line), {}), 100);
    EXPECT_EQ(text.size(), 100u * std::string_view("hh:mm:ss > tsview 12\n").size());
}

TEST(FoldersTest, DropsATraceLineThatCannotBeWritten)
{
    const support::ScopedHome home;
    home.Folder().MakeFolder(".local/state/zelk/zelk.log");
    host::AppendTraceLine("x");
    const ScopedVariable state("XDG_STATE_HOME", "/proc/self/none");
    host::AppendTraceLine("x");
    EXPECT_EQ(home.Folder().Names(".local/state/zelk"), Names{"zelk.log"});
    EXPECT_EQ(home.Folder().Names(".local/state/zelk/zelk.log"), Names{});
}

} // namespace
