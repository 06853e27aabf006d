// SPDX-License-Identifier: MIT
#include "TreeText.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <ranges>

using host::RuntimeError;

namespace {

int errorOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const RuntimeError &error) {
        return error.Number();
    }
    return 0;
}

TEST(StfNodeTest, LookUpIsCaseSensitiveOnlyBelowTheTop)
{
    MemoryFile memory("Tr_Activity ( Name ( a ) name ( b ) )");
    const StfNode top = memory.file.FindNode("tr_activity");
    ASSERT_TRUE(top);
    EXPECT_EQ(top.Child("Name").Parameter(0), "a");
    EXPECT_EQ(top.Child("name").Parameter(0), "b");
    EXPECT_FALSE(top.Child("NAME"));
    EXPECT_FALSE(memory.file.FindNode("Tr_Activit"));
}

TEST(StfNodeTest, FindChildTriesAlternativesInFileOrder)
{
    MemoryFile memory("T ( Name ( ) Engine ( 1 ) Wagons ( ) Wagon ( 2 ) Engine ( 3 ) )");
    const StfNode top = memory.file.FindNode("T");
    std::string walked;
    std::int16_t position = 0;
    while (top.FindChild("Engine|Wagon", position))
        walked += std::to_string(position) + ' ';
    EXPECT_EQ(walked, "2 4 5 ");
    EXPECT_EQ(position, 5);
    position = 0;
    EXPECT_FALSE(top.FindChild("", position) || top.FindChild("engine|Wag", position));
    EXPECT_EQ(position, 0);
}

TEST(StfNodeTest, PositionsBeyond16BitsAreErrors)
{
    std::string text = "T (";
    for (int i = 0; i < 32767; ++i)
        text += " a ( )";
    MemoryFile memory(text + " b ( ) )");
    std::int16_t position = 32766;
    EXPECT_TRUE(memory.file.FindNode("T").FindChild("a", position));
    EXPECT_EQ(errorOf([&] { memory.file.FindNode("T").FindChild("b", position); }), 6);
}

TEST(StfNodeTest, ListsAreLive)
{
    MemoryFile memory("T ( a ( ) b ( ) c ( ) )");
    const StfNodes list = memory.file.FindNode("T").Children();
    const StfNodes same = memory.file.TopNodes().Item(1).Children();
    StfNode made = StfNode::Create();
    list.Item(2);
    StfNodes changed = list;
    changed.Insert(made, 2);
    made.SetName("new");
    changed.Remove(1);
    made.SetNumParameters(2);
    made.SetParameter(1, "v");
    EXPECT_EQ(TreeText(memory.file.Nodes()), "T(new(|v) b() c())");
    EXPECT_EQ(same.Count(), 3);
    EXPECT_TRUE(same.Item(1) == made);
}

TEST(StfNodeTest, LoopsFollowTheLiveList)
{
    static_assert(std::ranges::input_range<StfNodes>);
    MemoryFile memory("T ( a ( ) b ( ) c ( ) d ( ) ) U ( )");
    StfNodes list = memory.file.FindNode("T").Children();
    const auto walked = [&](const std::function<void(const StfNode &)> &act) {
        std::string names;
        for (const StfNode node : list) {
            names += node.Name();
            act(node);
        }
        return names;
    };
    EXPECT_EQ(walked([](const StfNode &) {}), "abcd");
    EXPECT_EQ(walked([&](const StfNode &node) {
                  if (node.Name() == "b")
                      list.Remove(2);
              }),
              "abd");
    EXPECT_EQ(walked([&](const StfNode &node) {
                  if (node.Name() == "d")
                      list.Add(StfNode::Create());
                  if (list.Count() == 4)
                      list.Remove(1);
              }),
              "acd")
        << "the new block has moved up to the place of the last one";
    EXPECT_EQ(walked([&](const StfNode &) { memory.file.LoadBytes("V ( )"); }), "cd");
    for (const StfNode node : memory.file.FindNode("V").Children())
        ADD_FAILURE() << node.Name();
    EXPECT_FALSE(memory.file.FindNode("V").Children().First());
    EXPECT_EQ(memory.file.Nodes().First().Name(), "V");
}

