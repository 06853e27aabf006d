// SPDX-License-Identifier: MIT
// The commands figures and sheet.
#include "SampleFixture.h"
#include "host/Text.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;
using Arguments = std::vector<std::string>;

class FigureCommandsTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
        write("msts/TRAINS/TRAINSET/A/e.eng",
              "\nWagon ( e Type ( Engine ) Size ( 3m 4 18m ) Mass ( \"112.5 t #est\" )\n"
              "NumWheels ( 6 ) Coupling ( Type ( Chain ) Spring ( Break ( 1.0e6N 1.2e6 ) ) ) )\n"
              "Engine ( e Name ( \"Big one\" ) Type ( Diesel ) MaxPower ( 2984kW#4000hp )\n"
              "MaxForce ( 400kN ) MaxVelocity ( 72km/h ) )");
        write("msts/TRAINS/TRAINSET/A/w.wag", "\nWagon ( w Size ( 3m 4m 12.5m ) Mass ( abc )\n"
                                              "ORTSNumberAxles ( 4 ) MaxBrakeForce ( - ) )");
        train("c", "MaxVelocity ( 40 1 ) Engine ( EngineData ( e A ) ) Wagon ( WagonData ( W a ) )"
                   " Wagon ( WagonData ( gone A ) )");
        train("own", "MaxVelocity ( 15.5 1 ) Engine ( EngineData ( e A ) )");
    }
    void train(const std::string &name, const std::string &content)
    {
        write("msts/TRAINS/CONSISTS/" + name + ".con",
              "\nTrain ( TrainCfg ( x " + content + " ) )");
    }
    Outcome command(Arguments arguments) const
    {
        arguments.insert(arguments.begin(), {"--msts", "msts"});
        return run(arguments);
    }
};

