// SPDX-License-Identifier: MIT
// Tests the loads of vehicles in 3D windows: where they come from, and View > Freight Loads.
#include "ViewsFixture.h"

#include "ui/main/WindowSettings.h"

#include <QAction>

namespace {

class ViewLoadsTest : public ViewsTest
{
protected:
    void SetUp() override
    {
        ViewsTest::SetUp();
        if (IsSkipped())
            return;
        game.Write("Trains/Trainset/Boxcars/coal.s", ShapeText({SidePanel(1, 1, {0, 5, 0}, 9, 2)}));
        game.Write("Trains/Trainset/Boxcars/box.wag",
                   "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( x Size ( 3m 4m 10m ) "
                   "WagonShape ( box.s ) FreightAnim ( coal.s 1 1 ) )\r\n");
    }
    TSViewObject &vehicle(int place) { return scene().Models.Item(place); }
    /// Waits until the canvas shows the load above the wagon, or no longer.
    bool shows(bool load)
    {
        return Wait([&] {
            const QImage picture = canvas().Picture();
            if (picture.isNull())
                return false;
            const QColor at = picture.pixelColor(picture.width() / 2, picture.height() / 10);
            const bool white = at.red() > 240 && at.green() > 240;
            const bool blue = at.red() < 20 && at.blue() > 140;
            return (white || blue) == load;
        });
    }
};

} // namespace

TEST_F(ViewLoadsTest, ComeFromTheVehicleThatIsViewed)
{
    Start();
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    EXPECT_EQ(vehicle(1).AddedShapes().size(), 1U) << "an opened vehicle";
    Trigger("mnuViewRefresh");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(vehicle(1).AddedShapes().size(), 1U) << "read again";
    window->OpenFile(stockFile("Boxcars/box.s"));
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(vehicle(1).AddedShapes().empty()) << "a shape";
    auto &train = Find<document::ListView>(OpenEditor("Coal"), "lvConsist");
    train.setFocus();
    train.SelectRow(0);
    Trigger("mnuConsistViewShape");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(vehicle(1).AddedShapes().size(), 1U) << "a vehicle of an editor";
    WriteConsist("Two", {"box", "box"});
    window->OpenDocumentWindow(ConsistFile("Two"), document::WindowMode::ConsistView, "Two", {});
    ASSERT_TRUE(loaded());
    ASSERT_EQ(scene().Models.Count(), 2);
    EXPECT_EQ(vehicle(1).AddedShapes().at(0).model.Loaded(),
              vehicle(2).AddedShapes().at(0).model.Loaded())
        << "equal loads are one in memory";
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(ViewLoadsTest, SwitchAppliesToAllWindowsAndIsRemembered)
{
    Start();
    QAction &action = Find<QAction>(*window, "mnuViewLoads");
    EXPECT_TRUE(action.isChecked() && !action.isEnabled() && action.shortcuts().isEmpty())
        << "a list is active";
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(shows(true));
    frmDocument *first = Active();
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    QTest::keyClick(&canvas(), Qt::Key_L);
    EXPECT_FALSE(action.isChecked());
    EXPECT_TRUE(shows(false));
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(shows(false)) << "a new window";
    first->setFocus();
    EXPECT_TRUE(Wait([&] { return Active() == first; }));
    EXPECT_TRUE(shows(false)) << "the first window";
    window->close();
    EXPECT_FALSE(app::ReadWindowSettings(settings).loads);
    Start();
    EXPECT_FALSE(Find<QAction>(*window, "mnuViewLoads").isChecked());
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    EXPECT_TRUE(shows(false));
    Trigger("mnuViewLoads");
    EXPECT_TRUE(shows(true));
}
