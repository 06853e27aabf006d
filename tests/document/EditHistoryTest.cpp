// SPDX-License-Identifier: MIT
#include "document/EditHistory.h"

#include "document/ConsistTree.h"
#include "document/UnitClipboard.h"
#include "host/GameFiles.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using document::ConsistTree;
using document::EditResult;
using document::Move;
using document::StockItem;

namespace {

const char *const kHead = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n";

/// A consist as people and other programs leave them: odd spellings, comments, blocks of other
/// simulators between the units, flipped units in several forms.
std::string oddConsist(int units)
{
    std::string text = std::string(kHead) +
                       "Train (\r\n TrainCfg ( \"odd\" ; a remark\r\n  NextWagonUID(\"" +
                       std::to_string(units) + "\")\r\n";
    for (int i = 0; i < units; ++i) {
        const std::string number = std::to_string(i);
        switch (i % 5) {
        case 0:
            text += "  Engine ( UiD ( " + number + " ) EngineData ( e" + number +
                    " \"My Locos\" ) "
                    "EngineVariables ( 1 ) )\r\n";
            break;
        case 1:
            text += "  Wagon(WagonData(w" + number + " f)UiD(0" + number + "))\r\n";
            break;
        case 2:
            text += "  comment ( \"between\" )\r\n  Wagon ( UiD ( " + number +
                    " ) /* turned */ Flip ( ) WagonData ( w" + number + " f ) )\r\n";
            break;
        case 3:
            text += "\t\tWagon (\r\n\t\t\tFlip ( 1 )\r\n\t\t\tFlip ( 2 )\r\n\t\t\tUiD ( " + number +
                    " )\r\n\t\t\tWagonData ( w" + number + " \"f \" + \"g\" )\r\n\t\t)\r\n";
            break;
        default:
            text += "  ORTSEot ( UiD ( 9 ) )\r\n  Wagon ( WagonData ( w" + number + " f ) )\r\n";
        }
    }
    return text + " )\r\n)\r\n";
}

class EditHistoryTest : public testing::Test
{
protected:
    EditHistoryTest()
        : tree(files)
    {
    }

    void load(const std::string &text)
    {
        folder.Write("a.con", text);
        tree.Load(path());
    }
    std::string path() const { return folder.At("a.con"); }
    std::string bytes() const { return tree.Document().ToBytes(); }
    /// The shapes of the rows, with a star for flipped units.
    std::string train() const
    {
        std::string text;
        for (const document::ConsistRow &row : tree.Rows())
            text += row.item.shape + (row.item.type.ends_with('*') ? "* " : " ");
        return text;
    }

    support::TempFolder folder;
    host::GameFiles files;
    ConsistTree tree;
    const StockItem box{"Wagon", "My Stock", "box"}, loco{"Engine", "f", "loco"};
};

/// Random edits of a train, of every kind.
class Editor
{
public:
    Editor(ConsistTree &tree, host::GameFiles &files, unsigned seed)
        : m_tree(tree)
        , m_files(files)
        , m_random(seed)
    {
    }

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    void Act()
    {
        const std::vector<int> rows = someRows();
        switch (Below(10)) {
        case 0:
            m_tree.Edit(Move::Add, rows, {newStock("Wagon"), newStock("Engine")});
            break;
        case 1:
            m_tree.Insert({newStock("Wagon")}, somePlace());
            break;
        case 2:
            m_tree.Paste(copies(existing(rows)), somePlace());
            break;
        case 3:
            m_tree.MoveTo(rows, somePlace());
            break;
        case 4:
            m_tree.Reverse(rows);
            break;
        case 5:
            m_tree.Cut(rows);
            break;
        case 6: // refused if the rows are of both kinds
            m_tree.Replace(rows, newStock(Below(3) == 0 ? "Engine" : "Wagon"));
            break;
        default:
            m_tree.Edit(static_cast<Move>(1 + Below(5)), Below(20) ? rows : std::vector<int>());
        }
    }

private:
    // No two units are alike, so that every step changes the bytes.
    std::string newName() { return "n" + std::to_string(++m_names); }
    StockItem newStock(const char *type) { return {type, "My Stock", newName()}; }
    std::vector<StfNode> copies(const std::vector<int> &rows)
    {
        std::vector<StfNode> units =
            document::UnitsInBlocks(document::CopyUnits(m_tree, rows, m_files).blocks, m_files);
        for (StfNode &unit : units)
            unit.Require(unit.Name() + "Data").SetParameter(0, newName());
        return units;
    }
    std::vector<int> someRows()
    {
        std::vector<int> rows;
        for (int i = Below(5); i > 0; --i)
            rows.push_back(1 + Below(static_cast<int>(m_tree.Rows().size()) + 2));
        return rows;
    }
    std::vector<int> existing(std::vector<int> rows) const
    {
        std::erase_if(rows,
                      [this](int row) { return row > static_cast<int>(m_tree.Rows().size()); });
        return rows;
    }
    int somePlace() { return Below(static_cast<int>(m_tree.Rows().size()) + 3); }

