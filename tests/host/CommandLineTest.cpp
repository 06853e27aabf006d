// SPDX-License-Identifier: MIT
#include "host/CommandLine.h"

#include <gtest/gtest.h>

TEST(CommandLineTest, RemovesOnlyTheProgramNameFromAWindowsCommandLine)
{
    const struct
    {
        const char *line, *rest;
    } rows[] = {
        {R"(zelk.exe C:\MSTS\Ore  train.con)", R"(C:\MSTS\Ore  train.con)"},
        {R"("C:\Program Files\zelk.exe" C:\Ore  train.con )", R"(C:\Ore  train.con)"},
        {R"("C:\Program Files\zelk.exe"  "C:\Ore  train.con")", R"("C:\Ore  train.con")"},
        {R"("C:\zelk.exe"C:\a.con)", R"(C:\a.con)"},
        {"zelk\t  C:\\a.con\t", "C:\\a.con"},
        {R"(C:\odd"name.exe x)", "x"},
        {R"(" C:\a.con)", ""},
        {R"("C:\zelk.exe")", ""},
        {"zelk.exe  ", ""},
        {"zelk.exe", ""},
        {" C:\\a.con", "C:\\a.con"}, // the name is empty
        {"", ""},
    };
    for (const auto &[line, rest] : rows)
        EXPECT_EQ(host::AfterProgramName(line), rest) << line;
}

TEST(CommandLineTest, RemovesOuterQuotesOnlyFromASingleQuotedPath)
{
    const struct
    {
        const char *text, *inside;
    } rows[] = {
        {R"("C:\Ore  train.con")", R"(C:\Ore  train.con)"},
        {R"(" a.con ")", " a.con "},
        {R"("")", ""},
        {R"(")", R"(")"},
        {R"("a.con" "b.con")", R"("a.con" "b.con")"},
        {R"("a".con)", R"("a".con)"},
        {"a.con", "a.con"},
        {"", ""},
    };
    for (const auto &[text, inside] : rows)
        EXPECT_EQ(host::WithoutOuterQuotes(text), inside) << text;
}
