// SPDX-License-Identifier: MIT
// Tests the searches for vehicles and consists, and the facts that they compare.
#include "content/StockQuery.h"
#include "content/SearchTerms.h"
#include "content/StockReader.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <thread>

namespace content {
namespace {

using Number = StockFacts::Number;
using State = Figure::State;

std::shared_ptr<StockFacts> facts(const std::string &name, const std::string &kinds, double length,
                                  double mass)
{
    auto made = std::make_shared<StockFacts>();
    made->name = name;
    made->kinds = kinds;
    made->numbers[static_cast<std::size_t>(FigureId::Length)] = {State::Known, length};
    made->numbers[static_cast<std::size_t>(FigureId::Mass)] = {State::Known, mass};
    made->numbers[static_cast<std::size_t>(FigureId::Power)] = {State::NotApplicable, 0};
    return made;
}

/// Six vehicles, each with a letter.
std::vector<std::pair<char, SearchedStock>> vehicles()
{
    const auto diesel = facts("Big Blue", "ENGINE DIESEL", 20, 90000);
    diesel->numbers[static_cast<std::size_t>(FigureId::Power)] = {State::Known, 1.5e6};
    diesel->numbers[static_cast<std::size_t>(FigureId::MaximumSpeed)] = {State::Known, 33.3333};
    const auto chained = facts("Coal Hopper", "FREIGHT ", 12.2, 29900);
    chained->coupling = "Chain";
    chained->brakes = "Vacuum_single_pipe";
    const auto broken = facts("Broken", "FREIGHT ", 0, 0);
    broken->numbers[static_cast<std::size_t>(FigureId::Mass)].state = State::Unreadable;
    const auto gone = std::make_shared<StockFacts>();
    gone->isMissing = true;
    std::vector<std::pair<char, SearchedStock>> all = {
        {'d', SearchedStockOf({"Engine*", "GP38 Pack", "gp38a"}, diesel)},
        {'c', SearchedStockOf({"Wagon", "Boxcars", "hopper"}, chained)},
        {'l', SearchedStockOf({"Wagon", "Long Wagons", "flat"},
                              facts("Büro", "CARRIAGE ", 26.4, 30100))},
        {'b', SearchedStockOf({"Wagon", "Boxcars", "bad"}, broken)},
        {'g', SearchedStockOf({"Wagon", "Gone", "gone"}, gone)},
        {'u', SearchedStockOf({"Engine", "Unread", "steam"}, nullptr)}};
    all[1].second.lacksFiles = all[4].second.lacksFiles = true;
    return all;
}

std::string matching(const StockQuery &query)
{
    std::string letters;
    for (const auto &[letter, vehicle] : vehicles())
        if (query.Matches(vehicle))
            letters += letter;
    return letters;
}

} // namespace

TEST(StockQueryTest, MatchesWordsAndTerms)
{
    const struct
    {
        const char *text, *matches;
    } rows[] = {
        {"", "dclbgu"},
        {"  ", "dclbgu"},
        {"gp38", "d"},
        {"HOPPER box", "c"},
        {"box hopper gp38", ""},
        {"blue", "d"},
        {"büRO", "l"},
        {"\"big blue\"", "d"},
        {"\"blue big\"", ""},
        {"\"long wag", "l"},
        {"type:engine", "du"},
        {"type:Wag", "clbg"},
        {"type:diesel", "d"},
        {"type:freight", "cb"},
        {"type:reight", ""},
        {"folder:box", "cb"},
        {"folder:hopper", ""},
        {"folder:\"long wagons\"", "l"},
        {"file:gp38a", "d"},
        {"file:pack", ""},
        {"name:coal", "c"},
        {"name:hopper folder:box", "c"},
        {"coupling:chain", "c"},
        {"brakes:vacuum", "c"},
        {"length>20", "l"},
        {"length>=20", "dl"},
        {"length<20m", "cb"},
        {"length>65ft", "dl"},
        {"length:20", "d"},
        {"length=12.25", "c"},
        {"length>26,3", "l"},
        {"mass<30t", "c"},
        {"mass<30", "c"},
        {"mass>30 mass<31", "l"},
        {"mass>=0", "dcl"},
        {"power>1000", "d"},
        {"power<1", ""},
        {"speed>119km/h", "d"},
        {"speed>70mph speed<80mph", "d"},
        {"axles>0", ""},
        {"missing:shape", "c"},
        {"missing:vehicle", "g"},
        // not a known key: the text is looked for
        {"colour:red", ""},
        {"a:b", ""},
        {":", ""},
        // incomplete terms leave the list as it is
        {"type:", "dclbgu"},
        {"length>", "dclbgu"},
        {"length>abc gp38", "d"},
        {"length>1e999", "dclbgu"},
        {"missing:x box", "cb"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(matching(StockQuery(row.text, UnitSystem::Metric)), row.matches) << row.text;
}

TEST(StockQueryTest, NumbersWithoutUnitHaveTheShownUnit)
{
    EXPECT_EQ(matching(StockQuery("length>66", UnitSystem::Us)), "l");
    EXPECT_EQ(matching(StockQuery("mass>33", UnitSystem::Us)), "dl");
    EXPECT_EQ(matching(StockQuery("mass>33", UnitSystem::Uk)), "d");
    EXPECT_EQ(matching(StockQuery("speed>75", UnitSystem::Us)), "");
    EXPECT_EQ(matching(StockQuery("speed>74", UnitSystem::Uk)), "d");
}

TEST(StockQueryTest, RemarksNameTheTermThatCannotBeUsed)
{
    const struct
    {
        const char *text, *remark;
    } rows[] = {{"length>20 gp38", ""},
                {"length>abc", "length> needs a number, like 20 m"},
                {"mass<=", "mass<= needs a number, like 20 t"},
                {"axles=x", "axles= needs a number"},
                {"missing:", "missing: needs \"shape\" or \"vehicle\""}};
    for (const auto &row : rows)
        EXPECT_EQ(StockQuery(row.text, UnitSystem::Metric).Remark(), row.remark) << row.text;
    EXPECT_TRUE(StockQuery("length>", UnitSystem::Metric).IsEmpty());
    EXPECT_TRUE(StockQuery("a missing:s", UnitSystem::Metric).NeedsMissing());
    EXPECT_FALSE(StockQuery("missing", UnitSystem::Metric).NeedsMissing());
}

TEST(ConsistQueryTest, MatchesNamesAndVehicles)
{
    const std::string vehicles = VehicleKey("Boxcars", "hopper") + VehicleKey("My Stock", "gp38a");
    const struct
    {
        const char *text;
        bool matches;
    } rows[] = {{"", true},
                {"coal", true},
                {"north coal", true},
                {"coal south", false},
                {"has:hopper", true},
                {"has:HOPPER has:gp38", true},
                {"has:hopper has:oil", false},
                {"has:boxcars/hopper.wag", true},
                {"has:boxcars\\hopper", true},
                {"has:\"my stock/gp38a.eng\" coal", true},
                {"has:stock/hopper", false},
                {"has:", true},
                {"has:hopper south", false}};
    for (const auto &row : rows)
        EXPECT_EQ(ConsistQuery(row.text).Matches("COAL NORTH", vehicles), row.matches) << row.text;
    EXPECT_FALSE(ConsistQuery("has:x").Matches("X", "")) << "not known yet";
    EXPECT_TRUE(ConsistQuery("has:x").NeedsVehicles());
    EXPECT_FALSE(ConsistQuery("has").NeedsVehicles());
}

namespace {

class StockReaderTest : public testing::Test
{
protected:
    void stock(const std::string &name, const std::string &text)
    {
        m_disk.Write("TRAINS/TRAINSET/" + name, "\n" + text);
    }
    static std::string row(const StockFacts &facts, UnitSystem system)
    {
        std::string text;
        for (int column = 0; column < kFactColumns; ++column)
            text += (column ? "|" : "") + FactText(facts, FactColumn(column), system);
        return text;
    }

    support::TempFolder m_disk;
};

} // namespace

TEST_F(StockReaderTest, ReadsFactsOfAllKindsOfVehicles)
{
    stock("A/e.eng", "Wagon ( e Name ( \"Big Blue\" ) Type ( Engine ) Size ( 3m 4m 20m ) "
                     "Mass ( 100t ) BrakeSystemType ( \"Air_single_pipe\" )\n"
                     "Coupling ( Type ( Automatic ) ) Coupling ( Type ( Automatic ) )\n"
                     "Coupling ( Type ( Bar ) ) )\n"
                     "Engine ( e Type ( Diesel ) MaxPower ( 2000kW ) MaxVelocity ( 120km/h ) )");
    stock("A/w.wag",
          "Wagon ( w Name ( " + std::string(10000, 'x') + " ) Size ( 3m 4m -5m ) Mass ( abc ) )");
    stock("A/not.wag", "Train ( )");
    StockReader reader(m_disk.Path(), 2);
    const install::StockItem engine{"Engine", "a", "E"}, wagon{"Wagon*", "A", "w"},
        damaged{"Wagon", "A", "not"}, missing{"Wagon", "A", "none"};
    EXPECT_EQ(reader.Facts(engine), nullptr);
    reader.ReadFacts({engine, wagon, damaged, missing});
    reader.Wait();
    EXPECT_EQ(row(*reader.Facts(engine), UnitSystem::Metric),
              "Big Blue|20 m|100 t|2,000 kW|120 km/h|Automatic, Bar|Air_single_pipe");
    EXPECT_EQ(row(*reader.Facts(engine), UnitSystem::Us),
              "Big Blue|65.6 ft|110 t-us|2,680 hp|74.6 mph|Automatic, Bar|Air_single_pipe");
    const std::string name = FactText(*reader.Facts(wagon), FactColumn::Name, UnitSystem::Metric);
    EXPECT_EQ(name, std::string(200, 'x') + "\u2026");
    EXPECT_EQ(row(*reader.Facts(wagon), UnitSystem::Metric).substr(name.size()), "|?|?|||?|?");
    EXPECT_EQ(reader.Facts(damaged)->fault, "there is no Wagon block");
    EXPECT_FALSE(reader.Facts(damaged)->isMissing);
    EXPECT_TRUE(reader.Facts(missing)->isMissing);
    EXPECT_EQ(reader.Unit(engine), nullptr) << "facts need less memory";
    reader.ReadUnits({engine});
    reader.Wait();
    EXPECT_EQ(reader.Unit(engine)->figures[FigureId::Power].text, "2000kW");
}

TEST_F(StockReaderTest, MakesTheSheetOfAConsistUnlessItIsDropped)
{
    stock("A/w.wag", "Wagon ( w Size ( 3m 4m 15m ) Mass ( 40t ) )");
    m_disk.Write("TRAINS/CONSISTS/two.con",
                 "\nTrain ( TrainCfg ( two Wagon ( WagonData ( w A ) UiD ( 0 ) )\n"
                 "Wagon ( WagonData ( none A ) UiD ( 1 ) ) ) )");
    StockReader reader(m_disk.Path(), 1);
    const auto sheet = std::make_shared<ConsistSheet>(m_disk.At("TRAINS/CONSISTS/two.con"));
    const auto gone = std::make_shared<ConsistSheet>(m_disk.At("TRAINS/CONSISTS/gone.con"));
    reader.ReadConsist(sheet);
    reader.ReadConsist(std::make_shared<ConsistSheet>("dropped"));
    reader.ReadConsist(gone);
    reader.Wait();
    ASSERT_TRUE(sheet->isDone);
    EXPECT_EQ(FigureText(sheet->sheet, FigureId::Mass, UnitSystem::Metric),
              "\u2265 40 t, 1 unknown");
    EXPECT_EQ(sheet->fault, "");
    ASSERT_TRUE(gone->isDone);
    EXPECT_NE(gone->fault, "");
}

TEST_F(StockReaderTest, CanBeDestroyedWhileItReads)
{
    std::vector<install::StockItem> items;
    for (int i = 0; i < 2000; ++i) {
        stock("A/" + std::to_string(i) + ".wag", "Wagon ( w Mass ( 40t ) )");
        items.push_back({"Wagon", "A", std::to_string(i)});
    }
    StockReader reader(m_disk.Path(), 2);
    reader.ReadFacts(items);
    while (reader.Done() == 0)
        std::this_thread::yield();
    reader.ReadUnits({items.back()});
}

} // namespace content
