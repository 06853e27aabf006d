// SPDX-License-Identifier: MIT
#include "host/SharedWork.h"

#include "host/GameFiles.h"
#include "host/Snapshot.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

constexpr int kThreads = 4, kNames = 500;

TEST(SharedTableTest, FirstValueOfATextStays)
{
    host::SharedTable<int> table;
    std::atomic<int> wrong = 0;
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < kThreads; ++thread)
            threads.emplace_back([&table, &wrong, thread] {
                for (int i = 0; i < kNames; ++i) {
                    const std::string text = "text " + std::to_string(i);
                    const int kept = table.Add(text, thread);
                    wrong += table.Find(text) != kept || table.Add(text, -1) != kept;
                }
            });
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(table.Size(), kNames);
    EXPECT_EQ(table.Find("text"), std::nullopt);
}

TEST(SharedWorkTest, IsMadeOnceForAllThreads)
{
    host::SharedWork<std::string> work;
    std::atomic<int> made = 0, wrong = 0;
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < kThreads; ++thread)
            threads.emplace_back([&] {
                for (int i = 0; i < kNames; ++i) {
                    const std::string name = std::to_string(i);
                    const auto value = work.Get(name, [&] {
                        ++made;
                        return "made of " + name;
                    });
                    wrong += *value != "made of " + name;
                }
            });
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(made, kNames);
}

TEST(SharedWorkTest, AllWhoAskDependOnWhatItWasMadeFrom)
{
    const support::TempFolder content;
    const std::string path = content.Write("a.wag", "1");
    host::GameFiles files;
    host::Snapshot snapshot(files);
    host::SharedWork<std::string> work;
    const auto ask = [&] {
        host::Recording recording;
        work.Get("a", [&] { return snapshot.TryReadFile(path).value(); });
        return recording.Take();
    };
    const host::Dependencies first = ask(), second = ask();
    EXPECT_EQ(first.files.size(), 1u);
    EXPECT_EQ(second.files.size(), 1u);
}

} // namespace
