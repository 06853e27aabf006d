// SPDX-License-Identifier: MIT
#include "TreeText.h"

#include <gtest/gtest.h>

using namespace std::string_literals;
using stavfile::Encoding;
using stavfile::Form;

namespace {

struct Row
{
    const char *what;
    std::string bytes;
    Encoding encoding;
    bool bom;
    const char *tree = "A(x\xC3\xA4 B(1))";
};

/// `A ( xä B ( 1 ) )` after the header, with "ä" in the bytes of the encoding.
std::string content(std::string_view umlaut)
{
    return WithHeader("A ( x" + std::string(umlaut) + " B ( 1 ) )\r\n");
}

std::string utf16Content(bool bigEndian)
{
    std::string bytes = Utf16(content("\x01"), bigEndian);
    bytes[bytes.find('\x01')] = '\xE4';
    return bytes;
}

TEST(StfEncodingTest, ReadsTheSameContentInEveryEncoding)
{
    const Row rows[] = {
        {"UTF-16LE", utf16Content(false), Encoding::Utf16Le, true},
        {"UTF-16LE without mark", utf16Content(false).substr(2), Encoding::Utf16Le, false},
        {"UTF-16BE", utf16Content(true), Encoding::Utf16Be, true},
        {"UTF-16BE without mark", utf16Content(true).substr(2), Encoding::Utf16Be, false},
        {"UTF-8", content("\xC3\xA4"), Encoding::Utf8, false},
        {"UTF-8 with mark", "\xEF\xBB\xBF" + content("\xC3\xA4"), Encoding::Utf8, true},
        {"Windows-1252", content("\xE4"), Encoding::Windows1252, false},
        {"Windows-1252 behind a UTF-8 mark", "\xEF\xBB\xBF" + content("\xE4"),
         Encoding::Windows1252, true},
        {"ASCII", WithHeader("A ( x )"), Encoding::Utf8, false, "A(x)"},
        {"odd number of bytes", utf16Content(false) + "\r", Encoding::Utf16Le, true},
        {"lone surrogate", Utf16("A ( ") + "\x3D\xD8"s + Utf16(" )").substr(2), Encoding::Utf16Le,
         true, "A(\xEF\xBF\xBD)"},
        {"pair of surrogates", Utf16("A ( ") + "\x3D\xD8\x02\xDE"s + Utf16(" )").substr(2),
         Encoding::Utf16Le, true, "A(\xF0\x9F\x98\x82)"},
        {"lone surrogate before a private character",
         Utf16("A ( ") + "\x3D\xD8\x00\xE0"s + Utf16(" )").substr(2), Encoding::Utf16Le, true,
         "A(\xEF\xBF\xBD\xEE\x80\x80)"},
        {"two characters of UTF-16LE without mark", "A\0("s + '\0', Encoding::Utf16Le, false,
         "A()"},
        {"unassigned byte", "A ( \x81 )", Encoding::Windows1252, false, "A(\xC2\x81)"},
        {"NULs among the text", Utf16("A ( x\0 y )\0\0"s), Encoding::Utf16Le, true, "A(x|y)"},
        {"text padded with NULs", "A ( x )\r\n" + std::string(2000, '\0'), Encoding::Utf8, false,
         "A(x)"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        MemoryFile memory(row.bytes);
        EXPECT_EQ(memory.file.Form(), Form::Text);
        EXPECT_STREQ(stavfile::EncodingName(memory.file.Encoding()),
                     stavfile::EncodingName(row.encoding));
        EXPECT_EQ(memory.file.HasBom(), row.bom);
        EXPECT_EQ(TreeText(memory.file.Nodes()), row.tree);
        EXPECT_EQ(memory.file.ToBytes(), row.bytes);
    }
}

TEST(StfEncodingTest, EveryUnitOfUtf16ComesBack)
{
    for (const bool isBig : {false, true}) {
        std::string bytes = Utf16("A ( \"", isBig);
        for (unsigned unit = 0x80; unit <= 0xFFFF; ++unit) { // lone surrogates, too
            const char low = static_cast<char>(unit & 0xFF), high = static_cast<char>(unit >> 8);
            bytes += isBig ? std::string{high, low} : std::string{low, high};
        }
        bytes += Utf16("\" )", isBig).substr(2);
        MemoryFile memory(bytes);
        EXPECT_TRUE(memory.file.FindNode("A"));
        EXPECT_TRUE(memory.file.ToBytes() == bytes);
    }
}

TEST(StfEncodingTest, OtherFormsGiveAnEmptyTreeAndKeepTheirBytes)
{
    const std::string shape = "SIMISA@@@@@@@@@@JINX0s1b______\r\n"s;
    const std::pair<std::string, Form> rows[] = {
        {"SIMISA@F\x1A\x05\0\0@@@@\x78\x9C(A ( b )"s, Form::Compressed},
        {"\r\nSIMISA@F\x1A\x05\0\0@@@@"s, Form::Compressed},
        {shape + "\x47\0\0\0\x02\x05\0\0A ( b )"s, Form::Binary},
        {"SIMISA@@@@@@@@@@\x01\0\0\0\x04\0\0\0\x02\0\0\0\x02\0\0\0\x10\0\0\0\x04\0\0\0"s,
         Form::Binary},
        {"A ( b )\0\x01\x02"s, Form::Binary},
        {"\0A ( b )"s, Form::Binary},
        {"\xFF\xFE\0\0A\0\0\0(\0\0\0)\0\0\0"s, Form::Binary},
        {std::string(5000, '\0'), Form::NulsOnly},
        {"\xFF\xFE"s + std::string(64, '\0'), Form::NulsOnly},
        {"", Form::Text},
        {"\xFF\xFE", Form::Text},
        {"\xFF", Form::Text},
        {"\xFF\xFE\0\0@"s, Form::NulsOnly},
    };
    for (const auto &[bytes, form] : rows) {
        SCOPED_TRACE(bytes.substr(0, 40));
        MemoryFile memory(bytes);
        EXPECT_EQ(memory.file.Form(), form);
        EXPECT_EQ(memory.file.Nodes().Count(), 0);
        EXPECT_EQ(memory.file.ToBytes(), bytes);
    }
}

TEST(StfEncodingTest, NeverReplacesBinaryContentByText)
{
    MemoryFile memory("SIMISA@F\x1A\x05\0\0@@@@\x78\x9C"s);
    memory.file.Nodes().Add(StfNode::Create());
    EXPECT_THROW(memory.file.ToBytes(), host::RuntimeError);
}

TEST(StfEncodingTest, PaddingThatIsNoLongerAtTheEndBecomesBlanks)
{
    for (const char *const letter : {"a", "\xE4"}) { // UTF-8 and Windows-1252
        MemoryFile memory("A ( " + std::string(letter) + std::string(5, '\0')); // not closed
        memory.file.Nodes().Add(StfNode::Create());
        const std::string bytes = memory.file.ToBytes();
        EXPECT_EQ(bytes.find('\0'), bytes.npos);
        EXPECT_TRUE(bytes.starts_with("A ( " + std::string(letter) + "      )")) << bytes;
    }
}

TEST(StfEncodingTest, NewTextKeepsTheEncodingIfItFits)
{
    MemoryFile memory("A ( \xE4 )");
    memory.file.FindNode("A").SetParameter(0, "\xC3\xB6\xE2\x82\xAC"); // o umlaut, euro
    EXPECT_EQ(memory.file.ToBytes(), "A ( \"\xF6\x80\" )");

    memory.file.FindNode("A").SetParameter(0, "\xD0\x96"); // Cyrillic is not in Windows-1252
    EXPECT_EQ(memory.file.ToBytes(), "\xFF\xFE\x41\0\x20\0(\0 \0\"\0\x16\x04\"\0 \0)\0"s);
}

} // namespace
