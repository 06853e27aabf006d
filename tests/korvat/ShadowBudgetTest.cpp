// SPDX-License-Identifier: MIT
#include "korvat/draw/ShadowBudget.h"

#include <gtest/gtest.h>

#include <initializer_list>

using korvat::ShadowBudget;

TEST(ShadowBudgetTest, RepeatedlySlowFramesEndShadowsUntilTheSizeChanges)
{
    constexpr double fast = ShadowBudget::kMilliseconds, slow = fast + 1;
    ShadowBudget budget;
    const auto paint = [&budget](int width, int height, std::initializer_list<double> times) {
        int shaded = 0;
        for (const double time : times) {
            if (!budget.Affords(width, height))
                continue;
            ++shaded;
            budget.Took(time);
        }
        return shaded;
    };
    EXPECT_EQ(paint(1000, 500, {300, fast, slow, fast, slow, fast}), 6)
        << "neither the first frame nor a single slow one counts";
    EXPECT_EQ(paint(1000, 500, {slow, slow, fast, fast}), 2);
    EXPECT_EQ(paint(1000, 550, {fast}), 0) << "almost the same size";
    EXPECT_EQ(paint(500, 500, {slow, fast, fast}), 3) << "a smaller picture may be fast enough";
    EXPECT_EQ(paint(1000, 500, {slow, slow, slow, slow}), 3) << "and a large one is measured again";
}
