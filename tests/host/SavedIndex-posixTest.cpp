// SPDX-License-Identifier: MIT
#include "host/SavedIndex.h"

#include "host/GameFiles.h"
#include "host/Snapshot.h"
#include "support/FailingStep-posix.h"
#include "support/OrdinaryUser-posix.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <memory>

using support::FailingStep;

namespace {

std::int64_t later()
{
    return host::disk::Now() + 10000000000;
}

class SavedIndexFailuresTest : public testing::Test
{
protected:
    using Guard = std::function<std::unique_ptr<FailingStep>()>;

    /// Returns the content of a file through an index, which is read and saved under the guard.
    std::string run(const Guard &guard)
    {
        host::GameFiles files;
        host::Snapshot snapshot(files);
        auto failing = guard();
        host::SavedIndex index(snapshot, {cache.Path(), later}, later(), content.Path(), "test");
        failing.reset();
        const auto kept = index.Find("a");
        host::Recording recording;
        const std::string read =
            kept ? std::string(*kept) : snapshot.TryReadFile(content.At("a.wag")).value();
        if (!kept)
            index.Keep("a", read, recording.Take());
        failing = guard();
        index.Save(host::SavedIndex::Extent::Whole);
        steps = failing ? failing->Count() : 0;
        return read;
    }

    support::TempFolder content, cache;
    int steps = 0;
};

TEST_F(SavedIndexFailuresTest, FailuresLeaveAWholeIndexOrNone)
{
    const Guard watched = [] { return std::make_unique<FailingStep>(FailingStep::kNone, 0); };
    content.Write("a.wag", "0");
    EXPECT_EQ(run(watched), "0");
    const int count = steps;
    ASSERT_GT(count, 5);
    for (int step = 0; step < count; ++step)
        for (const int error : {EIO, ENOSPC, EACCES}) {
            const std::string bytes = std::to_string(step * 1000 + error);
            content.Write("a.wag", bytes);
            const Guard failing = [&] { return std::make_unique<FailingStep>(step, error); };
            const Guard full = [&] {
                return std::make_unique<FailingStep>(step, FailingStep::FillsDisk());
            };
            EXPECT_EQ(run(error == ENOSPC ? full : failing), bytes);
            EXPECT_EQ(run([] { return nullptr; }), bytes);
        }
}

TEST_F(SavedIndexFailuresTest, TargetsOfLinksAreLookedAt)
{
    const support::TempFolder other;
    std::filesystem::create_symlink(other.Write("target", "0"), content.At("a.wag"));
    const auto find = [this, &other](bool keep) {
        host::GameFiles files;
        host::Snapshot snapshot(files);
        host::SavedIndex index(snapshot, {cache.Path(), later}, later(), content.Path(), "link");
        const bool isKept = index.Find("a").has_value();
        host::Recording recording;
        EXPECT_EQ(snapshot.FileExists(content.At("a.wag")), other.Exists("target"));
        if (keep)
            index.Keep("a", "", recording.Take());
        index.Save(host::SavedIndex::Extent::Whole);
        return isKept;
    };
    find(true);
    EXPECT_TRUE(find(false));
    std::filesystem::remove(other.At("target"));
    EXPECT_FALSE(find(false));
}

TEST_F(SavedIndexFailuresTest, ReadOnlyCacheIsNotAnError)
{
    content.Write("a.wag", "0");
    std::filesystem::permissions(cache.Path(), std::filesystem::perms::owner_read |
                                                   std::filesystem::perms::owner_exec);
    std::filesystem::permissions(content.Path(), std::filesystem::perms::all);
    const support::OrdinaryUser ordinary;
    EXPECT_EQ(run([] { return nullptr; }), "0");
    std::filesystem::remove(content.At("a.wag"));
    content.Write("a.wag", "1");
    EXPECT_EQ(run([] { return nullptr; }), "1");
}

} // namespace
