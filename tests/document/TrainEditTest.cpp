// SPDX-License-Identifier: MIT
#include "document/TrainEdit.h"

#include "document/ConsistTree.h"
#include "host/GameFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using document::ConsistTree;
using document::EditResult;
using document::Move;
using document::StockItem;

namespace {

/// Trains whose shapes are letters.
class TrainEditTest : public testing::Test
{
protected:
    TrainEditTest()
        : tree(files)
    {
    }

    /// Loads a train with these units, with "-" for a block of another kind.
    void load(const std::string &units, const std::string &counter = "9")
    {
        std::string text =
            "Train (\r\n TrainCfg ( a\r\n  Name ( a )\r\n  NextWagonUID ( " + counter + " )\r\n";
        for (const char unit : units)
            text += unit == '-'
                        ? std::string("  Odd ( 1 )\r\n")
                        : std::string("  Wagon ( UiD ( 7 ) WagonData ( ") + unit + " f ) )\r\n";
        folder.Write("a.con", text + " )\r\n)\r\n");
        tree.Load(folder.At("a.con"));
    }
    /// The children of the train as load writes them, with "*" after flipped units, and the
    /// counter.
    std::string shown() const
    {
        std::string text, counter;
        for (const StfNode block : install::FindTrain(tree.Document()).Children()) {
            if (block.Name() == "NextWagonUID")
                counter = ' ' + block.Parameter(0);
            else if (block.Name() == "Odd")
                text += '-';
            else if (block.Name() != "Name")
                text += block.Child("WagonData").Parameter(0) +
                        (install::Unit(block).IsFlipped() ? "*" : "");
        }
        return text + counter;
    }

    support::TempFolder folder;
    host::GameFiles files;
    ConsistTree tree;
};

} // namespace

TEST_F(TrainEditTest, SeveralRowsChangeTogether)
{
    const struct
    {
        const char *what, *before;
        Move move;
        std::vector<int> rows;
        const char *after;
        std::vector<int> selected;
    } rows[] = {
        {"removed in any order", "abcde", Move::Remove, {4, 2, 2, 9}, "ace 7", {1}},
        {"removed from the head", "abcde", Move::Remove, {1, 2}, "cde 7", {1}},
        {"all removed", "abc", Move::Remove, {1, 2, 3}, " 6", {}},
        {"forwards, apart", "abcde", Move::Forwards, {2, 4}, "badce 9", {1, 3}},
        {"forwards, together", "abcde", Move::Forwards, {3, 4}, "acdbe 9", {2, 3}},
        {"forwards, against the head", "abcde", Move::Forwards, {1, 2, 5}, "abced 9", {1, 2, 4}},
        {"forwards over other blocks", "ab-cd", Move::Forwards, {3, 4}, "acdb- 9", {2, 3}},
        {"backwards, apart", "abcde", Move::Backwards, {1, 3}, "badce 9", {2, 4}},
        {"backwards, together", "abcde", Move::Backwards, {2, 3}, "adbce 9", {3, 4}},
        {"backwards, against the end", "abcde", Move::Backwards, {1, 4, 5}, "bacde 9", {2, 4, 5}},
        {"backwards over other blocks", "ab-cd", Move::Backwards, {1, 2}, "-cabd 9", {2, 3}},
        {"flipped", "abc", Move::Flip, {1, 3}, "a*bc* 9", {}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        load(row.before);
        const EditResult result = tree.Edit(row.move, row.rows);
        EXPECT_EQ(shown(), row.after);
        EXPECT_EQ(result.selectedRows, row.selected);
        EXPECT_TRUE(tree.Changed());
    }
}

/// Where the product's rules for one row say what several rows give.
TEST_F(TrainEditTest, OneStepGivesTheBytesOfSingleEdits)
{
    const StockItem x{"Wagon", "My Stock", "x"}, y{"Engine", "f", "y"};
    const struct
    {
        std::function<void()> together, singly;
    } rows[] = {
        {[&] {
             tree.Edit(Move::Remove, {2, 4, 5});
         },
         [&] {
             for (const int row : {5, 4, 2})
                 tree.Edit(Move::Remove, row);
         }},
        {[&] {
             tree.Edit(Move::Forwards, {2, 4, 5});
         },
         [&] {
             for (const int row : {2, 4, 5})
                 tree.Edit(Move::Forwards, row);
         }},
        {[&] {
             tree.Edit(Move::Backwards, {1, 2, 4});
         },
         [&] {
             for (const int row : {4, 2, 1})
                 tree.Edit(Move::Backwards, row);
         }},
        {[&] {
             tree.Edit(Move::Flip, {1, 3});
         },
         [&] {
             tree.Edit(Move::Flip, 1);
             tree.Edit(Move::Flip, 3);
         }},
        {[&] {
             tree.Edit(Move::Add, {}, {x, y, x});
         },
         [&] {
             for (const StockItem *stock : {&x, &y, &x})
                 tree.Edit(Move::Add, 0, stock);
         }},
        {[&] {
             tree.Insert({x, y}, 3);
         },
         [&] {
             tree.Insert({x}, 3);
             tree.Insert({y}, 4);
         }},
        {[&] { tree.Insert({x}, 2); },
         [&] {
             tree.Insert({x}, 1);
             tree.Edit(Move::Forwards, 2);
         }},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        load("a-bc-de-");
        row.together();
        const std::string together = tree.Document().ToBytes();
        load("a-bc-de-");
        row.singly();
        EXPECT_EQ(together, tree.Document().ToBytes());
    }
}

TEST_F(TrainEditTest, UnitsMoveTogetherToAnyPlace)
{
    const struct
    {
        const char *before;
        std::vector<int> rows;
        int place;
        const char *after;
        std::vector<int> selected;
    } rows[] = {
        {"abcde", {2}, 1, "bacde 9", {1}},
        {"abcde", {2, 3}, 5, "adbce 9", {3, 4}},
        {"abcde", {4, 5}, 2, "adebc 9", {2, 3}},
        {"abcde", {1, 2}, 6, "cdeab 9", {4, 5}},
        {"abcde", {1, 3, 5}, 3, "baced 9", {2, 3, 4}},
        {"abcde", {2, 4}, 3, "abdce 9", {2, 3}},
        {"ab-c-de", {2, 3}, 2, "ab-c-de 9", {2, 3}},
        {"ab-c-de", {2, 3}, 4, "ab-c-de 9", {2, 3}},
        {"ab-c-de-", {1}, 99, "b-c-dea- 9", {5}},
        {"ab-c-de-", {5}, 3, "ab-ec-d- 9", {3}},
        {"abc", {1, 2, 3}, 2, "abc 9", {1, 2, 3}},
        {"abc", {}, 2, "abc 9", {}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.before) + " to " + row.after);
        load(row.before);
        EXPECT_EQ(tree.MoveTo(row.rows, row.place).selectedRows, row.selected);
        EXPECT_EQ(shown(), row.after);
    }
}

