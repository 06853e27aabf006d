// SPDX-License-Identifier: MIT
#include "document/ConsistTree.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using document::ConsistTree;
using document::EditResult;
using document::Move;
using document::StockItem;
using support::TempFolder;

namespace {

const char *const kHead = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n";

/// A unit on one line: "Engine", uid, shape, folder.
std::string unit(const char *type, int uid, const char *names, const char *before = "")
{
    return std::string(" ") + type + " ( " + before + "UiD ( " + std::to_string(uid) + " ) " +
           type + "Data ( " + names + " ) )\r\n";
}

class ConsistTreeTest : public testing::Test
{
protected:
    ConsistTreeTest()
        : tree(files)
    {
    }

    /// Loads a consist with this text inside TrainCfg.
    void load(const std::string &inside)
    {
        folder.Write("a.con",
                     kHead + ("Train (\r\n TrainCfg ( \"a\"\r\n" + inside + " )\r\n)\r\n"));
        tree.Load(path());
    }
    void loadFour()
    {
        load(" Name ( \"a\" )\r\n NextWagonUID ( 4 )\r\n" + unit("Engine", 0, "e f") +
             " Odd ( 1 )\r\n" + unit("Wagon", 1, "w1 f") + unit("Wagon", 2, "w2 f") +
             unit("Wagon", 3, "w3 f"));
    }
    std::string counterAndTwo(const std::string &counter) const
    {
        return " NextWagonUID ( " + counter + " )\r\n" + unit("Wagon", 0, "a b") +
               unit("Wagon", 1, "c d");
    }
    std::string path() const { return folder.Path() + "/a.con"; }

    /// The shapes of the rows, with a star for flipped units, and the counter.
    std::string train() const
    {
        std::string text;
        for (const document::ConsistRow &row : tree.Rows())
            text += row.item.shape + (row.item.type.ends_with('*') ? "* " : " ");
        const StfNode cfg = tree.Document().FindNode("Train").Child("TrainCfg");
        const StfNode counter = cfg.Child("NextWagonUID");
        return text + (counter ? stavfile::ValueAt(counter) : "-");
    }
    std::string uids() const
    {
        std::string text;
        const StfNodes list = tree.Document().FindNode("Train").Child("TrainCfg").Children();
        for (const document::ConsistRow &row : tree.Rows())
            text += list.Item(row.position).Child("UiD").Parameter(0) + ' ';
        return text;
    }