    ConsistTree &m_tree;
    host::GameFiles &m_files;
    std::mt19937 m_random;
    int m_names = 0;
};

} // namespace

/// The model is the list of all states so far and the present place in it.
TEST_F(EditHistoryTest, RandomUndoAndRedoRestoreEveryState)
{
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        load(oddConsist(static_cast<int>(seed % 12)));
        Editor editor(tree, files, seed);
        std::vector<std::string> states{bytes()};
        std::size_t now = 0;
        for (int i = 0; i < 120; ++i) {
            const int choice = editor.Below(10);
            if (choice < 3 && now > 0) {
                tree.Undo();
                --now;
            } else if (choice < 5 && now + 1 < states.size()) {
                tree.Redo();
                ++now;
            } else if (choice >= 5) {
                editor.Act();
                if (bytes() == states[now])
                    continue; // no step: Redo stays possible
                states.resize(++now);
                states.push_back(bytes());
            }
            ASSERT_EQ(bytes(), states[now]) << i;
            ASSERT_EQ(tree.UndoName().empty(), now == 0);
            ASSERT_EQ(tree.RedoName().empty(), now + 1 == states.size());
        }
        while (!tree.RedoName().empty())
            tree.Redo();
        EXPECT_EQ(bytes(), states.back());
        while (!tree.UndoName().empty())
            tree.Undo();
        EXPECT_EQ(bytes(), folder.Read("a.con")) << "undone to the beginning";
    }
}

