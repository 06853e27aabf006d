// SPDX-License-Identifier: MIT
#include "stavfile/Source.h"

#include "TreeText.h"
#include "stavfile/Block.h"
#include "stavfile/Scanner.h"

#include <gtest/gtest.h>

namespace {

using stavfile::Block;
using stavfile::Source;

/// Everything that a reader finds in a file, as text.
std::string contentOf(const Source &source)
{
    std::string out = source.text + source.oddByte + source.header + source.lineEnd +
                      source.tailFix + source.fileName + std::to_string(source.body);
    for (std::size_t i = 0; i < source.records.Size(); ++i) {
        const Block block(source, static_cast<std::uint32_t>(i));
        out += '|' + std::string(block.Name()) + std::to_string(source.records[i].next);
        for (std::size_t value = 0; value < block.ValueCount(); ++value)
            out += ',' + block.Value(value);
    }
    for (const stavfile::Note &note : source.notes)
        out += note.text;
    return out + std::to_string(static_cast<int>(source.form)) +
           stavfile::EncodingName(source.encoding) + (source.bom ? "bom" : "");
}

TEST(SourceTest, ReadsEachFileIntoTheMemoryOfTheLastOne)
{
    std::string large = "Tr_SMS (";
    for (int i = 0; i < 3000; ++i)
        large += " File ( a b c d e )";
    const std::string files[] = {Utf16(WithHeader(large + " ) )")),
                                 Utf16(WithHeader("Wagon ( x \"open")) + "!",
                                 WithHeader("Engine ( \xE4 )"),
                                 Utf16("Name ( y )", true),
                                 std::string(40, '\0'),
                                 "SIMISA@F rest",
                                 "",
                                 large,
                                 Utf16(WithHeader("Wagon ( z )"))};
    Source source;
    for (const std::string &bytes : files) {
        std::string copy = bytes;
        stavfile::ReadSource(source, std::move(copy));
        EXPECT_EQ(contentOf(source), contentOf(*stavfile::ReadSource(bytes)))
            << bytes.substr(0, 80);
    }
}

TEST(SourceTest, ScannerFindsTheEndsThatTheLexerFinds)
{
    std::string text;
    for (std::size_t length = 0; length < 140; ++length)
        text += std::string(length, length % 2 ? 'w' : ' ') + "(\")\x80\xFF\x1F! "[length % 8];
    for (std::size_t end = 0; end < 200; ++end) {
        const std::string_view part = std::string_view(text).substr(0, text.size() - end);
        stavfile::lexer::Scanner scanner(part);
        for (std::size_t at = end % 7; at <= part.size(); at += 1 + end % 5) {
            ASSERT_EQ(scanner.SkipBlanks(at), stavfile::lexer::SkipBlanks(part, at)) << at;
            ASSERT_EQ(scanner.WordEnd(at), stavfile::lexer::WordEnd(part, at)) << at;
        }
    }
}

TEST(SourceTest, ChildComparesTheWholeNameExactly)
{
    const auto source = stavfile::ReadSource(
        WithHeader("Wagon ( Sounds ( 1 ) sound ( 2 ) Sound ( 3 ) Sound ( 4 ) )"));
    const Block wagon(*source, 0);
    ASSERT_TRUE(wagon.Child("Sound"));
    EXPECT_EQ(wagon.Child("Sound")->Value(), "3");
    EXPECT_FALSE(wagon.Child("Soun"));
    EXPECT_FALSE(wagon.Child("Soundss"));
}

} // namespace
