// SPDX-License-Identifier: MIT
#include "samples/TextWriter.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using samples::Encoding;
using samples::Header;
using samples::LineEnd;
using std::string_literals::operator""s;

TEST(TextWriterTest, WritesEveryEncoding)
{
    const struct
    {
        const char *name;
        Encoding encoding;
        std::string bytes;
    } rows[] = {
        {"UTF-16LE", Encoding::Utf16Le, "\xFF\xFE(\0\xE9\0\r\0\n\0"s},
        {"UTF-16LE without BOM", Encoding::Utf16LeNoBom, "(\0\xE9\0\r\0\n\0"s},
        {"UTF-16BE", Encoding::Utf16Be, "\xFE\xFF\0(\0\xE9\0\r\0\n"s},
        {"UTF-8", Encoding::Utf8, "(\xC3\xA9\r\n"},
        {"UTF-8 with BOM", Encoding::Utf8Bom, "\xEF\xBB\xBF(\xC3\xA9\r\n"},
        {"Windows-1252", Encoding::Windows1252, "(\xE9\r\n"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(
            samples::EncodeText("D0", "(é\n", {.encoding = row.encoding, .header = Header::None}),
            row.bytes)
            << row.name;
}

TEST(TextWriterTest, WritesHeaderAndLineEnds)
{
    const auto text = [](LineEnd lineEnd) {
        return samples::EncodeText("x1", "a\n", {.encoding = Encoding::Utf8, .lineEnd = lineEnd});
    };
    EXPECT_EQ(text(LineEnd::CrLf), "SIMISA@@@@@@@@@@JINX0x1t______\r\n\r\na\r\n");
    EXPECT_EQ(text(LineEnd::Lf), "SIMISA@@@@@@@@@@JINX0x1t______\n\na\n");
    EXPECT_EQ(text(LineEnd::CrCrLf), "SIMISA@@@@@@@@@@JINX0x1t______\r\r\n\r\r\na\r\r\n");
}

TEST(TextWriterTest, WritesSurrogatePairs)
{
    EXPECT_EQ(samples::EncodeText("D0", "\xF0\x9F\x9A\x82", {.header = Header::None}),
              "\xFF\xFE\x3D\xD8\x82\xDE"s);
}

TEST(TextWriterTest, RefusesCharactersThatAnEncodingLacks)
{
    for (const char *text : {"\xE2\x82\xAC", "\xC2\x85", "\xC3"})
        EXPECT_THROW(samples::EncodeText("D0", text, {.encoding = Encoding::Windows1252}),
                     std::invalid_argument)
            << text;
}

TEST(TextWriterTest, QuotesOnlyWhereNeeded)
{
    const struct
    {
        const char *value;
        const char *written;
    } rows[] = {
        {"avr_d401.s", "avr_d401.s"},
        {"../x-1.s", "../x-1.s"},
        {"", "\"\""},
        {"a b", "\"a b\""},
        {"_hidden", "\"_hidden\""},
        {"#3", "\"#3\""},
        {"a(2)", "\"a(2)\""},
        {"O'Hare&Co", "\"O'Hare&Co\""},
        {R"(..\x.sms)", R"("..\\x.sms")"},
        {"say \"hi\"", R"("say \"hi\"")"},
        {"one\ntwo", R"("one\ntwo")"},
        {"ü", "\"ü\""},
    };
    for (const auto &row : rows)
        EXPECT_EQ(samples::Quoted(row.value), row.written);
}

} // namespace