    TempFolder folder;
    host::GameFiles files;
    ConsistTree tree;
    const StockItem box{"Wagon", "My Stock", "box"};
};

TEST_F(ConsistTreeTest, RowsShowTypeFolderShapeAndPositionInTheFile)
{
    load(" Name ( \"a\" )\r\n MaxVelocity ( 27.77778 0.10000 )\r\n Durability ( 0.5 )\r\n"
         " NextWagonUID ( 3 )\r\n" +
         unit("Engine", 0, "Loco \"Demo Locos\"") + " ORTSEOT ( UiD ( 9 ) )\r\n" +
         unit("Wagon", 1, "box My Stock", "Flip ( ) ") + unit("Wagon", 2, "alone") +
         unit("Wagon", 3, "a b c d"));
    const std::vector<document::ConsistRow> expected = {{{"Engine", "Demo Locos", "Loco"}, 5},
                                                        {{"Wagon*", "My Stock", "box"}, 7},
                                                        {{"Wagon", "", "alone"}, 8},
                                                        {{"Wagon", "b", "a"}, 9}};
    EXPECT_EQ(tree.Rows(), expected);
    EXPECT_EQ(tree.MaxVelocity(0) + '|' + tree.MaxVelocity(1) + '|' + tree.Durability(),
              "27.77778|0.10000|0.5");
    EXPECT_FALSE(tree.Changed());
    load("");
    EXPECT_TRUE(tree.Rows().empty());
    EXPECT_EQ(tree.Title(), "a");
    EXPECT_EQ(tree.MaxVelocity(0) + tree.Durability(), "");
}

TEST_F(ConsistTreeTest, ErrorForOtherFilesNamesTheMissingBlock)
{
    struct Row
    {
        const char *text, *message;
    };
    const Row rows[] = {
        {"Wagon ( x )", "a.con: there is no Train block"},
        {"Train ( x )", "a.con, line 1: Train has no block TrainCfg"},
        {"SIMISA@F....", "a.con: a compressed file: its content is not read as text"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.text);
        folder.Write("a.con", row.text);
        try {
            tree.Load(path());
            ADD_FAILURE() << "loaded";
        } catch (const host::RuntimeError &error) {
            EXPECT_EQ(error.Number(), 91);
            EXPECT_TRUE(error.Detail().ends_with(row.message)) << error.Detail();
        }
        EXPECT_TRUE(tree.Rows().empty());
        const std::string before = tree.Document().ToBytes();
        const EditResult result = tree.Edit(Move::Add, 0, &box);
        EXPECT_TRUE(result.refused);
        EXPECT_TRUE(result.message.ends_with(row.message)) << result.message;
        EXPECT_EQ(tree.Document().ToBytes(), before);
        EXPECT_EQ(tree.Title() + tree.MaxVelocity(0) + tree.Durability(), "");
    }
}

struct EditRow
{
    const char *what;
    Move move;
    int row;
    const char *train;
    int selected;
};

TEST_F(ConsistTreeTest, PerformsEveryOperationOnFourUnits)
{
    const EditRow rows[] = {
        {"remove the first", Move::Remove, 1, "w1 w2 w3 3", 1},
        {"remove the second", Move::Remove, 2, "e w2 w3 3", 1},
        {"remove in the middle", Move::Remove, 3, "e w1 w3 3", 2},
        {"remove the last", Move::Remove, 4, "e w1 w2 3", 3},
        {"remove nothing", Move::Remove, 0, "e w1 w2 w3 4", 0},
        {"remove all", Move::RemoveAll, 2, "0", 0},
        {"forwards", Move::Forwards, 3, "e w2 w1 w3 4", 2},
        {"forwards over another block", Move::Forwards, 2, "w1 e w2 w3 4", 1},
        {"forwards at the front", Move::Forwards, 1, "e w1 w2 w3 4", 1},
        {"forwards without selection", Move::Forwards, 0, "e w1 w2 w3 4", 0},
        {"backwards", Move::Backwards, 2, "e w2 w1 w3 4", 3},
        {"backwards over another block", Move::Backwards, 1, "w1 e w2 w3 4", 2},
        {"backwards to the end", Move::Backwards, 3, "e w1 w3 w2 4", 4},
        {"backwards at the end", Move::Backwards, 4, "e w1 w2 w3 4", 4},
        {"backwards without selection", Move::Backwards, 0, "e w1 w2 w3 4", 0},
        {"flip", Move::Flip, 2, "e w1* w2 w3 4", 0},
        {"flip without selection", Move::Flip, 0, "e w1 w2 w3 4", 0},
        {"a row that does not exist", Move::Remove, 9, "e w1 w2 w3 4", 0},
    };
    for (const EditRow &row : rows) {
        SCOPED_TRACE(row.what);
        loadFour();
        const EditResult result = tree.Edit(row.move, row.row);
        EXPECT_EQ(train(), row.train);
        EXPECT_EQ(result.selectedRow, row.selected);
        EXPECT_EQ(result.message, "");
        EXPECT_TRUE(tree.Changed()) << "every edit marks the consist as changed";
    }
}

TEST_F(ConsistTreeTest, AddNumbersUnitsByTheCounter)
{
    load(" NextWagonUID ( 0 )\r\n Last ( )\r\n");
    EXPECT_EQ(tree.Edit(Move::Add, 0, &box).selectedRow, 1);
    const StockItem engine{"Engine", "Locos", "e"};
    EXPECT_EQ(tree.Edit(Move::Add, 1, &engine).selectedRow, 2);
    EXPECT_EQ(train(), "box e 2");
    EXPECT_EQ(uids(), "0 1 ");
    EXPECT_EQ(tree.Rows().front().position, 3) << "after all existing units";
    // The counter counts units, so after a removal a number is used again.
    tree.Edit(Move::Remove, 1);
    tree.Edit(Move::Add, 1, &box);
    EXPECT_EQ(uids(), "1 1 ");
    EXPECT_EQ(train(), "e box 2");

    EXPECT_EQ(tree.Edit(Move::Add, 2, nullptr).message, "No installed stock is selected.");
    EXPECT_EQ(train(), "e box 2");
}

TEST_F(ConsistTreeTest, NewConsistHasNoUnitCounter)
{
    tree.New();
    EXPECT_TRUE(tree.Changed());
    tree.Edit(Move::Add, 0, &box);
    tree.Edit(Move::Add, 1, &box);
    tree.Edit(Move::Remove, 1);
    EXPECT_EQ(uids(), "0 ");
    EXPECT_EQ(train(), "box -");
    EXPECT_EQ(tree.Document().FindNode("Train").Child("TrainCfg").Child("NextWagonId").Parameter(0),
              "1");
    EXPECT_EQ(tree.MaxVelocity(0), "40.00000");
}

TEST_F(ConsistTreeTest, AddNeedsA16BitCounter)
{
    const struct
    {
        const char *counter, *after, *message;
    } rows[] = {
        {"32766", "32767", ""},
        {"-32768", "-32767", ""},
        {"7.9", "8", ""},
        {"32766.9", "32767", ""}, // only the whole part counts
        {"-32768.9", "-32767", ""},
        {"1e3", "1001", ""},
        {"32767", "32767", "32767, and the new value would not fit into 16 bits."},
        {"380102", "380102", "380102, and the new value would not fit into 16 bits."},
        {"x1", "x1", "\"x1\", which is not a number."},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.counter);
        load(counterAndTwo(row.counter));
        const std::string before = tree.Document().ToBytes();
        const EditResult result = tree.Edit(Move::Add, 2, &box);
        EXPECT_EQ(train(), std::string(result.refused ? "a c " : "a c box ") + row.after);
        EXPECT_EQ(result.selectedRow, result.refused ? 2 : 3);
        EXPECT_EQ(result.message,
                  *row.message ? std::string("Nothing was changed: NextWagonUID is ") + row.message
                               : "");
        EXPECT_EQ(result.refused, before == tree.Document().ToBytes());
        if (result.refused)
            continue;
        EXPECT_TRUE(uids().ends_with(' ' + std::to_string(std::stoi(row.after) - 1) + ' '));
    }
}

