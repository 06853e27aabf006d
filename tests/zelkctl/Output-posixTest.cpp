// SPDX-License-Identifier: MIT
#include "zelkctl/Output.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(OutputTest, LineWithoutEndLeavesInPiecesOfWholeCharacters)
{
    // Characters of every length; the prefixes move the places where a piece is full.
    const std::string characters = "a\xC3\xBC\xE2\x82\xAC\xF0\x9F\x9A\x82";
    for (const char *prefix : {"", "x", "xx", "xxx"}) {
        std::string text = prefix;
        while (text.size() < 1'000'000)
            text += characters;
        zelkctl::Output out;
        testing::internal::CaptureStdout();
        for (const char byte : text)
            out.Write({&byte, 1});
        const std::string sent = testing::internal::GetCapturedStdout();
        EXPECT_GT(sent.size(), text.size() - 100'000) << "the rest of the line is held back";
        EXPECT_TRUE(text.starts_with(sent));
        EXPECT_NE(static_cast<unsigned char>(text.at(sent.size())) & 0xC0U, 0x80U)
            << "a character was cut";
        testing::internal::CaptureStdout();
        out.Flush();
        EXPECT_EQ(sent + testing::internal::GetCapturedStdout(), text);
    }
}

TEST(OutputTest, BytesThatAreNotTextAreNotHeldBack)
{
    const std::string text(200'000, '\x9F');
    zelkctl::Output out;
    testing::internal::CaptureStdout();
    out.Write(text);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), text);
}

} // namespace
