// SPDX-License-Identifier: MIT
#include "document/UnitClipboard.h"

#include "document/ConsistTree.h"
#include "host/GameFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <random>

using document::ConsistTree;
using document::Move;

namespace {

class UnitClipboardTest : public testing::Test
{
protected:
    UnitClipboardTest()
        : tree(files)
    {
    }

    void load(const std::string &units)
    {
        folder.Write("a.con", "Train (\r\n TrainCfg ( a\r\n  NextWagonUID ( 5 )\r\n" + units +
                                  " )\r\n)\r\n");
        tree.Load(folder.At("a.con"));
    }
    std::vector<StfNode> inBlocks(const std::string &bytes)
    {
        return document::UnitsInBlocks(bytes, files);
    }

    support::TempFolder folder;
    host::GameFiles files;
    ConsistTree tree;
    const std::string engine = "  Engine ( UiD ( 3 ) EngineData ( e \"My Locos\" ) "
                               "EngineVariables ( 1.5 \"x\" ) )\r\n",
                      wagon = "  Wagon ( Flip ( ) UiD ( 4 ) WagonData ( w f ) )\r\n";
};

} // namespace

TEST_F(UnitClipboardTest, BlocksKeepEverythingButTheIdentifier)
{
    load(engine + wagon);
    const document::CopiedUnits copied = document::CopyUnits(tree, {1, 2}, files);
    EXPECT_EQ(copied.text, "My Locos/e.eng\nf/w.wag, flipped\n");
    ConsistTree other(files);
    folder.Write("b.con",
                 "Train (\r\n TrainCfg ( b\r\n  NextWagonUID ( 70 )\r\n  Odd ( )\r\n )\r\n)");
    other.Load(folder.At("b.con"));
    EXPECT_EQ(other.Paste(inBlocks(copied.blocks), 1).selectedRows, (std::vector<int>{1, 2}));
    EXPECT_EQ(
        other.Document().ToBytes(),
        "Train (\r\n TrainCfg ( b\r\n  NextWagonUID ( 72 )\r\n  Odd ( )\r\n"
        "  Engine ( UiD ( 70 ) EngineData ( e \"My Locos\" ) EngineVariables ( 1.5 \"x\" ) )\r\n"
        "  Wagon ( Flip ( ) UiD ( 71 ) WagonData ( w f ) )\r\n )\r\n)");
}

TEST_F(UnitClipboardTest, UnitsWithoutIdentifierGetOne)
{
    load("");
    tree.Paste(inBlocks("Train ( TrainCfg ( Wagon ( WagonData ( a f ) ) Wagon ( Flip ( ) UiD ( ) "
                        "WagonData ( b f ) ) Wagon ( Flip ( ) WagonData ( c f ) ) ) )"),
               0);
    EXPECT_NE(std::string::npos, tree.Document().ToBytes().find(
                                     "  Wagon ( UiD ( 5 ) WagonData ( a f ) )\r\n"
                                     "  Wagon ( Flip ( ) UiD ( 6 ) WagonData ( b f ) )\r\n"
                                     "  Wagon ( Flip ( ) UiD ( 7 ) WagonData ( c f ) )\r\n"))
        << tree.Document().ToBytes();
}

TEST_F(UnitClipboardTest, LinesOfTextAreUnits)
{
    load("");
    EXPECT_FALSE(
        tree.Paste(document::UnitsInText("My Locos/e.eng\r\n\r\n f/w, x.WAG, flipped"), 0).refused);
    ASSERT_EQ(tree.Rows().size(), 2u);
    EXPECT_EQ(tree.Rows()[0].item, (document::StockItem{"Engine", "My Locos", "e"}));
    EXPECT_EQ(tree.Rows()[1].item, (document::StockItem{"Wagon*", "f", "w, x"}));
    EXPECT_EQ(document::CopyUnits(tree, {1, 2}, files).text,
              "My Locos/e.eng\nf/w, x.wag, flipped\n");
}

