// SPDX-License-Identifier: MIT
#include "host/Disk.h"

#include "host/FileState.h"
#include "host/GameFiles.h"
#include "host/OpenFolder.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"
#include "support/FailingStep-posix.h"
#include "support/OrdinaryUser-posix.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

/// Limits the size of files, so that a write fails partway through.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit = {bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before = {};
};

template <typename Call> int errorNumber(Call call)
{
    try {
        call();
    } catch (const host::RuntimeError &error) {
        EXPECT_FALSE(error.Detail().empty());
        return error.Number();
    }
    return 0;
}

mode_t modeOf(const std::string &path)
{
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

class DiskTest : public testing::Test
{
protected:
    DiskTest() { chmod(folder.Path().c_str(), 0777); }

    support::TempFolder folder;
    host::GameFiles files;
};

TEST_F(DiskTest, MergesFoldersThatDifferOnlyInCase)
{
    folder.Write("Set/Sound/a.sms");
    folder.Write("Set/SOUND/b.sms", "upper");
    folder.Write("Set/SOUND/A.SMS");
    folder.Write("Set/SOUND/c.sms");
    folder.Write("Set/SOUND/C.sms");
    EXPECT_EQ(files.ListFiles(folder.At("set/sound"), "*.sms"),
              (Names{"A.SMS", "b.sms", "C.sms", "c.sms"}));
    EXPECT_EQ(files.ListFiles(folder.At("set/Sound"), "*.sms"),
              (Names{"a.sms", "b.sms", "C.sms", "c.sms"}));
    EXPECT_EQ(files.ReadFile(folder.At("Set/Sound/b.sms")), "upper");
    EXPECT_EQ(files.FindFile(folder.At("set/Sound/A.Sms")), folder.At("Set/Sound/a.sms"));
    EXPECT_EQ(files.FindFile(folder.At("set/SOUND/C.sms")), folder.At("Set/SOUND/C.sms"));
    EXPECT_EQ(files.FindFolder(folder.At("set/Sound")), folder.At("Set/Sound"));
    EXPECT_EQ(files.FindFolder(folder.At("set/sound")), folder.At("Set/SOUND"));
    EXPECT_EQ(files.TargetOf(folder.At("Set/Sound/B.SMS")), folder.At("Set/SOUND/b.sms"));
    EXPECT_EQ(files.TargetOf(folder.At("Set/Sound/n.sms")), folder.At("Set/Sound/n.sms"));
}

TEST_F(DiskTest, ReadsNamesThatAreNotUtf8AsWindows1252)
{
    EXPECT_EQ(host::path::FromDisk(host::path::ToDisk("/x/\xE4.eng")), "/x/\xE4.eng");
    folder.Write("K\xF6ln/G\xFCter.con", "x");
    EXPECT_EQ(files.ListFolders(folder.Path()), Names{"Köln"});
    EXPECT_EQ(files.ListFiles(folder.At("KÖLN"), "g*.con"), Names{"Güter.con"});
    EXPECT_EQ(files.ReadFile(folder.At("Köln/Güter.con")), "x");
    EXPECT_EQ(files.ReadFile(folder.At("köln/GÜTER.CON")), "x");
    files.WriteFile(folder.At("Köln/Güter.con"), "y");
    EXPECT_EQ(folder.Read("K\xF6ln/G\xFCter.con"), "y");
    EXPECT_EQ(folder.Names("K\xF6ln").size(), 1u);
    files.RemoveFile(folder.At("Köln/güter.con"));
    EXPECT_EQ(folder.Names("K\xF6ln"), Names{});
}

TEST_F(DiskTest, TextOfADiskNameFindsItAgain)
{
    const auto textOf = [&](const std::string &name) {
        return files.TextOf(folder.At(name)).substr(folder.Path().size() + 1);
    };
    folder.Write("K\xF6ln/Züge/G\xFCter.con", "x");
    EXPECT_EQ(textOf("K\xF6ln/Züge/G\xFCter.con"), "Köln/Züge/Güter.con");
    EXPECT_EQ(textOf("K\xF6ln"), "Köln");
    EXPECT_EQ(textOf("gone/\xFC.con"), "gone/ü.con");
    EXPECT_EQ(files.TextOf("K\xF6ln\\Z\xC3\xBC"), "Köln\\Zü");
    EXPECT_EQ(files.TextOf(""), "");

    // Two files whose names look alike stay separate.
    folder.Write("K\xF6ln/Züge/Güter.con", "utf-8");
    const std::string bytes = textOf("K\xF6ln/Züge/G\xFCter.con");
    EXPECT_EQ(bytes, "K\xF6ln/Züge/G\xFCter.con");
    EXPECT_EQ(files.ReadFile(folder.At(bytes)), "x");
    files.WriteFile(folder.At(bytes), "y");
    EXPECT_EQ(folder.Read("K\xF6ln/Züge/G\xFCter.con"), "y");
    EXPECT_EQ(folder.Read("K\xF6ln/Züge/Güter.con"), "utf-8");
}

TEST_F(DiskTest, TreatsLinksAsTheirTargets)
{
    folder.Write("Real/a.con", "a");
    fs::create_directory_symlink("Real", folder.At("Link"));
    fs::create_symlink("a.con", folder.At("Real/b.con"));
    fs::create_symlink("late.con", folder.At("Real/c.con"));
    fs::create_symlink("loop", folder.At("Real/loop"));
    fs::create_directory_symlink("..", folder.At("Real/up"));
    EXPECT_EQ(files.ListFiles(folder.At("LINK"), "*"), (Names{"a.con", "b.con"}));
    EXPECT_EQ(files.ListFolders(folder.At("link")), Names{"up"});
    EXPECT_EQ(files.ReadFile(folder.At("link/UP/real/B.con")), "a");
    EXPECT_FALSE(files.FileExists(folder.At("link/LOOP")));
    EXPECT_EQ(errorNumber([&] { files.WriteFile(folder.At("Real/loop"), "x"); }), 75);

    // Creating the target does not change the folder of the link.
    fs::create_symlink("../Other/x.con", folder.At("Real/d.con"));
    EXPECT_FALSE(files.FileExists(folder.At("real/D.con")));
    folder.Write("Other/x.con");
    EXPECT_TRUE(files.FileExists(folder.At("real/D.con")));
}

TEST_F(DiskTest, WritingFollowsLinks)
{
    folder.Write("real/a.con", "old");
    folder.MakeFolder("links");
    fs::create_symlink("second", folder.At("links/first"));
    fs::create_symlink(folder.At("real/a.con"), folder.At("links/second"));
    fs::create_symlink("../real/new.con", folder.At("links/dangling"));
    files.WriteFile(folder.At("links/FIRST"), "new");
    files.WriteFile(folder.At("links/dangling"), "made");
    EXPECT_EQ(folder.Read("real/a.con"), "new");
    EXPECT_EQ(folder.Read("real/new.con"), "made");
    for (const char *link : {"links/first", "links/second", "links/dangling"})
        EXPECT_TRUE(fs::is_symlink(folder.At(link))) << link;
    EXPECT_EQ(folder.Names("links").size(), 3u);
    EXPECT_EQ(folder.Names("real").size(), 2u);
}

TEST_F(DiskTest, WritingKeepsOwnerAndPermissions)
{
    const std::string old = folder.Write("old.con", "old");
    const bool given = chown(old.c_str(), 65534, 65534) == 0; // only root may
    files.WriteFile(old, "new");
    struct stat status = {};
    ASSERT_EQ(stat(old.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, given ? 65534 : geteuid());
    for (const mode_t mode : {0600u, 0664u, 0777u, 02755u}) {
        ASSERT_EQ(chmod(old.c_str(), mode), 0);
        files.WriteFile(old, "new");
        EXPECT_EQ(modeOf(old), mode);
    }
    const mode_t mask = umask(027);
    files.WriteFile(folder.At("new.con"), "x");
    umask(mask);
    EXPECT_EQ(modeOf(folder.At("new.con")), 0640u);
}

TEST_F(DiskTest, FlushesANewFileBeforeAndAfterItGetsItsName)
{
    folder.Write("old.con", "old");
    for (const char *name : {"old.con", "new.con"}) {
        const support::FailingStep watched(support::FailingStep::kNone, 0);
        files.WriteFile(folder.At(name), "content");
        const Names &calls = watched.Calls();
        const auto renamed = std::find(calls.begin(), calls.end(), "rename");
        const auto written = std::find(calls.begin(), renamed, "write");
        ASSERT_NE(written, renamed);
        EXPECT_NE(std::find(written, renamed, "fsync"), renamed) << "its content may get lost";
        EXPECT_NE(std::find(renamed, calls.end(), "fsync"), calls.end()) << "its name may get lost";
    }
}

TEST_F(DiskTest, WritersInOneFolderWaitForEachOther)
{
    const std::string path = folder.Write("count", "0");
    constexpr int kThreads = 8, kTimes = 25;
    std::atomic<int> saved = 0;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < kThreads; ++i)
            threads.emplace_back([&] {
                for (int time = 0; time < kTimes; ++time) {
                    const std::string before = files.ReadFile(path);
                    try {
                        files.WriteFile(path, std::to_string(std::stoi(before) + 1),
                                        host::FileState(path, before));
                        ++saved;
                    } catch (const host::FileChanged &) {
                        --time;
                    }
                }
            });
    }
    EXPECT_EQ(saved, kThreads * kTimes);
    EXPECT_EQ(folder.Read("count"), std::to_string(kThreads * kTimes)) << "a change was lost";
    EXPECT_EQ(folder.Names(), Names{"count"});
}

