// SPDX-License-Identifier: MIT
#include "content/WorldFile.h"

#include "samples/Bytes.h"

#include <gtest/gtest.h>

namespace content {
namespace {

/// The names with their lines: "2:name".
std::vector<std::string> shapesOf(std::string bytes)
{
    const WorldFile file = ReadWorldFile(std::move(bytes));
    EXPECT_EQ(file.fault, "");
    std::vector<std::string> names;
    for (const Reference &reference : file.shapes)
        names.push_back(std::to_string(reference.line) + ':' + reference.wants);
    return names;
}

std::string number(std::size_t value, int bytes)
{
    std::string out;
    for (int i = 0; i < bytes; ++i, value >>= 8)
        out += static_cast<char>(value & 0xFF);
    return out;
}

std::string utf16(std::string_view ascii)
{
    std::string out;
    for (const char c : ascii)
        out.append({c, '\0'});
    return out;
}

/// A token of the name space of worlds; the readers ignore its id.
std::string token(const std::string &content, std::string_view label = {})
{
    const std::string body = number(label.size(), 1) + utf16(label) + content;
    return number(0x4017B, 4) + number(body.size(), 4) + body;
}

std::string text(std::string_view ascii)
{
    return token(number(ascii.size(), 2) + utf16(ascii));
}

using Names = std::vector<std::string>;

const std::string kBinary = "JINX0w0b______\r\n";
const std::string kObjects = token(token(number(4, 4)) + token(token(number(1, 4)) + text("a.s")) +
                                   token(text("deer.haz") + text("B C.S"), "label") +
                                   token(token(text("A.s") + text("x.ace"))));

TEST(WorldFileTest, ReadsNamesOfShapesInEveryForm)
{
    const std::string body = "\r\nTr_Worldfile (\r\nStatic ( FileName ( a.s ) )\r\n"
                             "Forest ( FileName ( x.ace ) ) TrackObj ( filename ( \"B C.S\" ) )\r\n"
                             "comment ( FileName ( no.s ) ) Static ( FileName ( A.S ) ) )";
    const Names expected = {"3:a.s", "4:B C.S"};
    EXPECT_EQ(shapesOf("SIMISA@@@@@@@@@@JINX0w0t______" + body), expected);
    EXPECT_EQ(shapesOf("\xFF\xFE" + utf16("SIMISA@@@@@@@@@@JINX0w0t______" + body)), expected);
    EXPECT_EQ(shapesOf(samples::CompressPayload("JINX0w0t______" + body)), expected);
    const Names withoutLines = {"0:a.s", "0:B C.S"};
    EXPECT_EQ(shapesOf(samples::StorePayload(kBinary + kObjects)), withoutLines);
    EXPECT_EQ(shapesOf(samples::CompressPayload(kBinary + kObjects)), withoutLines);
}

TEST(WorldFileTest, ReportsWhatItCannotReadInsteadOfNames)
{
    const std::string whole = samples::StorePayload(kBinary + kObjects);
    EXPECT_TRUE(ReadWorldFile(whole).fault.empty());
    for (std::size_t size = 33; size < whole.size(); ++size) {
        const WorldFile cut = ReadWorldFile(whole.substr(0, size));
        EXPECT_FALSE(cut.fault.empty()) << size;
        EXPECT_TRUE(cut.shapes.empty()) << size;
    }
    EXPECT_FALSE(ReadWorldFile("SIMISA@F\x10").fault.empty());
}

TEST(WorldFileTest, KeepsBothReadingsOfABackslash)
{
    const WorldFile file = ReadWorldFile("\nTr_Worldfile ( Static ( FileName ( ..\\x\\a.s ) ) )");
    ASSERT_EQ(file.shapes.size(), 1u);
    EXPECT_EQ(file.shapes[0].wants, "..xa.s");
    ASSERT_EQ(file.shapes[0].otherReadings.size(), 1u);
    EXPECT_EQ(file.shapes[0].otherReadings[0].file, "..\\x\\a.s");
}

} // namespace
} // namespace content