TEST(StfNodeTest, RequiredBlocksThatAreAbsentAreNamedWithTheirPlace)
{
    const support::TempFolder folder;
    host::GameFiles files;
    const std::string path = folder.Write("a.con", "Other ( )\nTrain (\n  TrainCfg ( ) )");
    StfFile file = StfFile::Read(files, path);
    EXPECT_EQ(file.FileName(), path);
    const StfNode train = file.Require("TRAIN");
    EXPECT_EQ(train.Require("TrainCfg").Line(), 3);
    const auto fault = [](const std::function<void()> &action) {
        try {
            action();
        } catch (const RuntimeError &error) {
            return std::to_string(error.Number()) + ' ' + error.Detail();
        }
        return std::string();
    };
    EXPECT_EQ(fault([&] { file.Require("Wagon"); }), "91 " + path + ": there is no Wagon block");
    EXPECT_EQ(fault([&] { train.Require("traincfg"); }),
              "91 " + path + ", line 2: Train has no block traincfg");
    file.SetFileName({});
    file.LoadBytes("\nTrain ( )");
    EXPECT_EQ(fault([&] { file.Require("Wagon"); }), "91 there is no Wagon block");
    EXPECT_EQ(fault([&] { file.Require("Train").Require("x"); }),
              "91 line 2: Train has no block x");
    StfNode made = StfNode::Create();
    made.SetName("New");
    EXPECT_EQ(fault([&] { made.Require("x"); }), "91 New has no block x");
    EXPECT_EQ(fault([] { StfNode().Require("x"); }), "91 ");
}

TEST(StfNodeTest, NodesOutliveTheirFileAndItsReload)
{
    StfNode node;
    {
        MemoryFile memory("T ( a ( 1 ) )");
        node = memory.file.FindNode("T");
        memory.file.LoadBytes("U ( )");
        EXPECT_EQ(TreeText(memory.file.Nodes()), "U()");
    }
    EXPECT_EQ(TreeText(node.Children()), "a(1)");
}

TEST(StfNodeTest, MisuseThrowsANumberedError)
{
    MemoryFile memory("T ( 1 a ( b ( ) ) )");
    StfNode top = memory.file.FindNode("T");
    const StfNode none;
    StfNodes children = top.Children();
    const std::pair<int, std::function<void()>> rows[] = {
        {91, [&] { none.Name(); }},
        {91, [&] { none.Children(); }},
        {91, [&] { top.Child("x").Parameter(0); }},
        {91, [&] { children.Add(none); }},
        {9, [&] { top.Parameter(1); }},
        {9, [&] { top.Parameter(-1); }},
        {9, [&] { top.SetParameter(1, "x"); }},
        {9, [&] { children.Item(0); }},
        {9, [&] { children.Item(2); }},
        {9, [&] { children.Remove(2); }},
        {9, [&] { children.Insert(StfNode::Create(), 3); }},
        {5, [&] { top.SetNumParameters(-1); }},
        {5, [&] { top.Child("a").Child("b").Children().Add(top); }},
    };
    for (const auto &[number, action] : rows) {
        SCOPED_TRACE(&number - &rows[0].first);
        EXPECT_EQ(errorOf(action), number);
    }
    EXPECT_EQ(TreeText(memory.file.Nodes()), "T(1 a(b()))");
}

TEST(StfNodeTest, ReturnsRawSpellingAndLine)
{
    MemoryFile memory("T (\n a ( \"..\\common\\x.sms\" \"p\" + \"q\" w\" ) )");
    const StfNode node = memory.file.FindNode("T").Child("a");
    EXPECT_EQ(node.Parameter(0), "..commonx.sms");
    EXPECT_EQ(node.RawParameter(0), "\"..\\common\\x.sms\"");
    EXPECT_EQ(node.RawParameter(1), "\"p\" + \"q\"");
    EXPECT_EQ(node.RawParameter(2), "w");
    EXPECT_EQ(node.Line(), 2);
    EXPECT_EQ(StfNode::Create().Line(), 0);
}

} // namespace
