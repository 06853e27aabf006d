// SPDX-License-Identifier: MIT
#include "stavfile/PagedArray.h"

#include <gtest/gtest.h>

#include <array>

namespace {

TEST(PagedArrayTest, KeepsEveryValueWhileGrowing)
{
    using Value = std::array<std::size_t, 4>;
    stavfile::PagedArray<Value> array;
    for (std::size_t i = 0; i < 2000; ++i) {
        ASSERT_EQ(array.Size(), i);
        array.PushBack({i, i + 1, i + 2, i + 3});
        for (const std::size_t place : {std::size_t{0}, i / 2, i})
            ASSERT_EQ(array[place], (Value{place, place + 1, place + 2, place + 3}))
                << place << " of " << i + 1;
    }
}

} // namespace
