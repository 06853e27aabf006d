// SPDX-License-Identifier: MIT
#include "GuiTest.h"
#include "support/OrdinaryUser-posix.h"
#include "ui/widgets/ListView.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

class ClosedFoldersTest : public GuiTest
{
protected:
    ClosedFoldersTest() { fs::permissions(game.Path(), fs::perms::all); }
    void close(const char *folder) const { fs::permissions(game.At(folder), fs::perms::none); }
};

TEST_F(ClosedFoldersTest, StockListReportsUnreadableFolders)
{
    close("Trains/Trainset/GP38 Pack");
    close("Trains/Trainset/Tankers");
    const support::OrdinaryUser ordinary;
    Start(ConsistFile("Coal"));
    ASSERT_TRUE(Wait([this] { return Status().find("loaded: ") != std::string::npos; }));
    EXPECT_NE(Status().find(" 2 items; could not read " + game.At("Trains/Trainset/GP38 Pack") +
                            " and 1 more"),
              std::string::npos)
        << Status();
}

TEST_F(ClosedFoldersTest, UnreadableConsistFolderIsNotShownAsEmpty)
{
    close("Trains/Consists");
    const support::OrdinaryUser ordinary;
    Start();
    EXPECT_EQ(Status(), game.At("Trains/Consists") + " cannot be read");
}

} // namespace