TEST_F(DiskTest, FolderLockedByAnotherProgramCanBeWrittenTo)
{
    const int locked = open(folder.Path().c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(locked, LOCK_EX), 0);
    files.WriteFile(folder.At("a.con"), "x");
    close(locked);
    EXPECT_EQ(folder.Read("a.con"), "x");
}

TEST_F(DiskTest, RefusesReadOnlyFilesAlsoForRoot)
{
    const std::string file = folder.Write("a.con", "old");
    ASSERT_EQ(chmod(file.c_str(), 0444), 0);
    EXPECT_EQ(errorNumber([&] { files.WriteFile(file, "new"); }), 70);
    EXPECT_EQ(errorNumber([&] { files.RemoveFile(file); }), 70);
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_EQ(folder.Names(), Names{"a.con"});
}

TEST_F(DiskTest, FailedWritesChangeNothing)
{
    const std::string file = folder.Write("a.con", "old");
    {
        const FileSizeLimit limit(4096);
        EXPECT_EQ(errorNumber([&] { files.WriteFile(file, std::string(100000, 'x')); }), 75);
        EXPECT_EQ(errorNumber([&] { files.WriteFile(folder.At("n"), std::string(9999, 'x')); }),
                  75);
    }
    ASSERT_EQ(mkfifo(folder.At("pipe").c_str(), 0666), 0);
    EXPECT_EQ(errorNumber([&] { files.WriteFile(folder.At("pipe"), "x"); }), 75);
    EXPECT_EQ(folder.Read("a.con"), "old");
    EXPECT_EQ(folder.Names(), (Names{"a.con", "pipe"}));
}

