// SPDX-License-Identifier: MIT
#include "TreeText.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using host::RuntimeError;
using support::TempFolder;

namespace {

const char *const kConsist =
    "SIMISA@@@@@@@@@@JINX0D0t______\r\n"
    "\r\n"
    "Train (\r\n"
    "\tTrainCfg ( \"demo freight\"\r\n"
    "\t\tName ( \"Demo, \\\"north\\\"\" )\r\n"
    "\r\n"
    "\t\tcomment ( the engine )\r\n"
    "\t\tEngine (\r\n"
    "\t\t\tUiD ( 0 )\r\n"
    "\t\t\tEngineData ( Loco12 \"Demo Locos\" )\r\n"
    "\t\t)\r\n"
    "\t\tWagon ( WagonData ( \"box car\" DemoCars ) UiD ( 1 ) ) #x ( y )\r\n"
    "\t)\r\n"
    ")\r\n";

struct Row
{
    const char *what;
    const char *from; ///< the part of the text that should change
    const char *to;
    std::function<void(StfNode &cfg)> edit;
};

std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(std::string::npos, at) << from;
    return text.replace(at, from.size(), to);
}

StfNode added(StfNodes list, int place, const char *name, const std::vector<std::string> &values)
{
    StfNode node = StfNode::Create();
    node.SetName(name);
    node.SetNumParameters(static_cast<int>(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i)
        node.SetParameter(static_cast<int>(i), values[i]);
    list.Insert(node, place);
    return node;
}

void moved(StfNodes list, int from, int to)
{
    const StfNode node = list.Item(from);
    list.Remove(from);
    list.Insert(node, to);
}

TEST(StfSaveTest, RewritesOnlyChangedParts)
{
    const Row rows[] = {
        {"nothing", "", "", [](StfNode &) {}},
        {"a value set to its present text", "", "",
         [](StfNode &cfg) {
             cfg.SetParameter(0, "demo freight");
             cfg.SetParameter(0, "\"demo freight\"");
         }},
        {"an unquoted value", "\"demo freight\"", "Freight1",
         [](StfNode &cfg) { cfg.SetParameter(0, "Freight1"); }},
        {"a value in quotes", "\"demo freight\"", "\"My \\\"x\\\"\"",
         [](StfNode &cfg) { cfg.SetParameter(0, "\"My \\\"x\\\"\""); }},
        {"quotes within a word", "\"demo freight\"", "\"a\\\"b\"",
         [](StfNode &cfg) { cfg.SetParameter(0, "\"a\"b\""); }},
        {"a value that needs quotes", "\"demo freight\"",
         "\"Wagon\" \"_a\" \"x(1)\\\\\\n\" \"\" -1.5",
         [](StfNode &cfg) {
             cfg.SetNumParameters(5);
             const char *values[] = {"Wagon", "_a", "x(1)\\\n", "", "-1.5"};
             for (int i = 0; i < 5; ++i)
                 cfg.SetParameter(i, values[i]);
         }},
        {"a flag in a block of several lines", "Engine (\r\n", "Engine (\r\n\t\t\tFlip ( )\r\n",
         [](StfNode &cfg) { added(cfg.Child("Engine").Children(), 1, "Flip", {""}); }},
        {"a flag in a block of one line", "Wagon ( ", "Wagon ( Flip ( ) ",
         [](StfNode &cfg) { added(cfg.Child("Wagon").Children(), 1, "Flip", {""}); }},
        {"a flag and back", "", "",
         [](StfNode &cfg) {
             added(cfg.Child("Engine").Children(), 1, "Flip", {""});
             cfg.Child("Engine").Children().Remove(1);
         }},
        {"moved there and back", "", "",
         [](StfNode &cfg) {
             moved(cfg.Children(), 2, 3);
             moved(cfg.Children(), 3, 2);
         }},
        {"a new unit after the last", "UiD ( 1 ) )",
         "UiD ( 1 ) )\r\n\t\tWagon (\r\n\t\t\tUiD ( 2 )\r\n\t\t\tWagonData ( a \"b c\" )\r\n\t\t)",
         [](StfNode &cfg) {
             StfNode wagon = added(cfg.Children(), 4, "Wagon", {});
             added(wagon.Children(), 1, "UiD", {"2"});
             added(wagon.Children(), 2, "WagonData", {"a", "b c"});
         }},
        {"a block as the first child", "\"demo freight\"", "\"demo freight\"\r\n\t\tSerial ( 1 )",
         [](StfNode &cfg) { added(cfg.Children(), 1, "Serial", {"1"}); }},
        {"a renamed block", "Engine (", "Wagon (",
         [](StfNode &cfg) { cfg.Child("Engine").SetName("Wagon"); }},
        {"a removed block keeps the comment before it",
         "\t\tcomment ( the engine )\r\n"
         "\t\tEngine (\r\n\t\t\tUiD ( 0 )\r\n\t\t\tEngineData ( Loco12 \"Demo Locos\" "
         ")\r\n\t\t)\r\n",
         "\t\tcomment ( the engine )\r\n", [](StfNode &cfg) { cfg.Children().Remove(2); }},
        {"fewer values", " Loco12 \"Demo Locos\" )", " Loco12 )",
         [](StfNode &cfg) { cfg.Child("Engine").Child("EngineData").SetNumParameters(1); }},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        MemoryFile memory(Utf16(kConsist));
        StfNode cfg = memory.file.FindNode("Train").Child("TrainCfg");
        row.edit(cfg);
        EXPECT_EQ(memory.file.ToBytes(), Utf16(replaced(kConsist, row.from, row.to)));
    }
}

TEST(StfSaveTest, NewDocumentHasTheUsualForm)
{
    host::GameFiles files;
    StfFile file(files);
    StfNode train = added(file.TopNodes(), 1, "Train", {});
    StfNode cfg = added(train.Children(), 1, "TrainCfg", {"\"My Train\""});
    added(cfg.Children(), 1, "MaxVelocity", {"40.00000", "1.00000"});
    EXPECT_EQ(cfg.Parameter(0), "My Train");
    EXPECT_EQ(file.ToBytes(), Utf16("SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n"
                                    "Train (\r\n\tTrainCfg ( \"My Train\"\r\n"
                                    "\t\tMaxVelocity ( 40.00000 1.00000 )\r\n\t)\r\n)\r\n"));
}

struct BrokenRow
{
    const char *what;
    const char *text;
    const char *saved;
};

/// Adds `N ( )` to the first block's children and a value to its second child, if there is one.
TEST(StfSaveTest, RepairsBrokenFilesOnlyWhereNeeded)
{
    const BrokenRow rows[] = {
        {"unclosed, the new block is last", "A ( B ( 1 )\r\n", "A ( B ( 1 ) N ( )\r\n"},
        {"the last child unclosed", "A (\r\n B ( 1 )\r\n C ( 2\r\n",
         "A (\r\n B ( 1 )\r\n C ( 2\r\n )\r\n N ( )\r\n"},
        {"unclosed string", "A ( B ( \"x", "A ( B ( \"x\" ) N ( )"},
        {"unclosed comment", "A ( B ( 1 ) comment ( \"x ) ", "A ( B ( 1 ) N ( ) comment ( \"x ) "},
        {"unclosed comment in the last child", "A ( B ( comment ( \"x ) ",
         "A ( B ( comment ( \"x ) \") ) N ( )"},
        {"glued", "A(x)B(y)", "A(x N ( ))B(y)"},
        {"no line ends at all", "A ( B ( 1 ) C ( 2 ) )", "A ( B ( 1 ) C ( 2 ) N ( ) )"},
        {"surplus brackets and words", "A ( ) ) x ) B ( ) y", "A ( N ( ) ) ) x ) B ( ) y"},
    };
    for (const BrokenRow &row : rows) {
        SCOPED_TRACE(row.what);
        MemoryFile memory(row.text);
        const StfNodes children = memory.file.Nodes().Item(1).Children();
        added(children, children.Count() + 1, "N", {});
        EXPECT_EQ(memory.file.ToBytes(), row.saved);
        EXPECT_EQ(TreeOf(memory.file.ToBytes()), TreeText(memory.file.Nodes()));
    }
}

TEST(StfSaveTest, NeighboursOfAChangeKeepTheirMeaning)
{
    const struct
    {
        const char *what, *text;
        int value; ///< set to "a b" in the first block
        const char *saved;
    } rows[] = {
        {"a plus behind the first value", "A ( 1 +x )", 0, "A ( \"a b\" \"+x\" )"},
        {"a plus behind a later value", "A ( 1 2 +x 3 )", 1, "A ( 1 \"a b\" \"+x\" 3 )"},
        {"a plus behind a value that was quoted", "A ( 1 \"q\" 2 )", 2, "A ( 1 \"q\" \"a b\" )"},
        {"a plus further behind", "A ( 1 2 +x )", 0, "A ( \"a b\" 2 +x )"},
        {"an unclosed block elsewhere", "A ( 1 ) B ( 2", 0, "A ( \"a b\" ) B ( 2"},
        {"unclosed blocks elsewhere", "A ( 1 ) B ( 2 C ( \"x", 0, "A ( \"a b\" ) B ( 2 C ( \"x"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.what);
        MemoryFile memory(row.text);
        memory.file.Nodes().Item(1).SetParameter(row.value, "a b");
        EXPECT_EQ(memory.file.ToBytes(), row.saved);
        EXPECT_EQ(TreeOf(memory.file.ToBytes()), TreeText(memory.file.Nodes()));
    }
}

TEST(StfSaveTest, NewLinesEndAsInTheFile)
{
    for (const auto &[text, saved] :
         {std::pair("A ( 1 )", "A ( 1 )\r\nN ( )"), std::pair("A ( 1 )\n", "A ( 1 )\nN ( )\n"),
          std::pair("A ( 1 )\r\n", "A ( 1 )\r\nN ( )\r\n"),
          std::pair("\nA ( 1 )", "\nA ( 1 )\nN ( )")}) {
        MemoryFile memory(text);
        added(memory.file.Nodes(), 2, "N", {});
        EXPECT_EQ(memory.file.ToBytes(), saved);
    }
}

const char *const kOddTexts[] = {
    kConsist,
    "A(x)B(y(z)w)\"q\"C()",
    "A ( \"a\" + \"b\" + c D ( 1 ) 2 E ( 3 ) \"f\"g h\" i )",
    "A ( B ( 1 C ( 2 \"x\\",
    "A ( B ( 1 ) #x C ( 2 comment ( \" ) ",
    "A ( B ( 1 ) C ( 2 ) ) D ( 3 ) ) ) E ( 4\n",
    "Wagon ( n WagonShape lbl ( \"a.s\" ) ( ( 1 ) 2 ) Sound ( _x ) \"y\" ( 5 ) #last )",
    "shape ( matrix M ( 1 2 ) points ( 2 point ( 1 2 ) point ( 3 4 ) ) )\n",
    "A ( #a b C ( 1 )# d e F ( 2 )#g h I ( 3 )#j )",
    "Sound ( _x #c d ( 1 ) E ( 2 ) )",
};

StfNode randomNode(const StfNodes &top, std::mt19937 &random)
{
    StfNode node;
    for (StfNodes list = top; list.Count() > 0 && (!node || random() % 3); list = node.Children())
        node = list.Item(static_cast<int>(random() % static_cast<unsigned>(list.Count())) + 1);
    return node;
}

void editRandomly(StfFile &file, std::mt19937 &random)
{
    const char *const kValues[] = {"x", "", "#c", "a b", "Wagon", "\"q\"", "(", "\\", "+", "_"};
    StfNode node = randomNode(file.Nodes(), random);
    StfNodes list = node && random() % 4 ? node.Children() : file.Nodes();
    const int count = list.Count();
    const int place = count ? static_cast<int>(random() % static_cast<unsigned>(count)) + 1 : 1;
    switch (random() % 5) {
    case 0:
        added(list, place, "New", {kValues[random() % 10]});
        break;
    case 1:
        if (count > 0)
            list.Remove(place);
        break;
    case 2:
        if (count > 0)
            moved(list, place, static_cast<int>(random() % static_cast<unsigned>(count)) + 1);
        break;
    case 3:
        if (node && node.NumParameters() > 0)
            node.SetParameter(
                static_cast<int>(random() % static_cast<unsigned>(node.NumParameters())),
                kValues[random() % 10]);
        break;
    default:
        if (node)
            node.SetNumParameters(static_cast<int>(random() % 4));
        break;
    }
}

TEST(StfSaveTest, EditedFilesReadBackAsTheSameTree)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 4000; ++round) {
        const std::string text =
            WithHeader(kOddTexts[static_cast<unsigned>(round) % std::size(kOddTexts)]);
        MemoryFile memory(round % 3 ? text : Utf16(text));
        std::string tree = TreeText(memory.file.Nodes());
        for (int edit = 0; edit < 6; ++edit) {
            const std::string before = tree;
            editRandomly(memory.file, random);
            tree = TreeText(memory.file.Nodes());
            const std::string saved = memory.file.ToBytes();
            ASSERT_EQ(TreeOf(saved), tree) << "round " << round << ", edit " << edit << "\nfrom "
                                           << before << "\nsaved as " << saved;
        }
    }
}

TEST(StfSaveTest, SavesFilesOnDisk)
{
    TempFolder folder;
    folder.Write("Sub/a.con", Utf16(kConsist));
    host::GameFiles files;
    StfFile file(files);
    file.SetFileName(folder.Path() + "/SUB\\A.con");
    file.Load();
    file.FindNode("Train").Child("TrainCfg").SetParameter(0, "x");
    file.Save();
    EXPECT_EQ(folder.Read("Sub/a.con"), Utf16(replaced(kConsist, "\"demo freight\"", "x")));

    file.SetFileName(folder.Path() + "/nothing.con");
    try {
        file.Load();
        FAIL() << "read a missing file";
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.Number(), 53);
        EXPECT_NE(std::string::npos, error.Detail().find("nothing.con"));
    }
    EXPECT_TRUE(file.FindNode("Train")) << "a failed load keeps the tree";
}

} // namespace
