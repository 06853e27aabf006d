// SPDX-License-Identifier: MIT
#include "InstallationScan.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdlib>
#include <string>

namespace {

/// Runs the program; its exit code.
int run(const std::string &arguments)
{
    const int status =
        std::system(("\"" ZELK_SAMPLE_PROGRAM "\" " + arguments + " >/dev/null 2>&1").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(ProgramTest, TellsSuccessByItsExitCode)
{
    const support::TempFolder temp;
    temp.Write("full/letter.txt", "dear");
    EXPECT_EQ(run("\"" + temp.At("new") + "\""), 0);
    EXPECT_TRUE(temp.Exists("new/zelk-sample.txt"));
    EXPECT_EQ(run("\"" + temp.At("big") + "\" --folders 9 --consists 20 --seed 5"), 0);
    EXPECT_EQ(scan::Installation(temp.At("big")).Totals(), (std::vector<std::size_t>{9, 55, 20}));
    EXPECT_EQ(run("--help"), 0);
    for (const std::string &bad :
         {std::string(), "\"" + temp.At("full") + "\"", "\"" + temp.At("x") + "\" --folders many",
          "\"" + temp.At("x") + "\" --stock 1", "\"" + temp.At("x") + "\" more"})
        EXPECT_EQ(run(bad), 2) << bad;
    EXPECT_FALSE(temp.Exists("x"));
}

} // namespace
