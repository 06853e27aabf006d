// SPDX-License-Identifier: MIT
#include "host/ReadAll.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace {

/// A file that returns at most `piece` bytes per call and claims to have `expected` bytes.
struct Reading
{
    const char *name;
    std::string_view content;
    std::size_t piece, expected;
    int calls; ///< number of calls needed
};

std::ostream &operator<<(std::ostream &out, const Reading &reading)
{
    return out << reading.name;
}

class ReadAllTest : public testing::TestWithParam<Reading>
{
protected:
    std::optional<host::disk::Failure> read(std::uint64_t limit)
    {
        std::string_view rest = GetParam().content;
        return host::disk::ReadAll(limit, GetParam().expected, bytes,
                                   [&](char *to, std::size_t count, std::size_t &got) {
                                       ++calls;
                                       got = std::min({count, rest.size(), GetParam().piece});
                                       std::copy_n(rest.begin(), got, to);
                                       rest.remove_prefix(got);
                                       return std::optional<host::disk::Failure>();
                                   });
    }
    std::string bytes;
    int calls = 0;
};

TEST_P(ReadAllTest, ReadsTheWholeFileFromAnyPieces)
{
    EXPECT_FALSE(read(100));
    EXPECT_EQ(bytes, GetParam().content);
    EXPECT_EQ(calls, GetParam().calls);
}

TEST_P(ReadAllTest, RefusesOneByteTooMany)
{
    const std::size_t size = GetParam().content.size();
    EXPECT_FALSE(read(size));
    if (size > 0) {
        EXPECT_TRUE(read(size - 1));
    }
}

INSTANTIATE_TEST_SUITE_P(All, ReadAllTest,
                         testing::Values(Reading{"as said", "abcdef", 100, 6, 1},
                                         Reading{"in pieces", "abcdef", 2, 6, 3},
                                         Reading{"has grown", "abcdef", 100, 3, 3},
                                         Reading{"has grown, in pieces", "abcdef", 4, 3, 3},
                                         Reading{"has shrunk", "abc", 100, 6, 2},
                                         Reading{"empty", "", 100, 0, 1},
                                         Reading{"said to be empty", "abcdef", 100, 0, 5}));

} // namespace
