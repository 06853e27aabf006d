// SPDX-License-Identifier: MIT
#include "AccessFixture.h"

#include "support/RunProgram.h"

namespace {

const std::string kQuarry = "TRAINS/CONSISTS/Quarry_Local.con";

/// Builds a train of 30 units through the accessibility tree alone.
class AccessTrainTest : public AccessTest
{
protected:
    void open()
    {
        Start();
        Choose(Find(window, "tree", "Installed consists"), 0, "Quarry_Local");
        Command("Consist", "Edit");
        editor = Find(window, "frame", "Consist - Quarry_Local");
        train = Find(editor, "tree", "Current consist items");
        stock = Find(editor, "tree", "Available installed stock");
        searchTrain = Find(editor, "text", "Search the train");
        searchStock = Find(editor, "text", "Search the stock");
        ASSERT_TRUE(WaitFor([&] { return stock.Rows() == 45 && train.Rows() == 3; }));
    }
    /// Searches the stock and selects all that is found.
    void find(const std::string &text, int rows)
    {
        searchStock.SetText(text);
        ASSERT_TRUE(WaitFor([&] { return stock.Rows() == rows; })) << text;
        std::vector<int> all;
        for (int row = 0; row < rows; ++row)
            all.push_back(row);
        stock.SelectRows(all);
    }
    void expectUnits(int rows)
    {
        ASSERT_TRUE(WaitFor([&] { return train.Rows() == rows; })) << train.Rows();
    }
    /// Selects units, counted from 1 at the head.
    void selectUnits(int first, int last, const std::vector<int> &more = {})
    {
        std::vector<int> rows;
        for (int row = first; row <= last; ++row)
            rows.push_back(row - 1);
        for (const int row : more)
            rows.push_back(row - 1);
        train.SelectRows(rows);
    }
    void addStock();
    void copyAndMove();
    void pasteToTheEnd();

    Accessible editor, train, stock, searchTrain, searchStock;
    std::vector<std::string> operations; ///< what zelkctl does to get the same train
};

/// 3 units -> 15
void AccessTrainTest::addStock()
{
    ASSERT_NO_FATAL_FAILURE(find("type:engine folder:ardmoor", 2));
    for (const int row : {0, 1})
        operations.push_back("add=Engine,Ardmoor Valley," + stock.Cell(row, 2));
    Press(editor, "Add stock to consist");
    ASSERT_NO_FATAL_FAILURE(expectUnits(5));
    ASSERT_NO_FATAL_FAILURE(find("hopper_11", 1));
    Command("Consist", "Add Several...");
    Find(Dialog("Add Several"), "text", "How many of avr_hopper_11?").SetText("8");
    Answer("Add Several", "OK");
    operations.insert(operations.end(), 8, "add=Wagon,Ardmoor Valley,avr_hopper_11");
    ASSERT_NO_FATAL_FAILURE(expectUnits(13));
    selectUnits(2, 2);
    ASSERT_NO_FATAL_FAILURE(find("tank_21", 1));
    const std::string tank = "Wagon,\"" + stock.Cell(0, 1) + "\",tank_21";
    Command("Consist", "Add Behind Selected Unit");
    ASSERT_NO_FATAL_FAILURE(expectUnits(14));
    Press(editor, "Add stock to consist");
    operations.insert(operations.end(), {"insert=2," + tank, "add=" + tank});
    expectUnits(15);
}

/// 15 units -> 23
void AccessTrainTest::copyAndMove()
{
    selectUnits(3, 6, {9});
    Command("Edit", "Copy");
    selectUnits(15, 15);
    Command("Edit", "Paste");
    ASSERT_NO_FATAL_FAILURE(expectUnits(20));
    Press(editor, "Move stock forwards");
    for (const char *command : {"Move Up", "Flip"})
        Command("Consist", command);
    ASSERT_TRUE(WaitFor([&] { return train.Cell(13, 0) == "Wagon*"; }));
    searchTrain.SetText("tank");
    std::vector<int> found;
    for (int row = 0; row < train.Rows(); ++row)
        if (train.CellDescription(row, 0).find("matches the search") != std::string::npos)
            found.push_back(row + 1);
    ASSERT_EQ(found, (std::vector<int>{3, 14, 20}));
    selectUnits(14, 14);
    for (const char *command : {"Select All of This Kind", "Move Down"})
        Command("Consist", command);
    ASSERT_TRUE(WaitFor([&] { return train.Cell(3, 2) == "tank_21"; }));
    for (const char *command : {"Copy", "Paste"})
        Command("Edit", command);
    operations.insert(operations.end(), {"copy=3-6,9:15", "forwards=16-20", "forwards=15-19",
                                         "flip=14-18", "backwards=3,14,20", "copy=4,15,20:20"});
    expectUnits(23);
}

/// 23 units -> 30
void AccessTrainTest::pasteToTheEnd()
{
    selectUnits(1, 2);
    Press(editor, "Remove stock from consist");
    ASSERT_NO_FATAL_FAILURE(expectUnits(21));
    Command("Consist", "Reverse Train");
    ASSERT_TRUE(WaitFor([&] { return train.Cell(0, 0) == "Wagon*"; }));
    selectUnits(13, 21);
    Command("Edit", "Copy");
    selectUnits(1, 1);
    Command("Edit", "Paste");
    ASSERT_NO_FATAL_FAILURE(expectUnits(30));
    Press(editor, "Flip stock in consist");
    operations.insert(operations.end(), {"remove=1,2", "reverse", "copy=13-21:1", "flip=2-10"});
}

} // namespace

TEST_F(AccessTrainTest, SavesTheSameFileAsZelkctl)
{
    constexpr int kSteps = 14;
    const std::string before = game.Read(kQuarry);
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(addStock());
    ASSERT_NO_FATAL_FAILURE(copyAndMove());
    ASSERT_NO_FATAL_FAILURE(pasteToTheEnd());
    const Accessible undo = MenuItem("Edit", "Undo"), redo = MenuItem("Edit", "Redo");
    EXPECT_TRUE(WaitFor([&] { return undo.Name() == "Undo Flip 9 Units"; })) << undo.Name();
    for (int i = 0; i < kSteps; ++i)
        undo.Do("Press");
    ASSERT_NO_FATAL_FAILURE(expectUnits(3));
    EXPECT_TRUE(WaitFor([&] { return !undo.Enabled(); })) << undo.Name();
    for (int i = 0; i < kSteps; ++i)
        redo.Do("Press");
    ASSERT_TRUE(WaitFor([&] { return !redo.Enabled(); }));
    Command("File", "Save");
    Answer("Save Consist", "Yes");
    Answer("Save Consist", "OK");
    Quit();

    const support::TempFolder other;
    operations.insert(operations.begin(), {"edit", other.Write("Quarry_Local.con", before)});
    EXPECT_EQ(support::Machine{other.Path()}.Run(ZELKCTL, operations),
              (support::Outcome{0, "", ""}));
    EXPECT_EQ(game.Read(kQuarry), other.Read("Quarry_Local.con")) << UnitsIn(kQuarry);
}
