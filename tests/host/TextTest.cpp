// SPDX-License-Identifier: MIT
#include "host/Text.h"

#include "host/CaseTable.h"
#include "host/RuntimeError.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include <algorithm>

namespace {

TEST(TextTest, ConvertsCase)
{
    struct Row
    {
        const char *name, *text, *upper;
    };
    const Row rows[] = {
        {"ascii", "az{`AZ09", "AZ{`AZ09"},
        {"latin", "äöüéÿœž", "ÄÖÜÉŸŒŽ"},
        {"greek", "αω", "ΑΩ"},
        {"cyrillic", "паровоз ё", "ПАРОВОЗ Ё"},
        {"every second one of a range", "āăĀ", "ĀĂĀ"},
        {"letters without a single-character counterpart", "ßıſµς", "ßıſµς"},
        {"beyond the basic plane", "\xF0\x90\x90\xA8", "\xF0\x90\x90\xA8"},
        {"not UTF-8", "a\xE4z\xC3", "A\xE4Z\xC3"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(host::ToUpper(row.text), row.upper) << row.name;
    EXPECT_EQ(host::ToLower("ÄŸŽПАРОВОЗ Ё AZ"), "äÿžпаровоз ё az");
}

TEST(TextTest, CaseTableIsSortedAndSymmetric)
{
    for (std::size_t i = 1; i < host::kCaseRangeCount; ++i)
        ASSERT_GT(host::kCaseRanges[i].first, host::kCaseRanges[i - 1].last);
    int letters = 0;
    for (char32_t c = 0; c < 0x10000; ++c) {
        const char32_t upper = host::ToUpper(c);
        if (upper == c)
            continue;
        ++letters;
        ASSERT_EQ(host::ToLower(upper), c) << std::hex << static_cast<unsigned>(c);
        ASSERT_EQ(host::ToUpper(upper), upper) << std::hex << static_cast<unsigned>(c);
    }
    EXPECT_GT(letters, 1000);
}

TEST(TextTest, ComparesWithoutCase)
{
    EXPECT_TRUE(host::EqualsNoCase("Trains", "TRAINS"));
    EXPECT_TRUE(host::EqualsNoCase("Lok_ä", "lok_Ä"));
    EXPECT_TRUE(host::EqualsNoCase("", ""));
    EXPECT_FALSE(host::EqualsNoCase("Train", "Trains"));
    EXPECT_FALSE(host::EqualsNoCase("a\xE4", "a\xC4")); // not letters in UTF-8
    EXPECT_LT(host::CompareNoCase("a", "B"), 0);
    EXPECT_GT(host::CompareNoCase("b", "A"), 0);
    EXPECT_EQ(host::CompareNoCase("aB", "Ab"), 0);
    EXPECT_LT(host::CompareNoCase("a", "ab"), 0);
}

TEST(TextTest, SortsByUpperCaseCodeUnits)
{
    // "_" sorts between upper and lower case letters; U+1F682 begins with the code unit D83D.
    std::vector<std::string> names = {
        "b", "_", "a1", "B", "A", "a", "Z", "\xEF\xBC\xA1", "\xF0\x9F\x9A\x82", "\xEE\x80\x80",
        "é", "à"};
    std::sort(names.begin(), names.end(), host::ListsBefore);
    const std::vector<std::string> expected = {
        "A",           "a", "a1", "B", "b", "Z", "_", "à", "é", "\xF0\x9F\x9A\x82", "\xEE\x80\x80",
        "\xEF\xBC\xA1"};
    EXPECT_EQ(names, expected);
}

TEST(TextTest, RecognisesUtf8)
{
    const char *const valid[] = {"", "a", "é", "€", "\xF0\x9F\x9A\x82", "\xF4\x8F\xBF\xBF"};
    for (const char *text : valid)
        EXPECT_TRUE(host::IsValidUtf8(text)) << text;
    const char *const broken[] = {
        "\x80",         "\xC3", "\xC0\xAF",         "\xE0\x80\xAF", "\xED\xA0\x80",
        "\xF0\x9F\x9A", "\xFF", "\xF4\x90\x80\x80", "\xC3(",        "\xF5\x80\x80\x80"};
    for (const char *text : broken)
        EXPECT_FALSE(host::IsValidUtf8(text)) << testing::PrintToString(text);
}

TEST(TextTest, EveryWindows1252ByteSurvivesARoundTrip)
{
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    const std::string text = host::FromWindows1252(bytes);
    EXPECT_TRUE(host::IsValidUtf8(text));
    EXPECT_EQ(host::FromWindows1252("\x80\x9F\xE4\x81"), "€Ÿä\xC2\x81");
    std::string back;
    EXPECT_TRUE(host::ToWindows1252(text, back));
    EXPECT_EQ(back, bytes);
    EXPECT_FALSE(host::ToWindows1252("п", back));
    EXPECT_FALSE(host::ToWindows1252("\x80", back));
    EXPECT_FALSE(host::ToWindows1252("\xC2\x80", back)); // U+0080: its byte is the euro sign
}

TEST(TextTest, AppendsUtf8OfEveryLength)
{
    std::string out;
    for (const char32_t c : {0x41u, 0x7FFu, 0x800u, 0xD800u, 0xFFFFu, 0x1F682u})
        host::AppendUtf8(out, c);
    EXPECT_EQ(out, "A\xDF\xBF\xE0\xA0\x80\xED\xA0\x80\xEF\xBF\xBF\xF0\x9F\x9A\x82");
}

TEST(TextTest, TrimsSpacesOnlyAndSplits)
{
    EXPECT_EQ(host::TrimBlanks("  a b "), "a b");
    EXPECT_EQ(host::TrimBlanks("\ta "), "\ta");
    EXPECT_EQ(host::TrimBlanks("   "), "");
    using Parts = std::vector<std::string>;
    EXPECT_EQ(host::Split("", '|'), Parts{});
    EXPECT_EQ(host::Split("a", '|'), Parts{"a"});
    EXPECT_EQ(host::Split("a||b|", '|'), (Parts{"a", "", "b", ""}));
}

TEST(RuntimeErrorTest, TextBeginsWithTheFault)
{
    using host::ErrorNumber;
    const host::RuntimeError error(ErrorNumber::ObjectNotSet, "x.con: there is no Train block");
    EXPECT_EQ(error.Number(), 91);
    EXPECT_EQ(error.Text(), "Object variable or With block variable not set");
    EXPECT_STREQ(error.what(), "x.con: there is no Train block");
    EXPECT_TRUE(
        host::Explained(error).starts_with("x.con: there is no Train block\n\nThe file is "))
        << host::Explained(error);
    EXPECT_EQ(host::Explained(std::runtime_error("x")), "x");
    const auto known = {ErrorNumber::InvalidCall,    ErrorNumber::Overflow,
                        ErrorNumber::FileNotFound,   ErrorNumber::SubscriptOutOfRange,
                        ErrorNumber::TypeMismatch,   ErrorNumber::PermissionDenied,
                        ErrorNumber::PathFileAccess, ErrorNumber::PathNotFound,
                        ErrorNumber::ObjectNotSet,   ErrorNumber::KeyInUse};
    for (const ErrorNumber number : known) {
        const std::string bare = host::RuntimeError(number).what();
        EXPECT_FALSE(bare.empty());
        EXPECT_EQ(bare.find("With block variable"), bare.npos) << bare;
    }
}

} // namespace
