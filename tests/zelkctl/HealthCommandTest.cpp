// SPDX-License-Identifier: MIT
#include "ZelkctlTest.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::json;
using Arguments = std::vector<std::string>;

/// An installation in which a shape, a sound and a folder are missing.
class HealthCommandTest : public ZelkctlTest
{
protected:
    void SetUp() override
    {
        write("msts/TRAINS/TRAINSET/A/w.wag", "\nWagon ( w\nWagonShape ( lost.s )\n"
                                              "Sound ( \"..\\\\..\\\\GP38\\\\SOUND\\\\x.sms\" ) )");
        write("msts/TRAINS/CONSISTS/c.con",
              "\nTrain ( TrainCfg ( c Wagon ( WagonData ( w A ) ) ) )");
        write("msts/TRAINS/CONSISTS/d.con", "\nTrain ( TrainCfg ( d ) )");
        write("msts/ROUTES/R/WORLD/w-1.w", "\nTr_Worldfile ( Static ( FileName ( lost.s ) ) )");
    }
    Outcome health(Arguments arguments) const
    {
        arguments.insert(arguments.begin(), {"health", "--msts", m_folder.At("msts")});
        return run(arguments);
    }
    std::string at(const std::string &name) const { return m_folder.Shown("msts/" + name); }
};

TEST_F(HealthCommandTest, TextNamesCausesAndSingleFiles)
{
    const Outcome expected = {1,
                              "ERROR: Single files: 1 finding\n"
                              "  error: " +
                                  at("TRAINS/TRAINSET/A/w.wag") + ":3: " +
                                  "shape \"lost.s\" is missing\n1 error, 1 warning, 0 notes\n",
                              ""};
    const Outcome text = health({});
    EXPECT_EQ(text.out, "WARNING: Stock folder GP38 is not installed: 1 reference from 1 file\n" +
                            expected.out);
    EXPECT_EQ(text.code, 1);
    EXPECT_EQ(text.err, "");
}

TEST_F(HealthCommandTest, JsonHasEveryMember)
{
    const Outcome outcome = health({"--json"});
    EXPECT_EQ(outcome.code, 1);
    const Json findings = Json::parse(outcome.out);
    ASSERT_EQ(findings.size(), 2u);
    Json shape = findings[0];
    EXPECT_EQ(shape["id"].get<std::string>().size(), 16u);
    shape.erase("id");
    const std::string wagon = at("TRAINS/TRAINSET/A/w.wag");
    EXPECT_EQ(shape, Json({{"rule", "missing-shape"},
                           {"severity", "error"},
                           {"profile", "both"},
                           {"file", wagon},
                           {"line", 3},
                           {"kind", "shape"},
                           {"wants", "lost.s"},
                           {"looked", {at("TRAINS/TRAINSET/A/lost.s")}},
                           {"answer", "nowhere"},
                           {"foundAt", nullptr},
                           {"neededBy", {wagon}},
                           {"candidates", Json::array()},
                           {"cause", "single-files"}}));
    EXPECT_EQ(findings[1]["rule"], "missing-folder");
    EXPECT_EQ(findings[1]["wants"], "..\\..\\GP38\\SOUND\\x.sms");
    EXPECT_EQ(findings[1]["cause"], "folder:trains/trainset/gp38");
}

TEST_F(HealthCommandTest, OptionsChooseWhatIsReported)
{
    const struct
    {
        const char *name;
        Arguments arguments;
        int code;
        std::size_t findings;
    } kCases[] = {
        {"one simulator", {"--profile", "msts"}, 1, 2},
        {"never", {"--fail-on", "never"}, 0, 2},
        {"another folder", {"--filter", "B*"}, 0, 0},
        {"a consist", {"--consist", "c"}, 1, 2},
        {"a consist without vehicles", {"--consist", "D.CON"}, 0, 0},
        {"the routes, too", {"--routes"}, 1, 3},
        {"a filter is for stock only", {"--routes", "--filter", "B*"}, 0, 1},
        {"what is in order, too", {"--verbose"}, 1, 3},
    };
    for (const auto &each : kCases) {
        SCOPED_TRACE(each.name);
        Arguments arguments = each.arguments;
        arguments.insert(arguments.end(), {"--format", "json"});
        const Outcome outcome = health(arguments);
        EXPECT_EQ(outcome.code, each.code) << outcome.err;
        EXPECT_EQ(Json::parse(outcome.out).size(), each.findings) << outcome.out;
    }
    m_folder.Write("msts/TRAINS/TRAINSET/A/lost.s", "shape ( )");
    EXPECT_EQ(health({}).code, 0); // the sound is a warning
    EXPECT_EQ(health({"--fail-on", "warning"}).code, 1);
    EXPECT_EQ(health({"--profile", "openrails", "--fail-on", "note"}).code, 1);
}