TEST_F(ConsistTreeTest, RemovalDecreasesACounterOfAnySize)
{
    const struct
    {
        const char *counter, *afterRemove, *afterClear;
    } rows[] = {
        {"2", "1", "0"},
        {"40000", "39999", "39998"},
        {"380102", "380101", "380100"},
        {"-32768", "-32769", "-32770"},
        {"0", "-1", "-2"},
        {"+4", "3", "2"},
        {"99999999999", "99999999998", "99999999997"},
        {"9007199254740993", "9007199254740992", "9007199254740991"}, // more than a double holds
        {"-9223372036854775808", "-9223372036854775808", "-9223372036854775808"},
        {"12.5", "11.5", "10.5"},
        {"2.30", "1.30", "0.30"},
        {"1e3", "999", "998"},
        {"1e30", "1e30", "1e30"}, // subtracting one does not change this number
        {"x1", "", ""},
        {"0x10", "", ""},
        {"", "", ""},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.counter);
        const bool number = *row.afterRemove;
        const std::string note = number ? ""
                                        : "NextWagonUID was not changed: \"" +
                                              std::string(row.counter) + "\" is not a number.";
        const auto check = [&](Move move, const std::string &units, const char *counter) {
            load(counterAndTwo(row.counter));
            const EditResult result = tree.Edit(move, 2);
            EXPECT_EQ(train(), units + (number ? counter : row.counter));
            EXPECT_EQ(result.message, note);
            EXPECT_FALSE(result.refused);
            EXPECT_EQ(result.selectedRow, static_cast<int>(tree.Rows().size()));
        };
        check(Move::Remove, "a ", row.afterRemove);
        check(Move::RemoveAll, "", row.afterClear);
    }
}

