// SPDX-License-Identifier: MIT
// Tests the first panel of the status bar: after every command it shows the outcome or nothing.
#include "GuiTest.h"

#include "ui/widgets/ListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

using document::ListView;
using document::WindowMode;

namespace {

class StatusTest : public GuiTest
{
protected:
    void click(const char *button) { Find<QAbstractButton>(*Active(), button).click(); }
};

} // namespace

TEST_F(StatusTest, EditClearsTheRefusalOfThePreviousOne)
{
    Start();
    OpenEditor("Coal");
    click("cmdMove0");
    EXPECT_EQ(Status(), "No installed stock is selected.");
    Find<ListView>(*Active(), "lvStock").SelectRow(0);
    click("cmdMove0");
    EXPECT_EQ(Status(), "");
    click("cmdMove5");
    EXPECT_EQ(Status(), "");
}

TEST_F(StatusTest, SavingClearsTheMessageAboutTheName)
{
    Start();
    Trigger("mnuFileNewConsist");
    ASSERT_TRUE(Wait([this] { return Status().find("loaded: 5") != std::string::npos; }));
    Find<ListView>(*Active(), "lvStock").SelectRow(0);
    click("cmdMove0");
    dialogs.AnswerFile(ConsistFile("New"));
    Trigger("mnuFileSaveAs");
    ASSERT_TRUE(game.Exists("Trains/Consists/New.con"));
    EXPECT_EQ(Status(), "");

    window->OpenFile(ConsistFile("Next"));
    click("cmdAction1"); // while the stock is still being read
    ASSERT_TRUE(game.Exists("Trains/Consists/Next.con"));
    EXPECT_EQ(Status().find("does not exist yet"), std::string::npos) << Status();
    ASSERT_TRUE(Wait([this] { return Status().find("loaded: 5") != std::string::npos; }));
    EXPECT_EQ(Status().find("does not exist yet"), std::string::npos) << Status();
}

TEST_F(StatusTest, ClosingAWindowInAnyWayClearsItsStatus)
{
    Start();
    const std::function<void(frmDocument &)> roads[] = {
        [](frmDocument &view) { view.close(); },
        [this](frmDocument &) { Trigger("mnuFileClose"); }};
    for (const auto &closeIt : roads) {
        frmDocument *view = window->NewDocumentWindow(WindowMode::ConsistView, {});
        window->SetStatus("Move(3,-4)");
        closeIt(*view);
        EXPECT_EQ(Status(), "");
    }
}

TEST_F(StatusTest, CommandsStartWithAnEmptyStatus)
{
    game.Write("Trains/Consists/Bad.con", "Nothing ( 1 )");
    Start();
    Find<ListView>(*Active(), "lvConsists").SelectRow(0);
    const std::function<void()> commands[] = {
        [this] { Trigger("mnuEditCopy"); },      [this] { Trigger("mnuEditUndo"); },
        [this] { Trigger("mnuWindowCascade"); }, [this] { Trigger("mnuViewToolbar"); },
        [this] { window->OpenFile("a.w"); },     [this] { window->OpenFile(ConsistFile("Bad")); }};
    for (const auto &command : commands) {
        window->SetStatus("old");
        command();
        EXPECT_EQ(Status(), "") << &command - commands;
    }
}

TEST_F(StatusTest, MenuHintsLeaveTheStatusUnchanged)
{
    Start();
    window->SetStatus("3 consists");
    auto &menu = Find<QMenu>(*window->menuBar(), "mnuEdit");
    menu.popup(window->mapToGlobal(QPoint(50, 50)));
    ASSERT_TRUE(Wait([&] { return menu.isVisible(); }));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(&menu, Qt::Key_Down);
    ASSERT_NE(menu.activeAction(), nullptr);
    EXPECT_TRUE(Find<QLabel>(*window, "sbStatusBarStatus").isVisible());
    EXPECT_EQ(Status(), "3 consists");
    EXPECT_TRUE(menu.toolTipsVisible()) << "the hints are shown beside the menu";
    menu.close();
}
