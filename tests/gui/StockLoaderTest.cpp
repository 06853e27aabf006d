// SPDX-License-Identifier: MIT
#include "GuiTest.h"
#include "ui/document/StockListModel.h"
#include "ui/widgets/ListView.h"

#include <QHeaderView>
#include <QProgressBar>

using document::ListView;

namespace {

constexpr int kFolders = 1500, kInFolder = 2;

/// An installation so large that a scan takes many slices.
class StockLoaderTest : public GuiTest
{
protected:
    StockLoaderTest()
    {
        for (int folder = 0; folder < kFolders; ++folder)
            for (int file = 0; file < kInFolder; ++file)
                game.Write("Trains/Trainset/Big " + std::to_string(folder) + "/w" +
                           std::to_string(file) + ".wag");
        dialogs.Answer(host::DialogAnswer::No); // do not save the new consist
    }
    int rows() const { return Find<ListView>(*Active(), "lvStock").model()->rowCount(); }
    bool loaded() const { return Status().find("list loaded: ") != std::string::npos; }
    bool stopped() const { return Status().find("stopped after ") != std::string::npos; }
    QProgressBar &bar() const { return Find<QProgressBar>(*window, "sbStatusBarProgress"); }
};

constexpr int kAll = kFolders * kInFolder + 5;

} // namespace

TEST_F(StockLoaderTest, ListFillsWhileTheWindowStaysResponsive)
{
    StartOnly();
    window->OpenFile(ConsistFile("none"));
    EXPECT_EQ(rows(), 0) << "opening does not wait for the stock";
    EXPECT_TRUE(bar().isVisible());
    ASSERT_TRUE(Wait([&] { return loaded(); }));
    EXPECT_FALSE(bar().isVisible());
    EXPECT_EQ(rows(), kAll);
    EXPECT_NE(Status().find(" loaded: " + std::to_string(kAll) + " items"), std::string::npos);
}

TEST_F(StockLoaderTest, EscapeStopsAndKeepsTheRowsUntilARefresh)
{
    Start();
    window->OpenFile(ConsistFile("Coal"));
    EXPECT_TRUE(bar().isVisible());
    QTest::keyClick(window.get(), Qt::Key_Escape);
    ASSERT_TRUE(stopped()) << Status();
    EXPECT_FALSE(bar().isVisible());
    EXPECT_LT(rows(), kAll);
    const std::string found = std::to_string(rows()) + " items";
    EXPECT_NE(Status().find(found), std::string::npos) << Status();
    Trigger("mnuViewRefresh");
    ASSERT_TRUE(Wait([&] { return loaded(); }));
    EXPECT_EQ(rows(), kAll);
}

TEST_F(StockLoaderTest, ScanCanBeRestartedAndItsWindowClosed)
{
    StartOnly(ConsistFile("none"));
    Active()->SetFilter("Big 1*");
    Active()->ReloadAllStock();
    Active()->SetFilter("*9");
    Active()->ReloadAllStock();
    ASSERT_TRUE(Wait([&] { return loaded(); }));
    EXPECT_EQ(rows(), kFolders / 10 * kInFolder) << "only the last filter counts";

    Active()->SetFilter("");
    Active()->ReloadAllStock();
    Active()->AllowUnload();
    Active()->close();
    ASSERT_TRUE(Wait([&] { return window->Documents().empty(); }));
    window->OpenFile(ConsistFile("none"));
    EXPECT_TRUE(window->close()) << "the program ends in the middle of a scan";
}

TEST_F(StockLoaderTest, HeadersSortWhileTheListFills)
{
    StartOnly(ConsistFile("none"));
    auto &list = Find<ListView>(*Active(), "lvStock");
    const auto click = [&](int column) {
        const int x = list.header()->sectionViewportPosition(column) + 5;
        QTest::mouseClick(list.header()->viewport(), Qt::LeftButton, {}, QPoint(x, 5));
    };
    const auto at = [&](int row, int column) {
        return list.model()->index(row, column).data().toString().toStdString();
    };
    click(2);
    ASSERT_TRUE(Wait([&] { return loaded(); }));
    EXPECT_EQ(at(0, 2), "box");
    EXPECT_EQ(at(kAll - 1, 2), "w1");
    click(2);
    EXPECT_EQ(at(0, 2), "w1");
    click(0);
    EXPECT_EQ(at(0, 0), "Engine") << "another column starts in ascending order";
    EXPECT_EQ(at(2, 0), "Wagon");
}