/// Two units, one that cannot be listed, and one after it.
TEST_F(ConsistTreeTest, UnlistableUnitEndsTheRowsAndStaysInTheFile)
{
    const std::string hidden = " Wagon ( UiD ( 7 ) )\r\n" + unit("Wagon", 8, "behind f");
    const auto loadHidden = [&] {
        load(" Name ( \"a\" )\r\n NextWagonUID ( 4 )\r\n" + unit("Wagon", 0, "w1 f") +
             unit("Wagon", 1, "w2 f") + hidden);
    };
    const std::string fault = ", line 9: Wagon has no block WagonData";
    const EditRow rows[] = {
        {"add", Move::Add, 1, "w1 w2 5", 2},
        {"remove", Move::Remove, 2, "w1 3", 1},
        {"remove all", Move::RemoveAll, 0, "2", 0},
        {"forwards", Move::Forwards, 2, "w2 w1 4", 1},
        {"backwards", Move::Backwards, 1, "w2 w1 4", 2},
        {"backwards at the last row", Move::Backwards, 2, "w1 w2 4", 2},
        {"flip", Move::Flip, 2, "w1 w2* 4", 0},
    };
    for (const EditRow &row : rows) {
        SCOPED_TRACE(row.what);
        loadHidden();
        EXPECT_EQ(train(), "w1 w2 4");
        EXPECT_EQ(tree.WhyRowsEnd(), path() + fault);
        EXPECT_FALSE(tree.Changed());
        const EditResult result = tree.Edit(row.move, row.row, &box);
        EXPECT_EQ(train(), row.train);
        EXPECT_EQ(result.selectedRow, row.selected);
        EXPECT_FALSE(result.refused) << result.message;
        const bool told = row.move == Move::Add || row.move == Move::RemoveAll;
        EXPECT_EQ(result.message.ends_with(fault + '.'), told) << result.message;
        tree.Save(path());
        const std::string saved = folder.Read("a.con");
        const std::size_t at = saved.find(hidden);
        ASSERT_NE(std::string::npos, at) << saved;
        EXPECT_EQ(saved.find("box", at) != std::string::npos, row.move == Move::Add) << saved;
    }
    loadFour();
    EXPECT_EQ(tree.WhyRowsEnd(), "");
}

TEST_F(ConsistTreeTest, FlipIsTheFirstBlockAndFlippingBackRestoresTheBytes)
{
    loadFour();
    const std::string before = tree.Document().ToBytes();
    tree.Edit(Move::Flip, 2);
    const StfNodes entry = tree.Document()
                               .FindNode("Train")
                               .Child("TrainCfg")
                               .Children()
                               .Item(tree.Rows()[1].position)
                               .Children();
    EXPECT_EQ(entry.Item(1).Name(), "Flip");
    EXPECT_NE(std::string::npos, tree.Document().ToBytes().find("Wagon ( Flip ( ) UiD ( 1 )"));
    tree.Edit(Move::Flip, 2);
    EXPECT_EQ(tree.Document().ToBytes(), before);
}

struct NameRow
{
    const char *what, *inside, *file, *saved;
};

TEST_F(ConsistTreeTest, SavingUpdatesTheNameAndNothingElse)
{
    const NameRow rows[] = {
        {"name first", " Name ( old )\r\n Serial ( 1 )\r\n", "Freight1.con",
         "TrainCfg ( Freight1\r\n Name ( Freight1 )\r\n Serial ( 1 )\r\n"},
        {"a name with a blank is quoted once", " Name ( \"a b\" )\r\n", "My Train.con",
         "TrainCfg ( \"My Train\"\r\n Name ( \"My Train\" )\r\n"},
        {"no name: one is inserted first", " Serial ( 1 )\r\n MaxVelocity ( 1 2 )\r\n", "b.con",
         "TrainCfg ( b\r\n Name ( b )\r\n Serial ( 1 )\r\n MaxVelocity ( 1 2 )\r\n"},
        {"name not first", " Serial ( 1 )\r\n Name ( old )\r\n", "b.con",
         "TrainCfg ( b\r\n Serial ( 1 )\r\n Name ( b )\r\n"},
        {"empty", "", "b.con", "TrainCfg ( b\r\n \tName ( b )\r\n"},
        {"two dots", " Name ( x y )\r\n", "a.b.con", "TrainCfg ( a.b\r\n Name ( a.b )\r\n"},
        {"brackets", " Name ( x )\r\n", "b(2).con",
         "TrainCfg ( \"b(2)\"\r\n Name ( \"b(2)\" )\r\n"},
        {"quotes and a blank", " Name ( x )\r\n", "b \"c\".con",
         "TrainCfg ( \"b \\\"c\\\"\"\r\n Name ( \"b \\\"c\\\"\" )\r\n"},
        {"the same name", " Name ( a )\r\n", "a.con", "TrainCfg ( \"a\"\r\n Name ( a )\r\n"},
    };
    for (const NameRow &row : rows) {
        SCOPED_TRACE(row.what);
        const bool hasQuotes = std::string_view(row.file).find('"') != std::string_view::npos;
        if (hasQuotes && host::path::kSeparator == '\\')
            continue; // Windows has no such names
        load(row.inside);
        tree.Edit(Move::Flip, 0);
        tree.Save(folder.Path() + '/' + row.file);
        EXPECT_FALSE(tree.Changed());
        const std::string saved = folder.Read(row.file);
        EXPECT_EQ(saved, kHead + ("Train (\r\n " + std::string(row.saved)) + " )\r\n)\r\n");
        ConsistTree again(files);
        again.Load(folder.Path() + '/' + row.file);
        EXPECT_EQ(again.Title(), document::ConsistName(row.file));
        EXPECT_EQ(again.Title(), tree.Title());
    }
}

