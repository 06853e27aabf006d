// SPDX-License-Identifier: MIT
#include "InstallationScan.h"
#include "support/RunProgram.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ProgramTest, ExitCodeShowsSuccess)
{
    const support::TempFolder temp;
    const support::Machine machine{temp.MakeFolder("home")};
    const auto run = [&machine](const std::vector<std::string> &arguments) {
        return machine.Run(ZELK_SAMPLE_PROGRAM, arguments).code;
    };
    temp.Write("full/letter.txt", "dear");
    EXPECT_EQ(run({temp.At("n\u00e4ch\u0161te \u65e5\u672c")}), 0);
    EXPECT_TRUE(temp.Exists("n\u00e4ch\u0161te \u65e5\u672c/zelk-sample.txt"));
    const std::string big = temp.At("big"), x = temp.At("x");
    EXPECT_EQ(run({big, "--folders", "9", "--consists", "20", "--seed", "5"}), 0);
    EXPECT_EQ(scan::Installation(big).Totals(), (std::vector<std::size_t>{9, 55, 20}));
    EXPECT_EQ(run({"--help"}), 0);
    for (const std::vector<std::string> &bad : {std::vector<std::string>{},
                                                {temp.At("full")},
                                                {x, "--folders", "many"},
                                                {x, "--stock", "1"},
                                                {x, "more"}})
        EXPECT_EQ(run(bad), 2) << testing::PrintToString(bad);
    EXPECT_FALSE(temp.Exists("x"));
}

} // namespace
