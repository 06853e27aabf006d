// SPDX-License-Identifier: MIT
#include "content/Baseline.h"

#include "content/Causes.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace content {
namespace {

constexpr std::string_view kHeader = "ZELK health baseline 1";

/// Removes the first line of a text and returns it without its line end.
std::string_view takeLine(std::string_view &text)
{
    const std::size_t feed = text.find('\n');
    std::string_view line = text.substr(0, feed);
    text.remove_prefix(feed == text.npos ? text.size() : feed + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

bool isAnswer(std::string_view word)
{
    for (const Answer answer :
         {Answer::Here, Answer::Elsewhere, Answer::NotNeeded, Answer::Misplaced, Answer::Nowhere})
        if (word == AnswerName(answer))
            return true;
    return false;
}

} // namespace

Baseline Baseline::Of(const HealthReport &report)
{
    Baseline baseline;
    for (const Finding &finding : report.findings)
        if (finding.IsProblem())
            baseline.Add(finding);
    return baseline;
}

std::optional<Baseline> Baseline::FromText(std::string_view text)
{
    if (takeLine(text) != kHeader)
        return std::nullopt;
    Baseline baseline;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        const std::size_t blank = line.find(' ');
        if (line.empty())
            continue;
        if (blank == line.npos || !isAnswer(line.substr(blank + 1)))
            return std::nullopt;
        baseline.m_answers[std::string(line.substr(0, blank))] = line.substr(blank + 1);
    }
    return baseline;
}

std::string Baseline::ToText() const
{
    std::string text(kHeader);
    text += '\n';
    for (const auto &[id, answer] : m_answers)
        text.append(id).append(" ").append(answer).append("\n");
    return text;
}

bool Baseline::Knows(const Finding &finding) const
{
    const auto known = m_answers.find(finding.id);
    return known != m_answers.end() && known->second == AnswerName(finding.answer);
}

void Baseline::Add(const Finding &finding)
{
    m_answers[finding.id] = AnswerName(finding.answer);
}

std::set<std::string> Baseline::idsOf(const HealthReport &report)
{
    std::set<std::string> ids;
    for (const Finding &finding : report.findings)
        if (finding.IsProblem())
            ids.insert(finding.id);
    return ids;
}

void Baseline::RemoveGone(const HealthReport &report)
{
    const std::set<std::string> present = idsOf(report);
    std::erase_if(m_answers, [&](const auto &known) { return !present.contains(known.first); });
}

std::size_t Baseline::CountGone(const HealthReport &report) const
{
    const std::set<std::string> present = idsOf(report);
    return static_cast<std::size_t>(
        std::count_if(m_answers.begin(), m_answers.end(),
                      [&](const auto &known) { return !present.contains(known.first); }));
}

HealthReport OnlyFindings(HealthReport report, const std::function<bool(std::size_t)> &keep)
{
    HealthReport left;
    left.checked = report.checked;
    left.users = std::move(report.users);
    std::vector<std::size_t> placeOf(report.findings.size(), report.findings.size());
    for (std::size_t i = 0; i < report.findings.size(); ++i) {
        if (!keep(i))
            continue;
        placeOf[i] = left.findings.size();
        left.findings.push_back(std::move(report.findings[i]));
    }
    for (Cause &cause : report.causes) {
        std::vector<std::size_t> kept;
        for (const std::size_t index : cause.findings)
            if (placeOf[index] < report.findings.size())
                kept.push_back(placeOf[index]);
        if (kept.empty())
            continue;
        cause.findings = std::move(kept);
        left.causes.push_back(std::move(cause));
    }
    CountCauses(left);
    return left;
}

HealthReport WithoutKnown(HealthReport report, const Baseline &baseline)
{
    std::vector<bool> keeps;
    for (const Finding &finding : report.findings)
        keeps.push_back(!finding.IsProblem() || !baseline.Knows(finding));
    return OnlyFindings(std::move(report), [&keeps](std::size_t i) { return keeps[i]; });
}

} // namespace content