TEST_F(DiskTest, ClosedFilesAreAbsentToLookUpsAndAnErrorToReaders)
{
    const std::string file = folder.Write("closed/a.con", "x");
    const std::string secret = folder.Write("open/secret.con", "x");
    folder.Write("blind/a.con", "seen");
    chmod(folder.At("closed").c_str(), 0);
    chmod(folder.At("blind").c_str(), 0311);
    chmod(folder.At("open").c_str(), 0555);
    chmod(secret.c_str(), 0);
    const support::OrdinaryUser ordinary;
    EXPECT_FALSE(files.FileExists(file));
    EXPECT_EQ(files.ListFiles(folder.At("closed"), "*"), Names{});
    for (const char *name : {"CLOSED", "blind"})
        EXPECT_TRUE(files.IsClosed(folder.At(name))) << name;
    for (const char *name : {"open", "none", "closed/deep"})
        EXPECT_FALSE(files.IsClosed(folder.At(name))) << name;
    EXPECT_EQ(errorNumber([&] { files.ReadFile(file); }), 70);
    EXPECT_EQ(errorNumber([&] { files.WriteFile(file, "y"); }), 70);
    EXPECT_EQ(errorNumber([&] { files.ReadFile(folder.At("closed/deep/x")); }), 70);
    EXPECT_EQ(errorNumber([&] { files.ReadFile(secret); }), 70);
    EXPECT_EQ(errorNumber([&] { files.WriteFile(folder.At("open/new.con"), "y"); }), 70);
    EXPECT_EQ(errorNumber([&] { files.RemoveFile(secret); }), 70);
    // This folder cannot be listed, but its files can be read by name.
    EXPECT_EQ(files.ReadFile(folder.At("BLIND/a.con")), "seen");
}

TEST_F(DiskTest, PartialListingCountsAsEmpty)
{
    const Names names = {"a.con", "b.con", "c.con"};
    for (const std::string &name : names)
        folder.Write(name);
    int none = 0, all = 0;
    for (int step = 0, steps = 1; step < steps; ++step) {
        const support::FailingStep failing(step, EIO);
        host::GameFiles fresh;
        const Names listed = fresh.ListFiles(folder.Path(), "*");
        steps = failing.Count() + 1;
        none += listed.empty() ? 1 : 0;
        all += listed == names ? 1 : 0;
        EXPECT_TRUE(listed.empty() || listed == names) << listed.size() << " names";
    }
    EXPECT_GE(none, 3);
    EXPECT_GE(all, 1);
}

