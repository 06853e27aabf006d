// SPDX-License-Identifier: MIT
// The health report of the sample holds the planned findings and nothing more, in every format.
#include "HealthSample.h"

#include <nlohmann/json.hpp>

#include <map>
#include <regex>
#include <sstream>

namespace {

using Json = nlohmann::json;
using Findings = std::vector<PlannedFinding>;

std::string joined(std::initializer_list<std::string> parts)
{
    std::string out;
    for (const std::string &part : parts)
        out += part + " | ";
    return out;
}

std::string rowOf(const PlannedFinding &finding)
{
    return joined({finding.profile, finding.severity, finding.rule, finding.answer, finding.kind,
                   finding.file, std::to_string(finding.line), finding.wants, finding.cause});
}

/// Returns the row of a finding in JSON or CSV; `get` returns a member as text.
template <typename Get> std::string rowFrom(const Get &get)
{
    return joined({get("profile"), get("severity"), get("rule"), get("answer"), get("kind"),
                   get("file"), get("line"), get("wants"), get("cause")});
}

std::string rowOf(const Json &finding)
{
    return rowFrom([&](const char *name) {
        const Json &value = finding.at(name);
        return value.is_string() ? value.get<std::string>() : value.dump();
    });
}

template <typename Items, typename Row> Rows rowsOf(const Items &items, const Row &row)
{
    Rows rows;
    for (const auto &item : items)
        rows.insert(row(item));
    return rows;
}

Rows rowsOf(const Findings &findings)
{
    return rowsOf(findings, [](const PlannedFinding &each) { return rowOf(each); });
}

using Table = std::vector<std::vector<std::string>>;

/// Reads a CSV file with quotes as in RFC 4180.
Table readCsv(const std::string &text)
{
    Table table;
    std::vector<std::string> row;
    std::string field;
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isQuoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
            field += c;
            ++i;
        } else if (c == '"') {
            isQuoted = !isQuoted;
        } else if (isQuoted || (c != ',' && c != '\r' && c != '\n')) {
            field += c;
        } else if (c != '\r') {
            row.push_back(std::move(field));
            field.clear();
            if (c == '\n')
                table.push_back(std::move(row));
            if (c == '\n')
                row.clear();
        }
    }
    EXPECT_FALSE(isQuoted);
    EXPECT_TRUE(row.empty() && field.empty()) << "the last line has no end";
    return table;
}

/// Returns the path of a file URI as zelkctl shows paths.
std::string pathOf(const std::string &uri)
{
    static const std::regex kLetter("%(3[0-9]|[46][1-9A-F]|[57][0-9A])"),
        kValid("file:///(?:[A-Za-z0-9._~:/-]|%[0-9A-F]{2})*");
    EXPECT_TRUE(std::regex_match(uri, kValid)) << uri;
    EXPECT_FALSE(std::regex_search(uri, kLetter)) << uri;
    std::string path;
    for (std::size_t i = std::string_view("file://").size(); i < uri.size(); ++i) {
        if (uri[i] != '%') {
            path += uri[i];
            continue;
        }
        path += static_cast<char>(std::stoi(uri.substr(i + 1, 2), nullptr, 16));
        i += 2;
    }
    if (path.size() > 2 && path[2] == ':')
        path.erase(0, 1); // a drive
    return Shown(path);
}

class HealthSampleTest : public HealthSample
{
protected:
    /// Checks one report in JSON, the candidates included.
    void expectPlanned(const char *profile) const
    {
        const Outcome outcome = health({"--profile", profile, "--json"});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.err, "");
        const Json found = Json::parse(outcome.out);
        const Findings expected = planned(profile);
        EXPECT_EQ(
            Difference(rowsOf(expected), rowsOf(found, [](auto &each) { return rowOf(each); })),
            "");
        std::map<std::string, std::string> nearest;
        std::set<std::string> ids;
        for (const Json &each : found) {
            EXPECT_EQ(each["foundAt"].is_null(), each["answer"] != "here") << each;
            EXPECT_FALSE(each["neededBy"].empty()) << each;
            EXPECT_LE(each["candidates"].size(), 3u) << each;
            EXPECT_TRUE(ids.insert(each["id"]).second) << each;
            if (!each["candidates"].empty())
                nearest[rowOf(each)] = each["candidates"][0];
        }
        for (const PlannedFinding &each : expected)
            if (!each.place.empty()) {
                EXPECT_EQ(nearest[rowOf(each)], each.place) << rowOf(each);
            }
    }
    /// Checks the references of the cases that are in order for one simulator.
    void expectInOrder(const Json &report, const samples::HealthCase &expected,
                       const samples::Judgement &judgement, const std::string &profile) const
    {
        std::vector<std::string> answers, wanted;
        for (const Json &each : report)
            if ((each["profile"] == profile || each["profile"] == "both") &&
                each["file"] == at(expected.file) && each["line"] == expected.line &&
                each["kind"] == std::string(expected.kind) &&
                each["wants"] == std::string(expected.wants)) {
                const bool hasPlace = !judgement.place.empty() && each["foundAt"].is_string();
                answers.push_back(each["answer"].get<std::string>() + ' ' +
                                  (hasPlace ? each["foundAt"].get<std::string>() : "") +
                                  each["rule"].get<std::string>());
            }
        if (!judgement.answer.empty())
            wanted = {std::string(judgement.answer) + ' ' + at(judgement.place)};
        else if (!answers.empty())
            wanted = {"not-needed "}; // the report may say that the entry has no meaning
        EXPECT_EQ(answers, wanted)
            << profile << ' ' << expected.file << ':' << expected.line << ' ' << expected.wants;
    }
};

