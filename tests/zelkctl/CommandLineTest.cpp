// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"

namespace {

class CommandLineTest : public ZelkctlTest
{
};

struct Row
{
    const char *name;
    std::vector<std::string> arguments;
    std::string message;
    std::string command = {}; ///< whose help is recommended
};

TEST_F(CommandLineTest, RefusesUnknownArguments)
{
    const Row rows[] = {
        {"no command", {"--msts", "list"}, "A subcommand is required"},
        {"nothing", {}, "A subcommand is required"},
        {"unknown command", {"lists"}, "There is no command \"lists\""},
        {"no kind", {"list"}, "what is required", "list "},
        {"unknown kind",
         {"list", "engines"},
         "what: engines not in {stock,consists,routes}",
         "list "},
        {"unknown option",
         {"tree", "x.con", "--deep"},
         "The following argument was not expected: --deep",
         "tree "},
        {"option of another command",
         {"--json", "tree", "x.con"},
         "The following argument was not expected: --json",
         "tree "},
        {"no output file", {"resave", "x.con"}, "out is required", "resave "},
        {"no operation", {"edit", "x.con"}, "operations is required", "edit "},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(run(row.arguments), (Outcome{2, "",
                                               "zelkctl: " + row.message + " (see zelkctl " +
                                                   row.command + "--help)\n"}));
    }
}

TEST_F(CommandLineTest, RefusesMalformedOperationsBeforeReadingTheFile)
{
    const std::string stock = "expected add=Engine,FOLDER,NAME or add=Wagon,FOLDER,NAME";
    const std::string number = "expected a row number, counted from 1";
    const std::string place = "expected the number of a row to put them behind, 0 for the head";
    const Row rows[] = {
        {"unknown",
         {"turn=1"},
         "expected add=, insert=, copy=, move=, remove=, clear, forwards=, backwards=, flip= or "
         "reverse"},
        {"add of two", {"add=Wagon,Box"}, stock},
        {"add of four", {"add=Wagon,Box,a,b"}, stock},
        {"add of another type", {"add=wagon,Box,a"}, stock},
        {"add without a name", {"add=Wagon,Box,"}, stock},
        {"row 0", {"flip=0"}, number},
        {"negative row", {"remove=-1"}, number},
        {"no row", {"forwards"}, number},
        {"row followed by text", {"backwards=1x"}, number},
        {"row too large for a number", {"flip=99999999999999999999"}, number},
        {"clear with a row", {"clear=1"}, "clear takes no row"},
        {"range backwards", {"remove=1,5-3"}, "the range 5-3 ends before it begins"},
        {"range without an end", {"remove=2-"}, number},
        {"copy without a place", {"copy=1-2"}, place},
        {"move to a negative row", {"move=1:-1"}, place},
        {"insert of two",
         {"insert=0,Wagon,Box"},
         "expected insert=N,Engine,FOLDER,NAME or insert=N,Wagon,FOLDER,NAME"},
        {"reverse with a row", {"reverse=1"}, "reverse takes no row"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const std::string &operation = row.arguments.front();
        EXPECT_EQ(
            run({"edit", "missing.con", "flip=1", operation}),
            (Outcome{2, "", "zelkctl: operation \"" + operation + "\": " + row.message + "\n"}));
    }
}

TEST_F(CommandLineTest, PrintsVersionAndHelp)
{
    EXPECT_EQ(run({"--version"}), (Outcome{0, "zelkctl " ZELK_VERSION "\n", ""}));
    const Outcome help = run({"--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_EQ(help.err, "");
    for (const char *word : {"list", "tree", "resave", "edit", "--msts", "--version"})
        EXPECT_NE(help.out.find(word), std::string::npos) << word;
    for (const char *command : {"list", "tree", "resave", "edit"}) {
        const Outcome before = run({"--help", command}), after = run({command, "--help"});
        EXPECT_EQ(after.code, 0);
        EXPECT_EQ(after, before);
        EXPECT_NE(after.out, help.out) << command;
    }
}

TEST_F(CommandLineTest, ReportsOutputThatCannotBeWritten)
{
    write("x.con", "Train ( TrainCfg ( x ) )");
    for (const auto &[output, reason] : support::UnwritableOutputs())
        EXPECT_EQ(run({"tree", "x.con"}, output),
                  (Outcome{2, "", "zelkctl: standard output: " + reason + "\n"}));
}

TEST_F(CommandLineTest, EndsSilentlyIfNobodyReadsItsOutput)
{
    write("x.con", "Train ( TrainCfg ( x ) )");
    const Outcome silent{141, "", ""};
    EXPECT_EQ(run({"tree", "x.con"}, support::Stdout::BrokenPipe), silent);
    EXPECT_EQ(run({"--help"}, support::Stdout::BrokenPipe), silent);
    EXPECT_EQ(run({"check", "stock", "--no-consists", "gone.wag"}, support::Stdout::BrokenPipe),
              silent);
    EXPECT_EQ(run({"check", "stock", "--no-consists", "gone.wag", "--report", "r.log"},
                  support::Stdout::BrokenPipe),
              (Outcome{1, "", ""}))
        << "the report must still be written";
    EXPECT_NE(read("r.log").find("gone.wag is MISSING"), std::string::npos);
}

} // namespace
