// SPDX-License-Identifier: MIT
#include "HealthSample.h"

#include "samples/Sample.h"

#include <algorithm>
#include <map>

using samples::HealthCase;
using samples::InSample;
using samples::Judgement;

void HealthSample::makeSample(bool cases, bool routes)
{
    m_hasRoutes = routes;
    m_hasCases = cases;
    m_sample = cases ? "cases" : "plain";
    if (!m_folder.Exists(m_sample))
        samples::WriteSample(m_folder.At(m_sample), {.health = cases});
}

Outcome HealthSample::health(std::vector<std::string> arguments) const
{
    arguments.insert(arguments.begin(), {"health", "--quiet", "--msts", m_folder.At(m_sample)});
    if (m_hasRoutes)
        arguments.emplace_back("--routes");
    return run(arguments);
}

std::string HealthSample::at(std::string_view file) const
{
    return file.empty() ? std::string() : Shown(m_folder.At(m_sample + '/' + std::string(file)));
}

std::vector<HealthCase> HealthSample::cases() const
{
    std::vector<HealthCase> all = samples::HealthCases();
    std::erase_if(all, [this](const HealthCase &each) {
        return each.in == (m_hasCases ? InSample::DefaultOnly : InSample::Health) ||
               (each.in == InSample::Routes && !(m_hasCases && m_hasRoutes));
    });
    return all;
}

std::vector<PlannedFinding> HealthSample::planned(std::string_view profile) const
{
    std::vector<PlannedFinding> findings;
    for (const HealthCase &each : cases()) {
        const auto add = [&](const char *name, const Judgement &expected) {
            if (!expected.rule.empty())
                findings.push_back({name, std::string(expected.severity),
                                    std::string(expected.rule), std::string(expected.answer),
                                    std::string(each.kind), at(each.file), std::string(each.wants),
                                    std::string(each.cause), at(expected.place), each.line});
        };
        if (profile == "both" && each.msts == each.openRails) {
            add("both", each.msts);
            continue;
        }
        if (profile != "openrails")
            add("msts", each.msts);
        if (profile != "msts")
            add("openrails", each.openRails);
    }
    return findings;
}

std::string Difference(const Rows &expected, const Rows &found)
{
    std::string out;
    for (const std::string &row : expected)
        if (expected.count(row) > found.count(row))
            out += "\nnot found:   " + row;
    for (const std::string &row : found)
        if (found.count(row) > expected.count(row))
            out += "\nnot planned: " + row;
    return out;
}

namespace {

std::string nounOf(const std::string &kind)
{
    static const std::map<std::string, std::string> kNouns = {
        {"consist-vehicle", "vehicle"},
        {"activity-vehicle", "vehicle"},
        {"service-consist", "consist"},
        {"timetable-consist", "consist"},
        {"activity-service", "service"},
        {"activity-traffic", "traffic"},
        {"cab-3d", "3D cab"},
        {"sound-file", "wave file"},
        {"consist-eot", "end-of-train device"}};
    const auto special = kNouns.find(kind);
    std::string noun = special == kNouns.end() ? kind : special->second;
    if (special == kNouns.end())
        std::replace(noun.begin(), noun.end(), '-', ' ');
    return noun;
}

} // namespace

std::string SentenceOf(const PlannedFinding &finding)
{
    const std::string subject = nounOf(finding.kind) + " \"" + finding.wants + '"';
    if (finding.rule.starts_with("damaged-"))
        return "the file is damaged: ";
    if (finding.answer == "here")
        return subject + ": ";
    if (finding.rule == "unquoted-name")
        return subject + " is a name with blanks but without quotes";
    if (finding.rule == "wrong-extension")
        return subject + " exists only with another extension";
    return subject +
           (finding.answer == "misplaced" ? " exists, but in another folder" : " is missing");
}

std::string WithoutDetail(const std::string &sentence)
{
    for (const std::string_view mark : {"damaged: ", "\": "})
        if (const auto found = sentence.find(mark); found != sentence.npos)
            return sentence.substr(0, found + mark.size());
    return sentence;
}

std::string Counted(std::size_t count, const std::string &one)
{
    return std::to_string(count) + ' ' + one + (count == 1 ? "" : "s");
}

std::size_t CountOf(const std::vector<PlannedFinding> &findings, std::string_view severity)
{
    return static_cast<std::size_t>(
        std::count_if(findings.begin(), findings.end(),
                      [&](const auto &each) { return each.severity == severity; }));
}

std::string TotalsOf(const std::vector<PlannedFinding> &findings)
{
    return Counted(CountOf(findings, "error"), "error") + ", " +
           Counted(CountOf(findings, "warning"), "warning") + ", " +
           Counted(CountOf(findings, "note"), "note");
}
