// SPDX-License-Identifier: MIT
#include "install/Train.h"

#include "host/GameFiles.h"

#include <gtest/gtest.h>

#include <functional>

using install::StockItem;
using install::StockName;
using install::Unit;
using install::Units;

namespace {

class TrainTest : public testing::Test
{
protected:
    StfFile read(std::string text)
    {
        StfFile file(m_files);
        file.SetFileName("a.con");
        file.LoadBytes(std::move(text));
        return file;
    }
    StfNode train(const std::string &content)
    {
        return install::FindTrain(read("Train ( TrainCfg ( " + content + " ) )"));
    }
    /// The first unit of a train.
    Unit unit(const std::string &content) { return *Units(train(content)).begin(); }
    static std::string fault(const std::function<void()> &action)
    {
        try {
            action();
        } catch (const host::RuntimeError &error) {
            return std::to_string(error.Number()) + ' ' + error.Detail();
        }
        return {};
    }

private:
    host::GameFiles m_files;
};

TEST_F(TrainTest, UnitsAreWalkedInFileOrderWithTheirPositions)
{
    std::string walked;
    for (const Unit unit : Units(train("x Name ( ) Engine ( Flip ( ) ) Wagons ( ) Wagon ( )")))
        walked += std::to_string(unit.Position()) + unit.Kind() + (unit.IsFlipped() ? "* " : " ");
    EXPECT_EQ(walked, "2Engine* 4Wagon ");
    for (const StfNode &none : {StfNode(), train("Name ( )")})
        for (const Unit unit : Units(none))
            ADD_FAILURE() << unit.Kind();
}

TEST_F(TrainTest, AUnitBeyond16BitsEndsTheWalkWithAnError)
{
    std::string content = "Wagon ( )";
    for (int i = 0; i < 32767; ++i)
        content += " a ( )";
    const StfNode longTrain = train(content + " Wagon ( )");
    int walked = 0;
    EXPECT_EQ(fault([&] {
                  for (const Unit unit : Units(longTrain))
                      walked += unit.Position();
              }),
              "6 a.con, line 1: TrainCfg has more than 32767 entries");
    EXPECT_EQ(walked, 1);
}

/// Lists join a folder name that was split at its blank; checks take the values as they are.
TEST_F(TrainTest, ListsAndChecksReadTheDataBlockDifferently)
{
    const struct
    {
        const char *content;
        StockItem item;
        StockName stock;
    } rows[] = {
        {"Wagon ( WagonData ( box Cars ) )", {"Wagon", "Cars", "box"}, {"box", "Cars"}},
        {"Engine ( EngineData ( e My Locos ) )", {"Engine", "My Locos", "e"}, {"e", "My"}},
        {"Wagon ( WagonData ( a b c d ) )", {"Wagon", "b", "a"}, {"a", "b"}},
    };
    for (const auto &row : rows) {
        const Unit found = unit(row.content);
        EXPECT_EQ(found.Item(), row.item) << row.content;
        EXPECT_EQ(found.Stock(), row.stock) << row.content;
        EXPECT_TRUE(found.Names(row.stock)) << row.content;
        EXPECT_FALSE(found.Names({row.stock.base, "cars"})) << row.content;
    }
}

TEST_F(TrainTest, UnitsWithoutTheirValues)
{
    const Unit bare = unit("\nWagon ( EngineData ( a b ) )");
    EXPECT_EQ(fault([&] { bare.Item(); }), "91 a.con, line 2: Wagon has no block WagonData");
    EXPECT_EQ(fault([&] { bare.Stock(); }).substr(0, 2), "91");
    EXPECT_FALSE(bare.Names({"a", "b"}));
    const Unit half = unit("Wagon ( WagonData ( a ) )");
    EXPECT_EQ(half.Item(), (StockItem{"Wagon", "", "a"}));
    EXPECT_EQ(fault([&] { half.Stock(); }).substr(0, 2), "9 ");
}

TEST_F(TrainTest, FilesWithoutATrainSayWhy)
{
    const auto faultOf = [this](const char *text) {
        const StfFile file = read(text);
        EXPECT_FALSE(install::FindTrain(file)) << text;
        return fault([&] { install::RequireTrain(file); });
    };
    EXPECT_EQ(faultOf("Wagon ( )"), "91 a.con: there is no Train block");
    EXPECT_EQ(faultOf("Train ( )"), "91 a.con, line 1: Train has no block TrainCfg");
    EXPECT_EQ(faultOf("SIMISA@F...."),
              "91 a.con: a compressed file: its content is not read as text");
    EXPECT_EQ(install::TrainTitle(train("\" My\" train \"\" Name ( no )")), "My train");
    EXPECT_EQ(install::TrainTitle({}), "");
}

TEST(StockNameTest, IsTheBaseNameAndTheFolder)
{
    const struct
    {
        const char *path;
        StockName name;
    } rows[] = {
        {"/ms/Trains\\Trainset/A/long.name.wag", {"long.name", "A"}},
        {"A\\b.eng", {"b", "A"}},
        {"b.eng", {"b", "."}},
        {"/b.eng", {"b", ""}},
        {"A/x", {"", "A"}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(StockName::Of(row.path), row.name) << row.path;
}

} // namespace