TEST_F(HealthSampleTest, FindsThePlannedCasesAndNothingElse)
{
    const struct
    {
        const char *name;
        bool cases, routes;
    } kSamples[] = {
        {"cases", true, false}, {"cases and routes", true, true}, {"routes", false, true}};
    for (const auto &sample : kSamples) {
        makeSample(sample.cases, sample.routes);
        for (const char *profile : kProfiles) {
            SCOPED_TRACE(testing::Message() << sample.name << ' ' << profile);
            expectPlanned(profile);
        }
    }
}

TEST_F(HealthSampleTest, ReportsWhatIsInOrderOnRequest)
{
    makeSample(true, true);
    const Json report = Json::parse(health({"--json", "--verbose"}).out);
    Rows problems;
    for (const Json &each : report) {
        const bool isInOrder = each["answer"] != "misplaced" && each["answer"] != "nowhere";
        if (each["rule"] != "")
            problems.insert(rowOf(each));
        else
            EXPECT_TRUE(isInOrder && each["cause"] == "") << each;
    }
    EXPECT_EQ(Difference(rowsOf(planned("both")), problems), "");
    for (const samples::HealthCase &each : cases()) {
        if (each.msts.rule.empty())
            expectInOrder(report, each, each.msts, "msts");
        if (each.openRails.rule.empty())
            expectInOrder(report, each, each.openRails, "openrails");
    }
}

TEST_F(HealthSampleTest, CsvHasTheSameFindings)
{
    makeSample(true, true);
    for (const char *profile : kProfiles) {
        SCOPED_TRACE(profile);
        const Table table = readCsv(health({"--profile", profile, "--format", "csv"}).out);
        ASSERT_FALSE(table.empty());
        const std::vector<std::string> &names = table.front();
        const Table lines(table.begin() + 1, table.end());
        const Rows found = rowsOf(lines, [&](const std::vector<std::string> &line) {
            EXPECT_EQ(line.size(), names.size());
            return rowFrom([&](const char *name) {
                const auto column = std::find(names.begin(), names.end(), name) - names.begin();
                return line.at(static_cast<std::size_t>(column));
            });
        });
        EXPECT_EQ(Difference(rowsOf(planned(profile)), found), "");
    }
}

TEST_F(HealthSampleTest, TextNamesEachCauseAndEachSingleFile)
{
    makeSample(true, true);
    for (const char *profile : kProfiles) {
        SCOPED_TRACE(profile);
        const Findings expected = planned(profile);
        std::map<std::string, Findings> groups;
        Rows lines, found;
        for (const PlannedFinding &each : expected) {
            groups[each.cause].push_back(each);
            const char *const simulator = each.profile == "msts"        ? " [MSTS]"
                                          : each.profile == "openrails" ? " [Open Rails]"
                                                                        : "";
            const std::string sentence = SentenceOf(each);
            if (each.cause == "single-files")
                lines.insert("  " + each.severity + ": " + each.file +
                             (each.line > 0 ? ':' + std::to_string(each.line) : "") + ": " +
                             sentence + (sentence.ends_with(' ') ? "" : simulator));
        }
        for (const auto &[cause, members] : groups) {
            const std::string worst = CountOf(members, "error") > 0     ? "ERROR: "
                                      : CountOf(members, "warning") > 0 ? "WARNING: "
                                                                        : "NOTE: ";
            const char *const what = cause == "single-files" ? "finding" : "reference";
            lines.insert(
                worst + (cause.starts_with("damaged:") ? "1 file" : Counted(members.size(), what)));
        }
        std::istringstream in(health({"--profile", profile}).out);
        std::string last;
        for (std::string line; std::getline(in, line); last = line) {
            static const std::regex kGroup("([A-Z]+: ).*: (\\d+ (?:finding|reference)s?).*");
            if (line.starts_with("  "))
                found.insert(WithoutDetail(line));
            else if (line.find(": Damaged file ") != line.npos)
                found.insert(line.substr(0, line.find(' ') + 1) + "1 file");
            else if (std::regex_match(line, kGroup))
                found.insert(std::regex_replace(line, kGroup, "$1$2"));
        }
        std::erase_if(found, [](const std::string &line) { return line.starts_with("      "); });
        EXPECT_EQ(Difference(lines, found), "");
        EXPECT_EQ(last, TotalsOf(expected));
    }
}