TEST_F(EditHistoryTest, StepsHaveNamesAndRestoreTheSelection)
{
    const std::vector<StfNode> pasted = document::UnitsInText("f/p.wag\nf/q.wag\n");
    const struct
    {
        const char *name;
        std::function<EditResult()> act;
        std::vector<int> after, before;
    } rows[] = {
        {"Add Unit", [&] { return tree.Edit(Move::Add, 2, &box); }, {6}, {}},
        {"Add 2 Units",
         [&] {
             return tree.Edit(Move::Add, {1}, {box, loco});
         },
         {6, 7},
         {}},
        {"Add Unit", [&] { return tree.Insert({box}, 3); }, {3}, {2}},
        {"Paste 2 Units", [&] { return tree.Paste(pasted, 2); }, {2, 3}, {1}},
        {"Remove Unit", [&] { return tree.Edit(Move::Remove, 3); }, {2}, {3}},
        {"Remove 3 Units",
         [&] {
             return tree.Edit(Move::Remove, {5, 2, 3});
         },
         {1},
         {2, 3, 5}},
        {"Cut 2 Units",
         [&] {
             return tree.Cut({1, 2});
         },
         {1},
         {1, 2}},
        {"Remove All Units", [&] { return tree.Edit(Move::RemoveAll, 1); }, {}, {1, 2, 3, 4, 5}},
        {"Move Unit Forwards", [&] { return tree.Edit(Move::Forwards, 2); }, {1}, {2}},
        {"Move 2 Units Backwards",
         [&] {
             return tree.Edit(Move::Backwards, {2, 4});
         },
         {3, 5},
         {2, 4}},
        {"Move 2 Units",
         [&] {
             return tree.MoveTo({1, 5}, 3);
         },
         {2, 3},
         {1, 5}},
        {"Replace 2 Units",
         [&] {
             return tree.Replace({3, 2}, box);
         },
         {2, 3},
         {2, 3}},
        {"Reverse Train",
         [&] {
             return tree.Reverse({1, 2});
         },
         {4, 5},
         {1, 2}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        load(oddConsist(5));
        const EditResult result = row.act();
        EXPECT_EQ(result.selectedRows, row.after);
        EXPECT_EQ(tree.UndoName(), row.name);
        EXPECT_EQ(tree.Undo().selectedRows, row.before);
        EXPECT_EQ(tree.UndoName() + '|' + tree.RedoName(), std::string("|") + row.name);
        EXPECT_EQ(tree.Redo().selectedRows, row.after);
    }
    load(oddConsist(5));
    EXPECT_TRUE(tree.Edit(Move::Flip, {2, 3}).selectedRows.empty());
    EXPECT_EQ(tree.UndoName(), "Flip 2 Units");
    EXPECT_EQ(tree.Undo().selectedRows, (std::vector<int>{2, 3})) << "to show what was undone";
}

TEST_F(EditHistoryTest, ReplaceChangesOnlyTheNamesOfUnits)
{
    load(oddConsist(5));
    const std::string before = bytes();
    EXPECT_FALSE(tree.Replace({2, 4, 5}, box).refused);
    std::string expected = before;
    for (const auto &[from, to] :
         {std::pair{"WagonData(w1 f)", "WagonData(box \"My Stock\")"},
          std::pair{"WagonData ( w3 \"f \" + \"g\" )", "WagonData ( box \"My Stock\" )"},
          std::pair{"WagonData ( w4 f )", "WagonData ( box \"My Stock\" )"}})
        expected.replace(expected.find(from), std::string(from).size(), to);
    EXPECT_EQ(bytes(), expected);
    const EditResult refused = tree.Replace({1, 2}, box);
    EXPECT_TRUE(refused.refused);
    EXPECT_EQ(refused.message, "Nothing was changed: an engine can only be replaced by an engine, "
                               "a wagon only by a wagon.");
    EXPECT_EQ(bytes(), expected);
    tree.Undo();
    EXPECT_EQ(bytes(), before) << "odd spellings come back";
}

TEST_F(EditHistoryTest, EditsWithoutEffectAreNoSteps)
{
    load(oddConsist(3));
    tree.Edit(Move::Flip, 1);
    tree.Undo();
    tree.SetChanged(false);
    for (const Move move : {Move::Remove, Move::Forwards, Move::Backwards, Move::Flip, Move::Add})
        tree.Edit(move, 0);
    tree.Edit(Move::Forwards, 1);
    tree.Edit(Move::Backwards, 3);
    tree.MoveTo({2, 3}, 4);
    EXPECT_EQ(tree.UndoName(), "");
    EXPECT_EQ(tree.RedoName(), "Flip Unit") << "can still be redone";
    EXPECT_TRUE(tree.Changed());
    tree.SetChanged(false);
    EXPECT_EQ(tree.Undo().selectedRow, 0);
    EXPECT_FALSE(tree.Changed()) << "nothing to undo";
}

TEST_F(EditHistoryTest, UndoAfterASaveKeepsTheNewName)
{
    const std::string noName = std::string(kHead) + "Train (\r\n TrainCfg ( \"old\"\r\n"
                                                    "  NextWagonUID ( 2 )\r\n"
                                                    "  Wagon ( UiD ( 0 ) WagonData ( a f ) )\r\n"
                                                    "  Wagon ( UiD ( 1 ) WagonData ( b f ) )\r\n"
                                                    " )\r\n)\r\n";
    load(noName);
    tree.Edit(Move::Remove, 1);
    tree.Edit(Move::Flip, 1);
    tree.Save(folder.At("new name.con"));
    EXPECT_FALSE(tree.Changed());
    tree.Undo();
    EXPECT_TRUE(tree.Changed()) << "the file has the edits";
    tree.Undo();
    std::string expected = noName;
    expected.replace(expected.find("\"old\""), 5, "\"new name\"\r\n  Name ( \"new name\" )");
    EXPECT_EQ(bytes(), expected);
    tree.Redo();
    tree.Redo();
    EXPECT_EQ(bytes(), folder.Read("new name.con"));
    EXPECT_TRUE(tree.Changed()) << "stays set until the next save";
}

TEST_F(EditHistoryTest, FailedSaveKeepsTheHistoryAndTheBytes)
{
    load(oddConsist(4));
    const std::string before = bytes();
    tree.Edit(Move::Remove, {1, 3});
    const std::string edited = bytes();
    EXPECT_THROW(tree.Save(folder.At("missing/b c.con")), host::RuntimeError);
    EXPECT_EQ(bytes(), edited);
    tree.Undo();
    EXPECT_EQ(bytes(), before);
    EXPECT_THROW(tree.Save(folder.At("missing/b.con")), host::RuntimeError);
    EXPECT_EQ(bytes(), before);
}

TEST_F(EditHistoryTest, ReadingAgainDropsTheSteps)
{
    load(oddConsist(2));
    tree.Edit(Move::Flip, 1);
    tree.Load(path());
    EXPECT_EQ(tree.UndoName() + tree.RedoName(), "");
    tree.Edit(Move::Flip, 1);
    tree.New();
    EXPECT_EQ(tree.UndoName() + tree.RedoName(), "");
}
