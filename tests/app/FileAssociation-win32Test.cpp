// SPDX-License-Identifier: MIT
#include "app/AssociationBatch-win32.h"

#include <gtest/gtest.h>

TEST(FileAssociationTest, BatchFileContainsTheProgramPath)
{
    const std::string first = "assoc .con=con_auto_file\r\nftype con_auto_file=";
    const std::pair<const char *, const char *> rows[] = {
        {R"(C:\ZELK\ZELK.exe)", R"(C:\ZELK\ZELK.exe)"},
        {R"(C:\Program Files (x86)\Z\ZELK.exe)", R"(C:\Program Files (x86)\Z\ZELK.exe)"},
        {R"(C:\a & b\100%\ZELK.exe)", R"(C:\a ^& b\100%%\ZELK.exe)"},
    };
    for (const auto &[program, written] : rows)
        EXPECT_EQ(app::AssociationBatch(program), first + written + " %%1 %%*\r\n");
}
