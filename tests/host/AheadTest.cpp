// SPDX-License-Identifier: MIT
#include "host/Ahead.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <thread>

namespace {

struct Shape
{
    const char *name;
    std::size_t count, workers, window;
};

std::ostream &operator<<(std::ostream &out, const Shape &shape)
{
    return out << shape.name;
}

class AheadShapes : public testing::TestWithParam<Shape>
{
};

TEST_P(AheadShapes, DeliversResultsInOrder)
{
    const Shape &shape = GetParam();
    host::Ahead<std::size_t> ahead(
        shape.count, [](std::size_t i) { return i * i; }, shape.workers, shape.window);
    for (std::size_t i = 0; i < shape.count; ++i) {
        EXPECT_FALSE(ahead.Done());
        EXPECT_EQ(ahead.Taken(), i);
        EXPECT_EQ(ahead.Take(), i * i);
    }
    EXPECT_TRUE(ahead.Done());
    EXPECT_EQ(ahead.Take(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    All, AheadShapes,
    testing::Values(Shape{"none", 0, 4, 16}, Shape{"one worker", 500, 1, 16},
                    Shape{"two workers", 500, 2, 16}, Shape{"seven workers", 500, 7, 16},
                    Shape{"window of one", 200, 7, 1}, Shape{"no window", 200, 2, 0},
                    Shape{"no workers", 20, 0, 16}, Shape{"more workers than jobs", 2, 50, 16}));

TEST(AheadTest, StaysWithinTheWindow)
{
    constexpr std::size_t kWindow = 3;
    std::atomic<std::size_t> taken = 0, furthest = 0;
    host::Ahead<int> ahead(
        300,
        [&](std::size_t i) {
            const std::size_t lead = i - std::min(i, taken.load());
            for (std::size_t seen = furthest; lead > seen;)
                if (furthest.compare_exchange_weak(seen, lead))
                    break;
            return 0;
        },
        7, kWindow);
    while (ahead.Take())
        ++taken;
    EXPECT_EQ(taken, 300u);
    // The difference may be one more than the window: Take makes room before the test counts the
    // result.
    EXPECT_LE(furthest, kWindow);
}

TEST(AheadTest, TryTakeDoesNotWaitForARunningJob)
{
    std::promise<void> mayEnd;
    host::Ahead<int> ahead(
        1,
        [&](std::size_t) {
            mayEnd.get_future().wait();
            return 7;
        },
        1);
    EXPECT_EQ(ahead.TryTake(), std::nullopt);
    EXPECT_FALSE(ahead.Done());
    mayEnd.set_value();
    EXPECT_EQ(ahead.Take(), 7);
}

TEST(AheadTest, StopFinishesTheRunningJobAndStartsNoMore)
{
    std::promise<void> started, mayEnd;
    std::atomic<int> begun = 0, ended = 0;
    host::Ahead<int> ahead(
        1000,
        [&](std::size_t i) {
            ++begun;
            if (i == 10) {
                started.set_value();
                mayEnd.get_future().wait();
            }
            ++ended;
            return 0;
        },
        1, 16);
    started.get_future().wait();
    EXPECT_TRUE(ahead.Take());
    std::jthread stopper([&] { ahead.Stop(); });
    while (ahead.Take()) // the tenth is never ready: Take returns once it sees the stop
        continue;
    mayEnd.set_value();
    stopper.join();
    EXPECT_EQ(begun, 11);
    EXPECT_EQ(ended, 11);
    EXPECT_EQ(ahead.Take(), std::nullopt);
}

TEST(AheadTest, CanBeDestroyedWhileWorkersWaitForRoom)
{
    for (int round = 0; round < 50; ++round) {
        host::Ahead<std::unique_ptr<int>> ahead(
            1000, [](std::size_t i) { return std::make_unique<int>(static_cast<int>(i)); }, 4, 2);
        const auto first = ahead.Take();
        ASSERT_TRUE(first);
        EXPECT_EQ(**first, 0);
    }
}

TEST(AheadTest, TakeForReturnsAfterItsTimeout)
{
    std::promise<void> mayEnd;
    host::Ahead<int> ahead(
        1,
        [wait = mayEnd.get_future().share()](std::size_t) {
            wait.wait();
            return 7;
        },
        1);
    EXPECT_EQ(ahead.TakeFor(std::chrono::milliseconds(1)), std::nullopt);
    EXPECT_FALSE(ahead.Done());
    mayEnd.set_value();
    EXPECT_EQ(ahead.TakeFor(std::chrono::hours(1)), 7);
    EXPECT_EQ(ahead.TakeFor(std::chrono::hours(1)), std::nullopt) << "all were taken";
}

} // namespace
