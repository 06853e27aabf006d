// SPDX-License-Identifier: MIT
#include "host/Leftovers.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using host::disk::Writer;
using Names = std::vector<std::string>;

namespace {

std::string temporary(const Writer &writer)
{
    return host::disk::TemporaryName(writer, 7) + ".tmp";
}

TEST(LeftoversTest, NameContainsItsWriter)
{
    const Writer writer{host::disk::MarkOf("a machine"), 4194304, 18446744073709551615U};
    EXPECT_EQ(host::disk::WriterOf(temporary(writer)), writer);
    EXPECT_EQ(host::disk::MarkOf("foobar"), "85944171f73967e8") << "other versions must find it";
}

TEST(LeftoversTest, OtherNamesHaveNoWriter)
{
    for (const char *name : {
             "",
             ".zelk-",
             ".tmp",
             ".zelk-.tmp",
             "a.con",
             ".zelk-12-3.tmp",
             "zelk-0123456789abcdef-1-2-3.tmp",
             ".zelk-0123456789abcdef-1-2-3.old",
             ".zelk-0123456789abcdef-1-2-3.tmp.con",
             ".zelk-0123456789abcdef-1-2.tmp",
             ".zelk-0123456789abcdef-1-2-3-4.tmp",
             ".zelk-0123456789abcdef-1--3.tmp",
             ".zelk-0123456789abcdef--1-2-3.tmp",
             ".zelk-0123456789abcdef-1-2-x.tmp",
             ".zelk-0123456789ABCDEF-1-2-3.tmp",
             ".zelk-0123456789abcde-1-2-3.tmp",
             ".zelk-0123456789abcdef-1-99999999999999999999-3.tmp",
             ".zelk-0123456789abcdef-1-2-3.tmp ",
             "my .zelk-0123456789abcdef-1-2-3.tmp",
         })
        EXPECT_EQ(host::disk::WriterOf(name), std::nullopt) << name;
}

TEST(LeftoversTest, OnlyFilesOfEndedProcessesOfThisMachineAreRemoved)
{
    constexpr std::uint64_t kNobody = 0x7ffffffe; // larger than any process number
    const Writer self = host::disk::ThisProcess();
    ASSERT_NE(self.start, 0u);
    const Writer ended{self.machine, kNobody, self.start};
    const Writer earlier{self.machine, self.process, self.start - 1}; // the number was used again
    const Writer elsewhere{host::disk::MarkOf("elsewhere"), kNobody, 1};
    const Writer exchanging{self.machine, kNobody, 1};
    const Writer unknown{self.machine, self.process, 0};

    const support::TempFolder folder;
    const Names kept = {temporary(self),
                        temporary(elsewhere),
                        temporary(exchanging),
                        temporary(unknown),
                        host::disk::TemporaryName(exchanging, 7) + ".old",
                        ".zelk-12-3.tmp",
                        "a.con"};
    for (const std::string &name : kept)
        folder.Write(name, "x");
    for (const Writer &writer : {ended, earlier})
        folder.Write(temporary(writer), "x");
    folder.MakeFolder(temporary({self.machine, kNobody, 5}));
    host::disk::RemoveLeftovers(folder.Path());

    Names expected = kept;
    expected.push_back(temporary({self.machine, kNobody, 5})); // a folder
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(folder.Names(), expected);
    host::disk::RemoveLeftovers(folder.At("missing")); // reports nothing
}

} // namespace