TEST_F(ConsistTreeTest, FailedSaveKeepsTheChangedMark)
{
    loadFour();
    tree.Edit(Move::Flip, 1);
    const std::string before = tree.Document().ToBytes();
    EXPECT_THROW(tree.Save(folder.Path() + "/missing/b.con"), host::RuntimeError);
    EXPECT_TRUE(tree.Changed());
    EXPECT_EQ(train(), "e* w1 w2 w3 4");
    EXPECT_EQ(tree.Document().ToBytes(), before) << "the name of the file that was not written";
    EXPECT_EQ(tree.Document().FileName(), path());
    tree.Save(path());
    EXPECT_EQ(folder.Read("a.con"), before);
}

TEST_F(ConsistTreeTest, ReportsAChangeOnDiskUntilTheNextLoadOrSave)
{
    loadFour();
    const std::string other = folder.At("b.con");
    EXPECT_FALSE(tree.ChangedOnDisk(path()));
    const auto change = [&] { folder.Write("a.con", folder.Read("a.con") + "\r\n"); };
    change();
    EXPECT_TRUE(tree.ChangedOnDisk(path()));
    EXPECT_FALSE(tree.ChangedOnDisk(other)) << "not the file of this consist";
    tree.SaveCopy(other);
    EXPECT_TRUE(tree.ChangedOnDisk(path())) << "a copy is not a save";
    tree.Load(path());
    EXPECT_FALSE(tree.ChangedOnDisk(path()));

    change();
    EXPECT_THROW(tree.Save(folder.At("missing/a.con")), host::RuntimeError);
    EXPECT_TRUE(tree.ChangedOnDisk(path())) << "nothing was saved";
    tree.Save(path());
    EXPECT_FALSE(tree.ChangedOnDisk(path()));
    tree.Save(other);
    change();
    EXPECT_FALSE(tree.ChangedOnDisk(path())) << "the consist belongs to the other file now";

    tree.New(folder.At("new.con"));
    EXPECT_FALSE(tree.ChangedOnDisk(folder.At("new.con")));
    folder.Write("new.con", "by others");
    EXPECT_TRUE(tree.ChangedOnDisk(folder.At("new.con")));
}

TEST_F(ConsistTreeTest, SavesOnlyOverTheContentThatItIsGiven)
{
    loadFour();
    tree.Edit(Move::Flip, 1);
    folder.Write("a.con", "by others");
    EXPECT_THROW(tree.Save(path(), tree.OnDisk()), host::FileChanged);
    EXPECT_EQ(folder.Read("a.con"), "by others");
    EXPECT_TRUE(tree.Changed());
    tree.Save(path(), host::FileState(path(), "by others"));
    EXPECT_FALSE(tree.Changed());
    tree.Edit(Move::Flip, 2);
    tree.Save(path(), tree.OnDisk());
    EXPECT_FALSE(tree.Changed());
}

TEST(StockPathTest, TypeDecidesTheExtension)
{
    EXPECT_EQ(document::StockPath("/ms", {"Wagon*", "My Stock", "box"}),
              host::path::Normalise("/ms/Trains/Trainset/My Stock/box.wag"));
    EXPECT_EQ(document::StockPath("/ms", {"Engine", "L", "e"}),
              host::path::Normalise("/ms/Trains/Trainset/L/e.eng"));
}

} // namespace
