// SPDX-License-Identifier: MIT
#include "host/Filter.h"

#include <gtest/gtest.h>

namespace {

struct Row
{
    const char *name, *pattern;
    bool matches;
};

TEST(FilterTest, MatchesUserFilters)
{
    const Row rows[] = {
        {"GP38 Freight", "", true},
        {"GP38 Freight", "*", true},
        {"", "***", true},
        {"GP38 Freight", "gp*", true},
        {"Long GP9 train", "gp*", false},
        {"Long GP9 train", "*TRAIN", true},
        {"GP38 Freight", "*train", false},
        {"Long GP9 train", "gp", true},
        {"GP38 Freight", "gp", true},
        {"SD40", "gp", false},
        {"Ärzte", "äR", true},
        {"gp", "gp*", true},
        {"gp", "*gp", true},
        {"a gp b", "*gp*", false},
        {"*gp b", "*gp*", true},
        {"abxcd", "ab*cd", false},
        {"gp38", "gp?8", false},
    };
    for (const Row &row : rows)
        EXPECT_EQ(host::MatchesFilter(row.name, row.pattern), row.matches)
            << row.name << " | " << row.pattern;
}

TEST(FilterTest, MatchesDosPatterns)
{
    const Row rows[] = {
        {"a", "*", true},
        {"a", "*.*", true},
        {"a.b", "*.*", true},
        {"gp38.ENG", "*.eng", true},
        {"gp38.eng.bak", "*.eng", false},
        {"gp38.eng.eng", "*.eng", true},
        {"eng", "*.eng", false},
        {"gp38.engine", "*.eng", false},
        {"gp38.eng", "*.??g", true},
        {"flat.wag", "*.??g", true},
        {"flat.g", "*.??g", false},
        {"flat.wagg", "*.??g", false},
        {"x.s", "*.s", true},
        {"x.sd", "*.s", false},
        {"x.sd", "*.s?", true},
        {"x.s", "*.s?", true},
        {"folder", "*.", true},
        {"folder.x", "*.", false},
        {"a.txt", "a?.txt", true},
        {"ab.txt", "a?.txt", true},
        {"abc.txt", "a?.txt", false},
        {"ab.txt", "?b.txt", true},
        {"b.txt", "?b.txt", false},
        {"aé.txt", "a?.txt", true},
        {"É.con", "é.CON", true},
        {"readme", "read*", true},
        {"readme.txt", "read*", true},
        {"abcbcd.x", "a*bcd.x", true},
        {"abcbc.x", "a*bcd.x", false},
        {"", "?", true},
        {".hidden", "*.hidden", true},
    };
    for (const Row &row : rows)
        EXPECT_EQ(host::MatchesDosPattern(row.name, row.pattern), row.matches)
            << row.name << " | " << row.pattern;
}

TEST(FilterTest, ManyStarsStayFast)
{
    const std::string name(20000, 'a');
    std::string pattern;
    for (int i = 0; i < 50; ++i)
        pattern += "*a";
    EXPECT_FALSE(host::MatchesDosPattern(name, pattern + "*b"));
}

} // namespace
