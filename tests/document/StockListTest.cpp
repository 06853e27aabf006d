// SPDX-License-Identifier: MIT
#include "document/StockList.h"

#include "host/GameFiles.h"
#include "install/Installation.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using document::StockItem;
using document::StockOrder;
using support::TempFolder;

namespace {

class StockListTest : public testing::Test
{
protected:
    StockListTest() { installation.SetLocation(folder.Path()); }

    std::string scan(const char *filter, std::size_t workers = 2)
    {
        document::StockScan scan(installation, files, filter, workers);
        std::string all;
        while (const auto items = scan.TakeFolder())
            for (const StockItem &item : *items)
                all += item.type + '/' + item.folder + '/' + item.shape + ' ';
        EXPECT_TRUE(scan.Done());
        return all;
    }
    void write(const char *name) { folder.Write(std::string("Trains/TRAINSET/") + name, ""); }

    TempFolder folder;
    install::Installation installation;
    host::GameFiles files;
};

TEST_F(StockListTest, ListsOnlyStockFiles)
{
    for (const char *name :
         {"Foo/a.eng", "Foo/b.wag", "Foo/c.ENG", "Foo/x.jpg", "Foo/y.dwg.s", "Foo/z.e", "Foo/g",
          "Foo/n.engg", "Foo/sub.wag/deep.wag", "bar.folder/q.wag", "loose.eng", "SD40/s.eng"})
        write(name);
    EXPECT_EQ(scan(""), "Engine/Foo/a Wagon/Foo/b Wagon/Foo/c Wagon/Foo/x Engine/SD40/s ");
    EXPECT_EQ(scan("sd*"), "Engine/SD40/s ");
    EXPECT_EQ(scan("nothing"), "");
    write("new/n.wag");
    EXPECT_EQ(scan("new"), "Wagon/new/n ");
}

TEST_F(StockListTest, ResultIsTheSameForAnyNumberOfWorkers)
{
    for (int i = 0; i < 60; ++i)
        for (int j = 0; j < i % 4; ++j)
            write(("f" + std::to_string(i) + "/w" + std::to_string(j) + ".wag").c_str());
    const std::string one = scan("", 1);
    EXPECT_EQ(std::count(one.begin(), one.end(), ' '), 90);
    EXPECT_EQ(scan("", 2), one);
    EXPECT_EQ(scan("", 7), one);
}

TEST(StockOrderTest, ClicksSortAndReverseTheOrder)
{
    const std::vector<StockItem> items = {
        {"Wagon", "b", "x"}, {"Engine", "a", "Y"}, {"Wagon", "A", "z"}, {"Engine", "B", "y"}};
    StockOrder order;
    EXPECT_EQ(document::SortedIndexes(items, order), (std::vector{0, 1, 2, 3}));
    order.Click(1);
    EXPECT_EQ(document::SortedIndexes(items, order), (std::vector{1, 2, 0, 3}));
    order.Click(1);
    EXPECT_EQ(document::SortedIndexes(items, order), (std::vector{0, 3, 1, 2}));
    order.Click(2);
    EXPECT_EQ(document::SortedIndexes(items, order), (std::vector{0, 1, 3, 2}));
    order.Click(0);
    EXPECT_EQ(document::SortedIndexes(items, order), (std::vector{1, 3, 0, 2}));
}

} // namespace
