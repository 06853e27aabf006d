// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"

#include <nlohmann/json.hpp>

namespace {

/// A wagon without a descriptor, used by a consist, a service and an activity.
class CheckCommandTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
        write("m/Trains/Trainset/A/a.wag", "Wagon ( a WagonShape ( a.s ) Sound ( a.sms ) )");
        write("m/Trains/Trainset/A/a.s", "shape ( images ( 1 image ( a.ace ) ) )");
        write("m/Trains/Trainset/A/a.ace", "");
        write("m/Trains/Trainset/A/Sound/a.sms", "Tr_SMS ( )");
        write("m/Trains/Consists/c.con", "Train ( TrainCfg ( Wagon ( WagonData ( a A ) ) ) )");
        write("m/Routes/R/Services/s.srv", "Service_Definition ( Train_Config ( c ) )");
        write("m/Routes/R/Shapes/bare.s", "shape ( images ( 0 ) )");
        write("m/Routes/Q/readme", "");
    }
    std::string at(const std::string &name) const { return m_folder.Shown("m/" + name); }
    Outcome check(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {"--msts", "m", "check"});
        return run(arguments);
    }

    const std::string m_wagon = "m/Trains/Trainset/A/a.wag";
    const std::string m_noDescriptor = "ERROR: " + at("Trains/Trainset/A/a.wag") +
                                       " references missing file " + at("Trains/Trainset/A/a.sd") +
                                       "\n";
    const std::string m_inConsist = "INFO: " + at("Trains/Consists/c.con") + " references file " +
                                    at("Trains/Trainset/A/a.wag") + "\n";
    const std::string m_inService = "INFO: " + at("Routes/R/Services/s.srv") + " references file " +
                                    at("Trains/Consists/c.con") + "\n";
};