TEST_F(TrainEditTest, ReverseTurnsTheOrderAndEveryUnit)
{
    load("ab-cd-");
    tree.Edit(Move::Flip, 2);
    EXPECT_EQ(tree.Reverse({1, 2}).selectedRows, (std::vector<int>{3, 4}));
    EXPECT_EQ(shown(), "d*c*-ba*- 9") << "other blocks stay where they are";
    tree.Reverse();
    EXPECT_EQ(shown(), "ab*-cd- 9");
    load("abc");
    tree.Reverse();
    EXPECT_EQ(shown(), "c*b*a* 9");
    load("");
    EXPECT_FALSE(tree.Reverse().refused);
    EXPECT_EQ(tree.UndoName(), "");
}

TEST_F(TrainEditTest, SeveralUnitsAreInsertedWholeOrNotAtAll)
{
    const StockItem x{"Wagon", "f", "x"};
    load("ab", "32765");
    const std::string before = tree.Document().ToBytes();
    const EditResult refused = tree.Edit(Move::Add, {2}, {x, x, x});
    EXPECT_TRUE(refused.refused);
    EXPECT_EQ(refused.message, "Nothing was changed: NextWagonUID is 32765, and the new value "
                               "would not fit into 16 bits.");
    EXPECT_EQ(refused.selectedRows, (std::vector<int>{2}));
    EXPECT_EQ(tree.Document().ToBytes(), before);
    EXPECT_EQ(tree.UndoName(), "");
    EXPECT_FALSE(tree.Edit(Move::Add, {2}, {x, x}).refused);
    EXPECT_EQ(shown(), "abxx 32767");

    load("ab");
    EXPECT_TRUE(tree.Insert(std::vector<StockItem>(32764, x), 1).refused);
    EXPECT_EQ(shown(), "ab 9") << "the positions have 16 bits";
    EXPECT_FALSE(tree.Insert({x}, 1).refused);
    EXPECT_EQ(shown(), "xab 10");
    EXPECT_EQ(tree.Insert({}, 1).message, "No installed stock is selected.");
}