TEST_F(FigureCommandsTest, FiguresAsJsonHaveValueTextLineAndRule)
{
    const Outcome outcome =
        command({"figures", "A/e.eng", "msts/trains/TRAINSET/A/W.WAG", "--json"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    const auto figure = [](Json value, Json text, Json line, const char *rule) {
        return Json{{"value", value}, {"text", text}, {"line", line}, {"rule", rule}};
    };
    const Json none = figure(nullptr, nullptr, nullptr, "not-applicable");
    const Json expected =
        Json::array({{{"vehicle", "A/e.eng"},
                      {"figures",
                       {{"length_m", figure(18, "18m", 2, "Size")},
                        {"mass_kg", figure(112500, "112.5 t #est", 2, "Mass")},
                        {"power_w", figure(2984000, "2984kW#4000hp", 4, "MaxPower")},
                        {"starting_effort_n", figure(400000, "400kN", 5, "MaxForce")},
                        {"continuous_effort_n", figure(400000, "400kN", 5, "MaxForce")},
                        {"top_speed_mps", figure(20, "72km/h", 5, "MaxVelocity")},
                        {"brake_force_n", figure(nullptr, nullptr, nullptr, "not-given")},
                        {"axles", figure(6, "6", 3, "NumWheels")}}}},
                     {{"vehicle", "msts/trains/TRAINSET/A/W.WAG"},
                      {"figures",
                       {{"length_m", figure(12.5, "12.5m", 2, "Size")},
                        {"mass_kg", figure(nullptr, "abc", 2, "unreadable")},
                        {"power_w", none},
                        {"starting_effort_n", none},
                        {"continuous_effort_n", none},
                        {"top_speed_mps", none},
                        {"brake_force_n", figure(nullptr, "-", 3, "not-given")},
                        {"axles", figure(4, "4", 3, "ORTSNumberAxles")}}}}});
    EXPECT_EQ(Json::parse(outcome.out), expected);
}

TEST_F(FigureCommandsTest, FiguresAsTextNameTheirEntries)
{
    EXPECT_EQ(command({"figures", "A/e.eng"}),
              (Outcome{0,
                       "A/e.eng\n"
                       "  Name               Big one\n"
                       "  Kind               Engine, Diesel\n"
                       "  Length             18 m (Size \"18m\", line 2)\n"
                       "  Mass               112 t (Mass \"112.5 t #est\", line 2)\n"
                       "  Power              2,984 kW (MaxPower \"2984kW#4000hp\", line 4)\n"
                       "  Starting effort    400 kN (MaxForce \"400kN\", line 5)\n"
                       "  Continuous effort  400 kN (MaxForce \"400kN\", line 5)\n"
                       "  Maximum speed      72 km/h (MaxVelocity \"72km/h\", line 5)\n"
                       "  Brake force        not given\n"
                       "  Weakest coupler    1,000 kN (Break \"1.0e6N\", line 3)\n"
                       "  Axles              6 (NumWheels \"6\", line 3)\n"
                       "  Couplers           Chain\n",
                       ""}));
}

TEST_F(FigureCommandsTest, SheetsAsJsonListWhatIsUnknown)
{
    const Outcome outcome =
        command({"sheet", "c", "msts/TRAINS/consists/OWN.con", "--json", "--units", "us"});
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    const auto figure = [](Json value, Json unknown, Json limitedBy = nullptr) {
        return Json{{"value", value}, {"unknown", unknown}, {"limitedBy", limitedBy}};
    };
    const Json none = Json::array(), gone = Json::array({"A/gone.wag"});
    const Json expected = Json::array(
        {{{"consist", "c"},
          {"units", 3},
          {"figures",
           {{"length_m", figure(30.5, gone)},
            {"mass_kg", figure(112500, Json::array({"a/W.wag", "A/gone.wag"}))},
            {"power_w", figure(2984000, none)},
            {"starting_effort_n", figure(400000, none)},
            {"continuous_effort_n", figure(400000, none)},
            {"top_speed_mps", figure(20, none, "A/e.eng")},
            {"brake_force_n", figure(nullptr, Json::array({"A/e.eng", "a/W.wag", "A/gone.wag"}))},
            {"axles", figure(10, gone)}}}},
         {{"consist", "msts/TRAINS/consists/OWN.con"},
          {"units", 1},
          {"figures",
           {{"length_m", figure(18, none)},
            {"mass_kg", figure(112500, none)},
            {"power_w", figure(2984000, none)},
            {"starting_effort_n", figure(400000, none)},
            {"continuous_effort_n", figure(400000, none)},
            {"top_speed_mps", figure(15.5, none)},
            {"brake_force_n", figure(nullptr, Json::array({"A/e.eng"}))},
            {"axles", figure(6, none)}}}}});
    EXPECT_EQ(Json::parse(outcome.out), expected);
}

TEST_F(FigureCommandsTest, SheetsAsTextUseTheChosenUnits)
{
    EXPECT_EQ(command({"sheet", "c", "--units", "us"}),
              (Outcome{0,
                       "c\n"
                       "  Units              3\n"
                       "  Length             \u2265 100 ft, 1 unknown\n"
                       "  Mass               \u2265 124 t-us, 2 unknown\n"
                       "  Power              4,000 hp\n"
                       "  Starting effort    89,924 lbf\n"
                       "  Continuous effort  89,924 lbf\n"
                       "  Top speed          44.7 mph (A/e.eng)\n"
                       "  Brake force        unknown\n"
                       "  Weakest coupler    \u2264 224,809 lbf, 2 unknown (A/e.eng)\n"
                       "  Axles              \u2265 10, 1 unknown (1 unit by NumWheels)\n"
                       "  Missing            A/gone.wag\n",
                       ""}));
    const std::string metric = command({"sheet", "own", "own"}).out;
    EXPECT_NE(metric.find("Mass               112 t\n"), metric.npos) << metric;
    EXPECT_NE(metric.find("Top speed          55.8 km/h (set by the consist)\n"), metric.npos);
    EXPECT_NE(metric.find("\n\nown\n"), metric.npos);
}

TEST_F(FigureCommandsTest, ErrorsNameTheFileAndTheFault)
{
    write("msts/TRAINS/TRAINSET/A/no.wag", "\nEngine ( x )");
    write("msts/TRAINS/CONSISTS/empty.con", "\nTrain ( )");
    const std::pair<Arguments, std::string> kRows[] = {
        {{"figures", "A/e.eng", "A/gone.wag", "--json"}, "A/gone.wag: error 53: File not found"},
        {{"figures", "A/no.wag"}, "A/no.wag: there is no Wagon block"},
        {{"sheet", "c", "gone", "--json"}, "gone: error 53: File not found"},
        {{"sheet", "empty"},
         m_folder.Shown("msts/TRAINS/CONSISTS/empty.con") +
             ": error 91: line 2: Train has no block TrainCfg"},
    };
    for (const auto &[arguments, message] : kRows) {
        const Outcome outcome = command(arguments);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_EQ(outcome.out, "");
        // Where the system ignores letter case, a path is not spelled as on the disk.
        EXPECT_NE(host::ToUpper(outcome.err).find(host::ToUpper(message)), std::string::npos)
            << outcome.err;
    }
    EXPECT_EQ(command({"sheet", "c", "--units", "imperial"}).code, 2);
    EXPECT_EQ(command({"sheet"}).code, 2);
    // A file needs no installation.
    EXPECT_EQ(run({"figures", "msts/TRAINS/TRAINSET/A/e.eng"}).code, 0);
    EXPECT_EQ(run({"figures", "e.eng"}).err, "zelkctl: e.eng: error 53: File not found\n");
}

using SheetSampleTest = SampleFixture;

/// All sums were made by hand from the files: a wagon has 2 t and an engine 5 t for each metre, an
/// engine 1200 kW and 220 kN, each vehicle 4 wheels (the Pacific 6). The consists set 27.77778 m/s.
TEST_F(SheetSampleTest, TrainsOfTheSampleHaveTheSumsMadeByHand)
{
    const struct
    {
        const char *consist;
        int units;
        double length, mass; ///< m, t
        int engines;         ///< with power and force
        int axles;
        Arguments unknown;      ///< mass
        Arguments unknownPower; ///< engines only
    } kRows[] = {
        // 2 x (20.1 + 19.8) m; 2 x (100.5 + 39.6) t
        {"night mail", 4, 79.8, 280.2, 2, 16, {}, {}},
        // 13.1 + 7.9 + 2 x 16.2 + 14.3 m; 65.5 + 15.8 + 2 x 32.4 + 28.6 t; 6 + 4 x 4 axles
        {"Steam Special", 5, 67.7, 174.7, 1, 22, {}, {}},
        // 2 x 17.2 + 61 x 11.5 + 10.4 m; 2 x 86 + 61 x 23 + 20.8 t
        {"Long Coal Drag", 64, 746.3, 1595.8, 2, 256, {}, {}},
        // 17.2 + 2 x 12.4 + 11.8 + 12.9 m; 86 + 2 x 24.8 + 23.6 + 25.8 t
        {"Harbour Transfer", 6, 66.7, 185, 1, 20, {"Boxes & Vans/box_gone.wag"}, {}},
        // 10 x 12.4 + 8 x 15 m; 10 x 24.8 + 8 x 75 t; one engine without an Engine block
        {"Repair Train",
         19,
         244,
         848,
         7,
         72,
         {"Repair Sidings/rs_waggon.wag"},
         {"Repair Sidings/rs_noengine.eng"}},
    };
    for (const auto &row : kRows) {
        SCOPED_TRACE(row.consist);
        const Outcome outcome = run({"--msts", "s", "sheet", row.consist, "--json"});
        ASSERT_EQ(outcome.code, 0) << outcome.err;
        const Json sheet = Json::parse(outcome.out)[0], figures = sheet["figures"];
        const auto value = [&](const char *name) { return figures[name]["value"].get<double>(); };
        EXPECT_EQ(sheet["units"], row.units);
        EXPECT_NEAR(value("length_m"), row.length, 1e-9);
        EXPECT_NEAR(value("mass_kg"), row.mass * 1000, 1e-6);
        EXPECT_EQ(value("power_w"), row.engines * 1200000);
        EXPECT_EQ(value("starting_effort_n"), row.engines * 220000);
        EXPECT_EQ(value("continuous_effort_n"), row.engines * 220000);
        EXPECT_EQ(value("top_speed_mps"), 27.77778);
        EXPECT_EQ(value("axles"), row.axles);
        EXPECT_EQ(figures["mass_kg"]["unknown"], Json(row.unknown));
        EXPECT_EQ(figures["power_w"]["unknown"], Json(row.unknownPower));
    }
    // Both trailers include 60 kN.
    const Json mail = Json::parse(run({"--msts", "s", "sheet", "night mail", "--json"}).out)[0];
    EXPECT_EQ(mail["figures"]["brake_force_n"],
              (Json{{"value", 120000},
                    {"unknown", {"northfold_electric/nfe_10.eng"}},
                    {"limitedBy", nullptr}}));
}

} // namespace