TEST_F(HealthCommandTest, WritesTheReportToAFile)
{
    const Outcome outcome = health({"--json", "--out", "report.json"});
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(Json::parse(read("report.json")).size(), 2u);
    const Outcome failed = health({"--out", "no/such/folder.txt"});
    EXPECT_EQ(failed.code, 2);
    EXPECT_NE(failed.err.find("folder.txt: error 76"), std::string::npos) << failed.err;
}

TEST_F(HealthCommandTest, BaselineLeavesWhatIsNewOrChanged)
{
    EXPECT_EQ(health({"--write-baseline", "known.txt"}).code, 1);
    const Outcome nothing = health({"--baseline", "known.txt", "--json"});
    EXPECT_EQ(nothing, (Outcome{0, "[]\n", "zelkctl: 0 findings of the baseline gone\n"}));
    write("msts/TRAINS/TRAINSET/A/w.wag", "\n\nWagon ( w WagonShape ( lost.s ) Sound ( y.sms ) )");
    write("msts/TRAINS/TRAINSET/B/lost.s", "shape ( )"); // now it is in another folder
    const Outcome changed = health({"--baseline", "known.txt", "--json"});
    EXPECT_EQ(changed.err, "zelkctl: 1 finding of the baseline gone\n");
    const Json findings = Json::parse(changed.out);
    ASSERT_EQ(findings.size(), 2u);
    EXPECT_EQ(findings[0]["answer"], "misplaced");
    EXPECT_EQ(findings[1]["wants"], "y.sms");
    EXPECT_EQ(health({"--baseline", "msts/TRAINS/CONSISTS/c.con"}).err,
              "zelkctl: msts/TRAINS/CONSISTS/c.con: not a baseline that zelkctl health wrote\n");
}

TEST_F(HealthCommandTest, OtherFormatsHoldEveryFinding)
{
    const std::string wagon = at("TRAINS/TRAINSET/A/w.wag");
    const std::string csv = health({"--format", "csv"}).out;
    EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 3);
    EXPECT_NE(csv.find("\r\nmissing-shape,error,both," + wagon + ",3,shape,lost.s,"), csv.npos);

    const std::string html = health({"--format", "html"}).out;
    EXPECT_NE(html.find("<p>1 error, 1 warning, 0 notes</p>"), html.npos);
    EXPECT_NE(html.find("<span class=\"error\">error</span></td><td>both</td><td>" + wagon +
                        ", line 3</td><td>shape &quot;lost.s&quot; is missing"),
              html.npos)
        << html;
    EXPECT_EQ(html.find("http"), html.npos); // readable offline

    const std::string junit = health({"--format", "junit"}).out;
    EXPECT_NE(junit.find("tests=\"2\" failures=\"1\" errors=\"0\" skipped=\"1\""), junit.npos);
    EXPECT_NE(junit.find("<failure type=\"missing-shape\" message=\"shape &quot;lost.s&quot; is"),
              junit.npos);
    EXPECT_NE(health({"--format", "junit", "--filter", "B"}).out.find("tests=\"1\" failures=\"0\""),
              junit.npos);

    const Json sarif = Json::parse(health({"--format", "sarif"}).out);
    const Json &run = sarif["runs"][0];
    EXPECT_EQ(sarif["version"], "2.1.0");
    EXPECT_EQ(run["tool"]["driver"]["rules"].size(), 2u);
    ASSERT_EQ(run["results"].size(), 2u);
    EXPECT_EQ(run["results"][0]["ruleId"], "missing-shape");
    EXPECT_EQ(run["results"][0]["locations"][0]["physicalLocation"]["region"]["startLine"], 3);
    EXPECT_TRUE(run["results"][0]["locations"][0]["physicalLocation"]["artifactLocation"]["uri"]
                    .get<std::string>()
                    .starts_with("file:///"));
}

TEST_F(HealthCommandTest, ReportsWhyItCannotRun)
{
    EXPECT_EQ(health({"--consist", "gone"}).err, "zelkctl: gone: error 53: File not found\n");
    for (const Arguments &wrong :
         {Arguments{"--profile", "other"}, Arguments{"--format", "xml"},
          Arguments{"--fail-on", "all"}, Arguments{"--consist", "c", "--filter", "A"},
          Arguments{"--consist", "c", "--routes"}})
        EXPECT_EQ(health(wrong).code, 2) << wrong.front();
}

} // namespace