TEST_F(CheckCommandTest, PrintsTheReport)
{
    const std::string missing = "ERROR: " + at("x.wag") + " is MISSING\n";
    const std::string unused = "ERROR: " + at("x.wag") + " referenced by all consists is MISSING\n";
    const std::string noRoute = "ERROR: Route S is MISSING\n";
    const auto ofConsist = [this](const std::string &consist) {
        const std::string wagon = at("Trains/Trainset/A/a.wag");
        return "INFO: " + at(consist) + " references file " + wagon + "\nINFO: " + wagon +
               " references file " + at("Trains/Trainset/A/a.s") + "\n";
    };
    const struct
    {
        const char *name;
        std::vector<std::string> arguments;
        Outcome outcome;
    } rows[] = {
        {"stock", {"stock", m_wagon}, {1, m_noDescriptor + m_inConsist, ""}},
        {"stock alone", {"stock", m_wagon, "--no-consists"}, {1, m_noDescriptor, ""}},
        {"stock in routes, options first, several files",
         {"--route", "S", "--no-consists", "stock", m_wagon, "m/x.wag"},
         {1, m_noDescriptor + noRoute + missing + noRoute, ""}},
        {"all", {"all", "--quiet"}, {1, m_noDescriptor, ""}},
        {"no folder matches",
         {"all", "--quiet", "--filter", "b"},
         {0, "", "zelkctl: no stock folder matches \"b\": nothing was checked\n"}},
        {"names with the separator of keys",
         {"stock", "--no-consists", "m/none|b.wag"},
         {1, "ERROR: " + at("none|b.wag") + " is MISSING\n", ""}},
        {"consist by name", {"consist", "c"}, {0, ofConsist("Trains/Consists/c.con"), ""}},
        {"consist by file name", {"consist", "C.con"}, {0, ofConsist("Trains/Consists/C.con"), ""}},
        {"consist by path",
         {"consist", "m/Trains/Consists/c.con"},
         {0, ofConsist("Trains/Consists/c.con"), ""}},
        {"use of stock", {"use", "--stock", m_wagon}, {0, m_inConsist, ""}},
        {"no use of stock", {"use", "--stock", "m/x.wag"}, {1, unused, ""}},
        {"use of consists, one after the other",
         {"use", "--route", "R", "S", "--consist", "c", "d.con"},
         {1, m_inService + noRoute + noRoute, ""}},
        {"no use of a consist", {"use", "--consist", "d", "--route", "R"}, {0, "", ""}},
        {"no use of a consist, verbose",
         {"--verbose", "use", "--consist", "d", "--route", "R"},
         {0, "INFO: d referenced by R services is OK\n", ""}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(check(row.arguments), row.outcome);
    }
}

TEST_F(CheckCommandTest, ReportsErrorsAndContinues)
{
    const std::string bare = at("Routes/R/Shapes/bare.s");
    const std::string error =
        "zelkctl: " + bare + ": error 13: its descriptor " + bare + "d is missing\n";
    EXPECT_EQ(run({"check", "shape", bare}), (Outcome{2, "", error}));
    EXPECT_EQ(run({"check", "shape", bare, "m/none.s"}),
              (Outcome{1, "ERROR: " + at("none.s") + " is MISSING\n", error}));
    write("m/Routes/R/Shapes/bare.sd", "shape ( bare.s )");
    EXPECT_EQ(run({"check", "shape", bare}),
              (Outcome{2, "",
                       "zelkctl: " + bare + ": error 91: " + bare +
                           "d: there is no entry ESD_Alternative_Texture\n"}))
        << "reports the descriptor, whose name begins like the shape's";
    write("m/Routes/R/Shapes/bare.sd", "shape ( ESD_Alternative_Texture ( 0 ) )");
    EXPECT_EQ(run({"check", "shape", bare}), (Outcome{0, "", ""}));
    EXPECT_EQ(run({"check", "stock", "--no-consists", "m/none.wag"}),
              (Outcome{1, "ERROR: " + at("none.wag") + " is MISSING\n", ""}))
        << "needs no installation";
    const std::string none = "zelkctl: no Train Simulator folder: use --msts DIR\n";
    EXPECT_EQ(run({"check", "stock", m_wagon}), (Outcome{2, "", none}));
    EXPECT_EQ(run({"check", "all"}), (Outcome{2, "", none}));
    EXPECT_EQ(run({"check", "all", "--msts", "m/Routes"}),
              (Outcome{1, "ERROR: " + at("Routes/Trains/Trainset") + " is MISSING\n", ""}));
}

TEST_F(CheckCommandTest, PrintsTheReportAsJson)
{
    // The command names the file in another letter case; "path" has the spelling on disk.
    const Outcome outcome = check({"stock", "m/TRAINS/trainset/a/A.WAG", "--json", "--verbose"});
    EXPECT_EQ(outcome.code, 1);
    const std::string asked = at("TRAINS/trainset/a/");
    const std::string wagon = asked + "A.WAG", sound = Shown(asked + "Sound/a.sms");
    const auto entry = [](int code, const char *verdict, const std::string &file,
                          const nlohmann::json &path, const std::string &dependent,
                          const std::string &text) {
        return nlohmann::json{{"code", code}, {"verdict", verdict},     {"file", file},
                              {"path", path}, {"dependent", dependent}, {"text", text}};
    };
    const auto expected = nlohmann::json::array(
        {entry(6, "HasMissingReference", wagon, at("Trains/Trainset/A/a.wag"), asked + "a.sd",
               "ERROR: " + wagon + " references missing file " + asked + "a.sd"),
         entry(0, "IsValid", sound, at("Trains/Trainset/A/Sound/a.sms"), "",
               "INFO: " + sound + " is OK"),
         entry(1, "IsMissing", "all consists", nullptr, wagon,
               "ERROR: " + wagon + " referenced by all consists is MISSING")});
    EXPECT_EQ(nlohmann::json::parse(outcome.out), expected);
    const std::string gone = at("gone|x.wag");
    EXPECT_EQ(nlohmann::json::parse(
                  run({"check", "stock", "--json", "--no-consists", "m/gone|x.wag"}).out),
              nlohmann::json::array(
                  {entry(1, "IsMissing", gone, nullptr, "", "ERROR: " + gone + " is MISSING")}));
    EXPECT_EQ(check({"use", "--consist", "d", "--route", "R", "--json"}), (Outcome{0, "[]\n", ""}));
}

TEST_F(CheckCommandTest, JsonAndReportIncludeChecksThatEndWithAnError)
{
    const std::string bare = at("Routes/R/Shapes/bare.s");
    const std::string line = bare + ": error 13: its descriptor " + bare + "d is missing";
    const Outcome outcome = run({"check", "shape", "m/Routes/R/SHAPES/Bare.s",
                                 "m/Routes/R/Shapes/bare.s", "--json", "--report", "r.log"});
    EXPECT_EQ(outcome.code, 2);
    const std::string other = at("Routes/R/SHAPES/Bare.s");
    const auto row = [&](const std::string &file, const std::string &text) {
        return nlohmann::json{
            {"code", nullptr}, {"file", file}, {"path", bare}, {"error", 13}, {"text", text}};
    };
    const std::string otherLine = other + ": error 13: its descriptor " + other + "d is missing";
    EXPECT_EQ(nlohmann::json::parse(outcome.out),
              nlohmann::json::array({row(other, otherLine), row(bare, line)}));
    std::string log = read("r.log");
    std::erase(log, '\r'); // the line ends are the platform's
    const std::string frame = std::string(80, '=') + "\n";
    EXPECT_EQ(log, frame + otherLine + "\n" + line + "\n" + frame);
}

TEST_F(CheckCommandTest, AppendsTheReport)
{
    const std::string frame = std::string(80, '=') + "\n";
    const Outcome told{1, m_noDescriptor, ""};
    EXPECT_EQ(check({"stock", m_wagon, "--no-consists", "--report", "r.log"}), told);
    check({"stock", m_wagon, "--no-consists", "--report", "r.log", "--json"});
    const std::string once = frame + m_noDescriptor + frame;
    std::string log = read("r.log");
    std::erase(log, '\r'); // the line ends are the platform's
    EXPECT_EQ(log, once + once);
    EXPECT_EQ(check({"stock", m_wagon, "--no-consists", "--report", "no/r.log"}),
              (Outcome{2, m_noDescriptor, "zelkctl: no/r.log: error 76: Path not found\n"}));
}

TEST_F(CheckCommandTest, RefusesFilesThatItCannotCheck)
{
    const std::pair<std::vector<std::string>, const char *> rows[] = {
        {{"stocks", "x"}, "There is no command \"check stocks\" (see zelkctl check --help)"},
        {{}, "A subcommand is required (see zelkctl check --help)"},
        {{"stock"}, "files is required (see zelkctl check stock --help)"},
        {{"use"}, "check use: --stock FILE or --consist NAME is required"},
        {{"use", "--consist", "c"}, "check use: --consist needs --route R"},
    };
    for (const auto &[arguments, message] : rows)
        EXPECT_EQ(check(arguments), (Outcome{2, "", std::string("zelkctl: ") + message + "\n"}));
}

} // namespace