/// Checks the members that version 2.1.0 of the format requires, and the types of the others.
void expectValidSarif(const Json &sarif)
{
    static const std::set<std::string> kLevels = {"none", "note", "warning", "error"};
    EXPECT_EQ(sarif.at("version"), "2.1.0");
    EXPECT_TRUE(sarif.at("$schema").get<std::string>().ends_with("sarif-2.1.0.json"));
    ASSERT_EQ(sarif.at("runs").size(), 1u);
    const Json &driver = sarif["runs"][0].at("tool").at("driver");
    EXPECT_FALSE(driver.at("name").get<std::string>().empty());
    EXPECT_EQ(driver.at("version"), ZELK_VERSION);
    std::set<std::string> rules;
    for (const Json &rule : driver.at("rules")) {
        EXPECT_TRUE(rules.insert(rule.at("id")).second) << "rules are unique: " << rule;
        EXPECT_FALSE(rule.at("shortDescription").at("text").get<std::string>().empty());
    }
    for (const Json &result : sarif["runs"][0].at("results")) {
        EXPECT_FALSE(result.at("message").at("text").get<std::string>().empty());
        EXPECT_TRUE(kLevels.contains(result.at("level"))) << result;
        EXPECT_EQ(rules.contains(result.value("ruleId", "")), result["level"] != "none") << result;
        EXPECT_EQ(result.value("kind", "fail"), result["level"] == "none" ? "pass" : "fail");
        for (const auto &[name, value] : result.at("partialFingerprints").items())
            EXPECT_TRUE(value.is_string()) << name;
        ASSERT_EQ(result.at("locations").size(), 1u);
        const Json &physical = result["locations"][0].at("physicalLocation");
        EXPECT_TRUE(physical.at("artifactLocation").at("uri").is_string());
        if (physical.contains("region")) {
            EXPECT_GE(physical["region"].at("startLine").get<int>(), 1);
        }
    }
}

std::string sarifRow(const Json &result)
{
    const Json &physical = result["locations"][0]["physicalLocation"];
    const Json none = {{"startLine", 0}};
    return joined({result["ruleId"], result["level"], pathOf(physical["artifactLocation"]["uri"]),
                   physical.value("region", none)["startLine"].dump(),
                   WithoutDetail(result["message"]["text"])});
}

TEST_F(HealthSampleTest, SarifIsValidAndHasTheSameFindings)
{
    makeSample(true, true);
    for (const char *profile : kProfiles) {
        SCOPED_TRACE(profile);
        const Json sarif = Json::parse(health({"--profile", profile, "--format", "sarif"}).out);
        expectValidSarif(sarif);
        const Rows expected = rowsOf(planned(profile), [](const PlannedFinding &each) {
            return joined(
                {each.rule, each.severity, each.file, std::to_string(each.line), SentenceOf(each)});
        });
        const Rows found = rowsOf(sarif["runs"][0]["results"], sarifRow);
        EXPECT_EQ(Difference(expected, found), "");
    }
    expectValidSarif(Json::parse(health({"--verbose", "--format", "sarif"}).out));
}

TEST_F(HealthSampleTest, StockInOrderIsSilentInEveryFormat)
{
    makeSample(true, false);
    const auto silent = [this](const char *format) {
        const Outcome outcome = health({"--filter", "Coast*", "--format", format});
        EXPECT_EQ(outcome.code, 0) << format;
        EXPECT_EQ(outcome.err, "") << format;
        return outcome.out;
    };
    EXPECT_EQ(silent("json"), "[]\n");
    EXPECT_EQ(silent("text"), "0 errors, 0 warnings, 0 notes\n");
    EXPECT_EQ(readCsv(silent("csv")).size(), 1u);
    const Json sarif = Json::parse(silent("sarif"));
    expectValidSarif(sarif);
    EXPECT_TRUE(sarif["runs"][0]["results"].empty());
    EXPECT_NE(silent("junit").find("tests=\"1\" failures=\"0\""), std::string::npos);
    EXPECT_EQ(silent("html").find("<table>"), std::string::npos);
}

} // namespace
