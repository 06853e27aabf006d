// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"
#include "support/OrdinaryUser-posix.h"

#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

class ClosedFoldersTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
#if defined(__SANITIZE_ADDRESS__)
        if (geteuid() == 0)
            GTEST_SKIP() << "the system does not let such a process look for leaks";
#endif
    }
    Outcome runAsOrdinaryUser(const std::vector<std::string> &arguments) const
    {
        const support::OrdinaryUser ordinary;
        return run(arguments);
    }
};

TEST_F(ClosedFoldersTest, ReportsUnreadableFoldersAndListsTheOthers)
{
    write("msts/Trains/Trainset/A/a.wag", "");
    write("msts/Trains/Trainset/Shut/b.wag", "");
    write("msts/Trains/Consists/c.con", "");
    write("msts/Routes/R/R.trk", "");
    fs::permissions(m_folder.Path(), fs::perms::all);
    const auto shut = [this](const char *name, const std::string &what) {
        const std::string folder = m_folder.At(name);
        fs::permissions(folder, fs::perms::none);
        const Outcome outcome = runAsOrdinaryUser({"--msts", m_folder.At("msts"), "list", what});
        fs::permissions(folder, fs::perms::owner_all);
        EXPECT_EQ(outcome.err, outcome.code == 0
                                   ? ""
                                   : "zelkctl: " + folder + ": error 75: Path/File access error\n");
        return std::to_string(outcome.code) + ' ' + outcome.out;
    };
    {
        const support::OrdinaryUser ordinary;
        if (faccessat(AT_FDCWD, ZELKCTL, X_OK, AT_EACCESS) != 0)
            GTEST_SKIP() << "an ordinary user cannot start " ZELKCTL;
    }
    EXPECT_EQ(shut("msts/Trains/Trainset/Shut", "stock"), "2 Wagon\tA\ta\n");
    EXPECT_EQ(shut("msts/Trains/Trainset/Shut", "consists"), "0 c\n");
    EXPECT_EQ(shut("msts/Trains/Trainset", "stock"), "2 ");
    EXPECT_EQ(shut("msts/Trains/Consists", "consists"), "2 ");
    EXPECT_EQ(shut("msts/Routes", "routes"), "2 ");
}

} // namespace