TEST_F(UnitClipboardTest, ForeignContentIsNoUnits)
{
    const std::string letters(10000, 'n');
    const char *const texts[] = {"",
                                 "\n\n",
                                 "GP38 Local",
                                 "https://example.org/a.wag",
                                 "a/b/c.wag",
                                 "C:\\a/b.wag",
                                 "/b.wag",
                                 "f/.wag",
                                 "f/b.wag flipped",
                                 "f/b.s",
                                 "f/b.wag\nand more",
                                 "f/b\tc.wag"};
    for (const char *text : texts) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(document::UnitsInText(text).empty());
        EXPECT_TRUE(inBlocks(text).empty());
    }
    for (const char *text : {"", "Wagon ( )", "Wagon ( WagonData ( ) )",
                             "Engine ( WagonData ( a b ) )", "Wagon ( WagonData ( a b ) ) x ( )"})
        EXPECT_TRUE(inBlocks("Train ( TrainCfg ( " + std::string(text) + " ) )").empty()) << text;
    const std::string wagons = "TrainCfg ( Wagon ( WagonData ( a b ) ) )";
    EXPECT_EQ(inBlocks("Train ( " + wagons + " )").size(), 1u);
    for (const std::string &text :
         {"Train ( " + wagons + wagons + " )", "Train ( " + wagons + " ) x ( )", wagons,
          std::string("Wagon ( WagonData ( a b ) )"), std::string("(((("), std::string("SIMISA@F")})
        EXPECT_TRUE(inBlocks(text).empty()) << text;

    load("");
    EXPECT_FALSE(tree.Paste(document::UnitsInText(letters + '/' + letters + ".wag"), 0).refused);
    const document::CopiedUnits copied = document::CopyUnits(tree, {1}, files);
    EXPECT_EQ(copied.text, letters + '/' + letters + ".wag\n");
    EXPECT_EQ(inBlocks(copied.blocks).size(), 1u);
}

TEST_F(UnitClipboardTest, CopiesOfNewUnitsAreIndentedLikeThem)
{
    folder.Write("a.con", "Train (\r\n\tTrainCfg ( a\r\n\t\tName ( a )\r\n\t)\r\n)\r\n");
    tree.Load(folder.At("a.con"));
    tree.Insert({{"Wagon", "f", "box"}}, 0);
    tree.Paste(inBlocks(document::CopyUnits(tree, {1}, files).blocks), 0);
    const std::string unit =
        "\t\tWagon (\r\n\t\t\tUiD ( 0 )\r\n\t\t\tWagonData ( box f )\r\n\t\t)\r\n";
    EXPECT_EQ(tree.Document().ToBytes(),
              "Train (\r\n\tTrainCfg ( a\r\n\t\tName ( a )\r\n" + unit + unit + "\t)\r\n)\r\n");
}

TEST_F(UnitClipboardTest, DamagedBlocksAreRefusedOrGiveUnitsThatCanBeSaved)
{
    load(engine + wagon);
    const std::string whole = document::CopyUnits(tree, {1, 2}, files).blocks,
                      before = tree.Document().ToBytes();
    std::mt19937 random(1);
    for (std::size_t i = 0; i < 2 * whole.size(); ++i) {
        std::string damaged = whole.substr(0, i % whole.size());
        if (i >= whole.size()) {
            damaged = whole;
            damaged[random() % damaged.size()] = static_cast<char>(random());
        }
        const std::vector<StfNode> units = inBlocks(damaged);
        const document::EditResult result = tree.Paste(units, 1);
        EXPECT_EQ(result.refused, units.empty());
        ASSERT_EQ(tree.Rows().size(), units.size() + 2);
        StfFile again(files);
        again.LoadBytes(tree.Document().ToBytes());
        std::vector<document::ConsistRow> rows;
        for (const install::Unit unit : install::Units(install::FindTrain(again)))
            rows.push_back({{unit.Kind() + (unit.IsFlipped() ? "*" : ""), unit.Item().folder,
                             unit.Item().shape},
                            unit.Position()});
        ASSERT_EQ(rows, tree.Rows()) << i;
        tree.Undo();
        ASSERT_EQ(tree.Document().ToBytes(), before);
    }
}
