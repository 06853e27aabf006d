// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"
#include "korvat/Build.h"

#include <filesystem>

namespace {

/// Runs commands that may use little memory.
class MemoryTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "the sanitizer itself needs more memory";
#endif
    }
    Outcome runWith(int kilobytes, std::vector<std::string> arguments) const
    {
        const std::string limit = "ulimit -v " + std::to_string(kilobytes);
        arguments.insert(arguments.begin(), {"-c", limit + "; exec \"$@\"", "sh", ZELKCTL});
        return m_machine.Run("/bin/sh", arguments);
    }
    void writeEmpty(const std::string &name, std::uintmax_t size) const
    {
        write(name, "");
        std::filesystem::resize_file(m_folder.At(name), size);
    }
};

TEST_F(MemoryTest, MessageNamesTheFileThatDoesNotFit)
{
    constexpr int kLimit = 300'000;
    constexpr std::uintmax_t kTooMuch = 900u << 20;
    writeEmpty("big.con", kTooMuch);
    writeEmpty("big.s", kTooMuch);
    writeEmpty("big.ace", kTooMuch);
    // It can be read, but not together with the tables of its blocks.
    std::string blocks = "SIMISA@@@@@@@@@@JINX0D0t______\n";
    while (blocks.size() < 60'000'000)
        blocks += "a(b(c(d(e(1 2 3 4 5 6 7 8 9)))))\n";
    write("blocks.con", blocks);
    const std::vector<std::string> rows[] = {
        {"tree", "big.con"},
        {"resave", "big.con", "x.con"},
        {"edit", "big.con", "clear"},
        {"shape", "big.s"},
        {"texture", "big.ace"},
        {"tree", "blocks.con"},
        {"edit", "blocks.con", "clear"},
    };
    ASSERT_EQ(runWith(kLimit, {"--version"}).code, 0);
    for (const std::vector<std::string> &row : rows)
        EXPECT_EQ(runWith(kLimit, row),
                  (Outcome{2, "", "zelkctl: " + row[1] + ": there is not enough memory\n"}));
    EXPECT_FALSE(m_folder.Exists("x.con"));

    write("msts/Routes/R/R.trk", "");
    const std::string path = m_folder.Path() + "/big.s";
    EXPECT_EQ(runWith(kLimit, {"--msts", "msts", "check", "shape", "big.s"}),
              (Outcome{2, "", "zelkctl: " + path + ": there is not enough memory\n"}));
}

TEST_F(MemoryTest, PictureIsSavedWithoutCopiesOfIt)
{
    constexpr std::uint32_t kSide = 4096; // 64 MB of pixels
    write("a.ace", CompressedBlocks(kSide, kSide));
    EXPECT_EQ(runWith(190'000, {"texture", "a.ace", "--out", "a.png"}), (Outcome{0, "", ""}));
    EXPECT_TRUE(m_folder.Exists("a.png"));
}

} // namespace
