// SPDX-License-Identifier: MIT
#include "host/IniFile.h"

#include <gtest/gtest.h>

using host::IniFile;

namespace {

constexpr std::string_view kMixed = "stray line\n"
                                    "; comment=1\n"
                                    "[SOFTWARE\\Games\\ST6UNST #1]\n"
                                    "  Path = C:\\Games\\x y  \n"
                                    "Blanks=\"  two  \"\n"
                                    "Empty=\n"
                                    "Sum=a=b\n"
                                    "\n"
                                    "# other\n"
                                    "[Second]\n"
                                    "path=2\n"
                                    "Path=3\n"
                                    "[broken\n"
                                    "late=ö\n";

TEST(IniFileTest, ReadsValues)
{
    const IniFile ini = IniFile::FromText(kMixed);
    struct Row
    {
        const char *section, *key;
        std::optional<std::string> value;
    };
    const Row rows[] = {
        {"software\\games\\st6unst #1", "PATH", "C:\\Games\\x y"},
        {"SOFTWARE\\Games\\ST6UNST #1", "blanks", "  two  "},
        {"SOFTWARE\\Games\\ST6UNST #1", "Empty", ""},
        {"SOFTWARE\\Games\\ST6UNST #1", "Sum", "a=b"},
        {"Second", "Path", "2"},
        {"Second", "late", "ö"},
        {"Second", "Sum", std::nullopt},
        {"", "; comment", std::nullopt},
        {"Third", "Path", std::nullopt},
    };
    for (const Row &row : rows)
        EXPECT_EQ(ini.Value(row.section, row.key), row.value) << row.section << " " << row.key;
}

TEST(IniFileTest, KeepsUnknownLines)
{
    EXPECT_EQ(IniFile::FromText(kMixed).ToText(), kMixed);
    const std::string windows = "\xEF\xBB\xBF[A]\r\nx=1\r\n\r\n?\r\n";
    IniFile ini = IniFile::FromText(windows);
    EXPECT_EQ(ini.Value("a", "x"), "1");
    EXPECT_EQ(ini.ToText(), windows);
    ini.SetValue("A", "y", "2");
    EXPECT_EQ(ini.ToText(), "\xEF\xBB\xBF[A]\r\nx=1\r\n\r\n?\r\ny=2\r\n");
}

TEST(IniFileTest, KeepsTheLineEndsOfOtherLines)
{
    const std::string mixed = "[A]\nx=1\r\r\n[B]\r\ny=2\n\n\r\nz=3";
    IniFile ini = IniFile::FromText(mixed);
    EXPECT_EQ(ini.ToText(), mixed);
    EXPECT_EQ(ini.Value("A", "x"), "1");
    ini.SetValue("A", "x", "one");
    ini.SetValue("B", "z", "three");
    EXPECT_EQ(ini.ToText(), "[A]\nx=one\r\r\n[B]\r\ny=2\n\n\r\nz=three");
    ini.SetValue("B", "new", "n");
    EXPECT_EQ(ini.ToText(), "[A]\nx=one\r\r\n[B]\r\ny=2\n\n\r\nz=three\nnew=n\n");

    IniFile marked = IniFile::FromText("\xEF\xBB\xBF[A]\r\nx=1");
    marked.SetValue("", "top", "t");
    EXPECT_EQ(marked.ToText(), "\xEF\xBB\xBFtop=t\r\n[A]\r\nx=1");
}

TEST(IniFileTest, SetsValuesInPlace)
{
    IniFile ini = IniFile::FromText("[A]\na=1\n\n[B]\nb=2\n");
    ini.SetValue("a", "A", "one");
    ini.SetValue("A", "new", "n");
    ini.SetValue("C", "c", "3");
    EXPECT_EQ(ini.ToText(), "[A]\nA=one\nnew=n\n\n[B]\nb=2\n[C]\nc=3\n");

    IniFile empty;
    empty.SetValue("S", "k", "v");
    EXPECT_EQ(empty.ToText(), "[S]\nk=v\n");
}

TEST(IniFileTest, ReadsBackTheValuesThatWereSet)
{
    const char *const values[] = {"", " blanks ", "\"quoted\"", "\"", "a\\b", "=;#[x]", "\t"};
    for (const char *value : values) {
        IniFile ini;
        ini.SetValue("S", "k", value);
        EXPECT_EQ(ini.Value("S", "k"), value);
        EXPECT_EQ(IniFile::FromText(ini.ToText()).Value("S", "k"), value);
    }
    IniFile ini;
    ini.SetValue("S", "k", "a\nb\rc");
    EXPECT_EQ(ini.ToText(), "[S]\nk=a b c\n");
}

TEST(IniFileTest, RemovesEveryLineOfAValue)
{
    IniFile ini = IniFile::FromText(kMixed);
    ini.RemoveValue("second", "PATH");
    ini.RemoveValue("Third", "late");
    EXPECT_EQ(ini.Value("Second", "Path"), std::nullopt);
    EXPECT_EQ(ini.ToText(), std::string(kMixed).erase(kMixed.find("path=2"), 14));
}

} // namespace
