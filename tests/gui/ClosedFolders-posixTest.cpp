// SPDX-License-Identifier: MIT
#include "GuiTest.h"
#include "support/OrdinaryUser-posix.h"
#include "ui/replace/VehiclePicker.h"
#include "ui/replace/frmReplace.h"
#include "ui/widgets/ListView.h"

#include <QTreeView>

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

/// The consists can be written and the folder of the activity cannot.
TEST_F(ClosedFoldersTest, ReplacementThatFailsChangesNoFile)
{
    const std::string activity =
        "SIMISA@@@@@@@@@@JINX0a0t______\r\n\r\nTr_Activity ( ActivityObject ( Train_Config ( "
        "TrainCfg ( \"\" Wagon ( WagonData ( box Boxcars ) UiD ( 1 ) ) ) ) ) )\r\n";
    game.Write("Routes/Plains/Activities/Shunt.act", activity);
    fs::permissions(game.At("Trains/Consists"), fs::perms::all);
    for (const std::string &name : game.Names("Trains/Consists"))
        fs::permissions(game.At("Trains/Consists/" + name), fs::perms::all);
    fs::permissions(game.At("Routes/Plains/Activities"),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read |
                        fs::perms::others_exec);
    fs::permissions(home.Folder().Path(), fs::perms::all);
    const support::OrdinaryUser ordinary;
    Start();
    Trigger("mnuStockReplace");
    auto &shown = *window->findChild<frmReplace *>();
    const auto idle = [&] { return !shown.Running(); };
    ASSERT_TRUE(Wait(idle));
    shown.from->Pick(install::StockItem{"Wagon", "Boxcars", "box"});
    ASSERT_TRUE(Wait(idle));
    shown.to->Pick(install::StockItem{"Wagon", "Boxcars", "hopper"});
    QAbstractItemModel &plan = *shown.tvPlan->model();
    ASSERT_TRUE(plan.setData(plan.index(1, 0), Qt::Checked, Qt::CheckStateRole));
    shown.Replace();
    ASSERT_TRUE(Wait(idle));
    const std::string log = dialogs.TakeLog();
    EXPECT_NE(log.find("Shunt.act: "), std::string::npos) << log;
    EXPECT_NE(log.find("No file was changed."), std::string::npos) << log;
    EXPECT_EQ(ShapesIn(ConsistFile("Coal")), "box hopper");
    EXPECT_EQ(game.Read("Routes/Plains/Activities/Shunt.act"), activity);
    EXPECT_EQ(game.Names("Trains/Consists").size(), 3u) << "no file is left over";
    EXPECT_FALSE(Find<QAction>(*window, "mnuStockUndoReplace").isEnabled());
    window->close();
}

} // namespace