TEST_F(DiskTest, SpecialFilesDoNotHangReaders)
{
    ASSERT_EQ(mkfifo(folder.At("pipe.con").c_str(), 0666), 0);
    EXPECT_FALSE(files.FileExists(folder.At("pipe.con")));
    EXPECT_EQ(files.ListFiles(folder.Path(), "*"), Names{});
    EXPECT_EQ(errorNumber([&] { files.ReadFile(folder.At("pipe.con")); }), 53);
    std::string bytes;
    ASSERT_TRUE(host::disk::Read(folder.At("pipe.con"), 100, bytes));
    // Kernel files report a size of 0; one of them cannot be read at its beginning.
    EXPECT_NE(files.ReadFile("/proc/self/status").find("Name:"), std::string::npos);
    EXPECT_EQ(errorNumber([&] { files.ReadFile("/proc/self/status", 10); }), 5);
    EXPECT_EQ(errorNumber([&] { files.ReadFile("/proc/self/mem"); }), 75);
}

TEST_F(DiskTest, OpenFolderReadsTheSameFiles)
{
    for (const char *name : {"a/1", "a/2", "b/1", "b/2", "3"})
        folder.Write(name, name);
    const std::string at = folder.Path() + '/';
    const auto read = [&](const std::string &path) {
        std::string bytes;
        const auto failure = host::disk::Read(path, 100, bytes);
        return failure ? failure->reason : bytes;
    };
    const char *const names[] = {"a/1",    "a/2", "a/1",    "b/2",    "b/1",
                                 "b/none", "b",   "none/1", "none/2", "3"};
    Names expected, found;
    for (const char *name : names)
        expected.push_back(read(at + name));
    const host::disk::OpenFolder open;
    for (const char *name : names)
        found.push_back(read(at + name));
    EXPECT_EQ(found, expected);
    // The folder is open only after its second file, and its files are found under a new name too.
    EXPECT_EQ(read(folder.At("a/1")) + read(folder.At("a/2")), "a/1a/2");
    fs::rename(folder.At("a"), folder.At("c"));
    EXPECT_EQ(read(folder.At("a/1")), "a/1");
}

TEST_F(DiskTest, RelativePathsStartAtTheWorkingFolder)
{
    folder.Write("Sub/a.con", "x");
    const fs::path before = fs::current_path();
    fs::current_path(folder.At("Sub"));
    EXPECT_EQ(files.ListFiles("..\\sub", "*"), Names{"a.con"});
    EXPECT_EQ(files.FindFile("A.CON"), folder.At("Sub/a.con"));
    files.WriteFile("b.con", "y");
    fs::current_path(before);
    EXPECT_EQ(folder.Read("Sub/b.con"), "y");
}

TEST_F(DiskTest, StampsSettleAfterTheClockGranularity)
{
    constexpr std::int64_t kSecond = 1'000'000'000;
    constexpr std::int64_t kFine = 1'700'000'000'123'456'789, kCoarse = 1'700'000'000 * kSecond;
    struct Row
    {
        const char *name;
        std::int64_t modified, changed, now;
        bool settled;
    };
    const Row rows[] = {
        {"at once", kFine, kFine, kFine, false},
        {"within a tick", kFine, kFine, kFine + kSecond / 100, false},
        {"later", kFine, kFine, kFine + kSecond, true},
        {"coarse stamps need longer", kCoarse, kCoarse, kCoarse + kSecond, false},
        {"coarse stamps, later", kCoarse, kCoarse, kCoarse + 3 * kSecond, true},
        {"set back, but just changed", kFine - 99 * kSecond, kFine, kFine + 1, false},
        {"in the future", kFine + 99 * kSecond, kFine, kFine + kSecond, true},
        {"when that time is reached", kFine + 99 * kSecond, kFine, kFine + 99 * kSecond, false},
    };
    for (const Row &row : rows)
        EXPECT_EQ(host::disk::IsSettled({1, 1, row.modified, row.changed}, row.now), row.settled)
            << row.name;
}

TEST_F(DiskTest, DoesNotReplaceUnreadableSettings)
{
    const std::string file = folder.Write("s.ini", "[Settings]\na=1\n");
    chmod(file.c_str(), 0222);
    {
        const support::OrdinaryUser ordinary;
        host::IniSettings settings(file);
        EXPECT_EQ(settings.Read("a"), std::nullopt);
        EXPECT_EQ(errorNumber([&] { settings.Write("b", "2"); }), 70);
    }
    chmod(file.c_str(), 0644);
    EXPECT_EQ(folder.Read("s.ini"), "[Settings]\na=1\n");
}

} // namespace
