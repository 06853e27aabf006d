// SPDX-License-Identifier: MIT
#include "install/WineRegistry.h"

#include <gtest/gtest.h>

using install::ValueInWineRegistry;

namespace {

constexpr std::string_view kFile = R"(WINE REGISTRY Version 2
;; All keys relative to \\Machine

#arch=win64

[Software\\Games] 1650000000
#time=1d84
"Other"="x"

[Software\\Games\\1.0] 1650000000
#time=1d84
@="default"
"Dword"=dword:00000001
"Path"="C:\\Games\\\"Train\" \x4e\x20ac\xd83d\xde82!\\x"
"Expand"=str(2):"%ProgramFiles%\\x"
"Multi"=str(7):"a\0b\0"
"Hex1"=hex(1):43,00,3a,00,5c,00,e4,00,00,00
"Hex2"=hex(2):43,00,\
  3a,00,3d,d8,82,\
  de
"Binary"=hex:01,02
"Na\"me"="quoted name"
"Control"="a\tb\033c\x1z"
"Lone"="\xd83dx\xde82"
"Low"="\xdc00\xdc00"
"Open"="no end

[Soft\[ware\]] 1
"Path"="brackets"

[Software\\Games] 2
"Late"="second block"
"Open2"="at the end)";

TEST(WineRegistryTest, ReadsTextValues)
{
    struct Row
    {
        const char *key, *value;
        std::optional<std::string> text;
    };
    const char *const game = "software\\GAMES\\1.0";
    const Row rows[] = {
        {game, "path", "C:\\Games\\\"Train\" N€\xF0\x9F\x9A\x82!\\x"},
        {game, "Expand", "%ProgramFiles%\\x"},
        {game, "Multi", std::string("a\0b\0", 4)},
        {game, "Hex1", std::string("C:\\ä\0", 6)},
        {game, "Hex2", "C:\xF0\x9F\x9A\x82"},
        {game, "Na\"me", "quoted name"},
        {game, "Control",
         "a\tb\x1B"
         "c\x01z"},
        {game, "Low", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {game, "Lone", "\xEF\xBF\xBDx\xEF\xBF\xBD"},
        {game, "Dword", std::nullopt},
        {game, "Binary", std::nullopt},
        {game, "Open", std::nullopt},
        {game, "Other", std::nullopt},
        {"Software\\Games", "Path", std::nullopt},
        {"Software\\Games", "Late", "second block"},
        {"Software\\Games", "Open2", std::nullopt},
        {"soft[ware]", "Path", "brackets"},
        {"Software\\None", "Path", std::nullopt},
    };
    for (const Row &row : rows)
        EXPECT_EQ(ValueInWineRegistry(kFile, row.key, row.value), row.text) << row.value;
}

TEST(WineRegistryTest, ExpandsVariables)
{
    constexpr std::string_view kDirectories = R"reg([Software\\Microsoft\\Windows\\CurrentVersion] 1
"ProgramFilesDir"="C:\\Program Files"
"ProgramFilesDir (x86)"="C:\\Program Files (x86)"
[Software\\Microsoft\\Windows NT\\CurrentVersion]
"SystemRoot"="D:\\windows"
[System\\CurrentControlSet\\Control\\Session Manager\\Environment] 1
"GAMES"="E:\\Games"
"Loop"=str(2):"%Loop%"
)reg";
    constexpr std::string_view k32Bits =
        "[Software\\\\Wow6432Node\\\\Microsoft\\\\Windows\\\\CurrentVersion]\n"
        "\"ProgramFilesDir\"=\"C:\\\\32\"\n";
    const std::pair<const char *, const char *> rows[] = {
        {R"(str(2):"%ProgramFiles%\\x")", "C:\\Program Files\\x"},
        {R"(str(2):"%PROGRAMFILES(X86)%\\x")", "C:\\Program Files (x86)\\x"},
        {R"(str(2):"%systemdrive%\\%windir%")", "D:\\D:\\windows"},
        {R"(str(2):"%games%\\%None%%GAMES%")", "E:\\Games\\%None%E:\\Games"},
        {R"(str(2):"50% of %Games%, %%, %")", "50% of E:\\Games, %%, %"},
        {R"(str(2):"%Loop%")", "%Loop%"},
        {R"(str(2):"")", ""},
        {"hex(2):25,00,57,00,69,00,6e,00,44,00,69,00,72,00,25,00", "D:\\windows"},
        {R"("%ProgramFiles%")", "%ProgramFiles%"},
        {R"(str(1):"%ProgramFiles%")", "%ProgramFiles%"},
    };
    for (const auto &[stored, text] : rows)
        EXPECT_EQ(ValueInWineRegistry(std::string(kDirectories) + "[A]\n\"p\"=" + stored, "a", "p"),
                  text)
            << stored;
    EXPECT_EQ(ValueInWineRegistry(std::string(kDirectories).append(k32Bits) +
                                      "[A]\n\"p\"=str(2):\"%ProgramFiles%\"",
                                  "a", "p"),
              "C:\\32");
}

TEST(WineRegistryTest, ReadsWindowsLineEnds)
{
    EXPECT_EQ(ValueInWineRegistry("[A]\r\n\"p\"=\"v\"\r\n\"h\"=hex(2):41,\\\r\n  00\r\n", "a", "h"),
              "A");
}

TEST(WineRegistryTest, SurvivesFilesCutAtAnyLength)
{
    for (std::size_t length = 0; length < kFile.size(); ++length) {
        const std::string_view cut = kFile.substr(0, length);
        const auto path = ValueInWineRegistry(cut, "Software\\Games\\1.0", "Path");
        const auto whole = kFile.find("\"Expand\"");
        ASSERT_EQ(path.has_value(), length + 1 >= whole) << length;
        for (const char *value : {"Hex1", "Hex2", "Control", "Late"}) {
            const auto text = ValueInWineRegistry(cut, "Software\\Games\\1.0", value);
            ASSERT_LE(text.value_or("").size(), 64u) << length;
        }
    }
}

} // namespace
