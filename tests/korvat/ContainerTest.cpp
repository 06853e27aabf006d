// SPDX-License-Identifier: MIT
#include "korvat/formats/Container.h"

#include "Build.h"
#include "korvat/formats/Limits.h"

#include <gtest/gtest.h>

using korvat::Container;
using korvat::OpenContainer;
using korvat::Status;
using Content = korvat::Container::Content;

namespace {

constexpr std::size_t kLimit = 1 << 20;
const std::string kPayload = "JINX0s1b______\r\n" + std::string(3000, 'x');

std::string payloadOf(const Container &container)
{
    return {container.payload.begin(), container.payload.end()};
}

struct Row
{
    const char *what;
    std::string bytes;
    Content content;
    std::string payload;
    std::size_t base;
    std::vector<std::string> notes;
};

TEST(ContainerTest, ReturnsThePayloadOfEveryForm)
{
    const std::string packed = samples::CompressPayload(kPayload);
    const std::string text = "SIMISA@@@@@@@@@@JINX0s1t______\r\nshape ( )";
    const std::string wide("S\0I\0M\0", 6);
    const std::string ace("\x01\0\0\0x", 5);
    std::string wrongSum = packed;
    wrongSum.back() = static_cast<char>(wrongSum.back() + 1);
    const Row rows[] = {
        {"binary", samples::StorePayload(kPayload), Content::Binary, kPayload, 16, {}},
        {"text", text, Content::Text, text, 0, {}},
        {"line ends before the mark", "\r\n" + text, Content::Text, "\r\n" + text, 0, {}},
        {"UTF-16 without its mark", wide, Content::Text, wide, 0, {}},
        {"texture", samples::StorePayload(ace), Content::Raw, ace, 16, {}},
        {"byte order mark", "\xEF\xBB\xBF" + samples::StorePayload(ace), Content::Raw, ace, 19, {}},
        {"compressed", packed, Content::Binary, kPayload, 0, {}},
        {"compressed, with bytes after it", packed + "left over", Content::Binary, kPayload, 0, {}},
        {"compressed text",
         samples::CompressPayload("JINX0s1t______\r\nshape ( )"),
         Content::Text,
         "JINX0s1t______\r\nshape ( )",
         0,
         {}},
        {"compressed texture", samples::CompressPayload(ace), Content::Raw, ace, 0, {}},
        {"size too small",
         WithU32(packed, 8, 100),
         Content::Binary,
         kPayload.substr(0, 100),
         0,
         {"the compressed content is longer than its size field says"}},
        {"size too large",
         WithU32(packed, 8, 4000),
         Content::Binary,
         kPayload,
         0,
         {"the compressed content is shorter than its size field says"}},
        {"wrong checksum",
         wrongSum,
         Content::Binary,
         kPayload,
         0,
         {"the checksum of the compressed content is wrong or missing"}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        Container container;
        const korvat::ReadError error = OpenContainer(row.bytes, kLimit, container);
        EXPECT_EQ(error.text, "");
        EXPECT_EQ(container.content, row.content);
        EXPECT_EQ(payloadOf(container), row.payload);
        EXPECT_EQ(container.base, row.base);
        EXPECT_EQ(container.notes, row.notes);
    }
}

TEST(ContainerTest, ReportsWhyAFileCannotBeOpened)
{
    const std::string packed = samples::CompressPayload(kPayload);
    std::string dictionary = packed;
    dictionary[17] = static_cast<char>(0xBB);
    struct Refused
    {
        const char *what;
        std::string bytes;
        Status status;
        std::size_t where;
    };
    const Refused rows[] = {
        {"empty", "", Status::NotThisFormat, 0},
        {"something else", "SIMISA#@", Status::NotThisFormat, 0},
        {"too many line ends", "\r\n\r\n\r\nSIMISA@@@@@@@@@@", Status::NotThisFormat, 0},
        {"truncated mark", "SIMISA@@@@", Status::Damaged, 10},
        {"size 0", WithU32(packed, 8, 0), Status::Damaged, 8},
        {"size that deflate cannot reach", WithU32(packed, 8, 4'000'000), Status::Damaged, 8},
        {"size of 4 GB", WithU32(packed, 8, 0xFFFFFFFF), Status::Damaged, 8},
        {"size beyond the limit", samples::CompressPayload(std::string(kLimit + 1, 'x')),
         Status::TooLarge, 8},
        {"truncated stream", packed.substr(0, packed.size() - 12), Status::Damaged, 16},
        {"a dictionary is required", dictionary.substr(0, 18), Status::Damaged, 16},
    };
    for (const Refused &row : rows) {
        SCOPED_TRACE(row.what);
        Container container;
        const korvat::ReadError error = OpenContainer(row.bytes, kLimit, container);
        EXPECT_EQ(error.status, row.status) << error.text;
        EXPECT_EQ(error.where, row.where) << error.text;
        EXPECT_TRUE(container.payload.empty());
    }
}

TEST(ContainerTest, SurvivesFilesCutAtEveryLength)
{
    const std::string packed = samples::CompressPayload(kPayload);
    const std::size_t checksum = packed.size() - 4;
    for (std::size_t size = 0; size < packed.size(); ++size) {
        Container container;
        const bool opened = !OpenContainer(packed.substr(0, size), kLimit, container);
        ASSERT_EQ(opened, size >= checksum) << "cut at " << size;
        ASSERT_EQ(payloadOf(container), opened ? kPayload : "") << "cut at " << size;
    }
}

} // namespace
