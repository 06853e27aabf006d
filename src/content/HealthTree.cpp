// SPDX-License-Identifier: MIT
#include "content/HealthTree.h"

#include "content/HealthText.h"
#include "host/Path.h"
#include "host/Text.h"

#include <algorithm>
#include <unordered_map>

namespace content {
namespace {

std::string withoutSeparator(std::string folder)
{
    while (!folder.empty() && host::IsSeparator(folder.back()))
        folder.pop_back();
    return folder;
}

} // namespace

HealthIndex::HealthIndex(HealthReport report, std::string root, bool isComplete)
    : m_report(std::move(report))
    , m_root(withoutSeparator(host::ToUpper(root)))
    , m_isComplete(isComplete)
{
    m_texts.reserve(m_report.findings.size());
    for (const Finding &finding : m_report.findings)
        m_texts.push_back(host::ToUpper(Relative(finding.file) + '\n' + finding.wants + '\n' +
                                        Relative(PathOf(finding)) + '\n' + finding.rule + '\n' +
                                        SentenceOf(finding)));
    m_users.reserve(m_report.users.size());
    for (const std::string &user : m_report.users)
        m_users.push_back(host::ToUpper(Relative(user)));
    for (std::size_t cause = 0; cause < m_report.causes.size(); ++cause)
        addWanted(cause);
}

std::string HealthIndex::Relative(const std::string &path) const
{
    std::string_view rest = path;
    if (rest.size() > m_root.size() && host::IsSeparator(rest[m_root.size()]) &&
        host::ToUpper(rest.substr(0, m_root.size())) == m_root)
        rest.remove_prefix(m_root.size() + 1);
    std::string out(rest);
    std::replace(out.begin(), out.end(), '\\', '/');
    return ShownText(out);
}

std::string HealthIndex::PathOf(const Finding &finding)
{
    if (!IsProblem(finding.answer))
        return finding.file;
    const std::string_view name = host::path::FileName(finding.wants);
    for (const std::string &path : finding.looked)
        if (host::EqualsNoCase(host::path::FileName(path), name))
            return path;
    return finding.Expected();
}

void HealthIndex::addWanted(std::size_t cause)
{
    const std::size_t first = m_wanted.size();
    std::unordered_map<std::string, std::size_t> places; // by path in upper case
    for (const std::size_t index : m_report.causes[cause].findings) {
        const Finding &finding = m_report.findings[index];
        const std::string path = PathOf(finding);
        const std::string key =
            path.empty() ? '\n' + host::ToUpper(finding.wants) : host::ToUpper(path);
        const auto [place, isNew] = places.try_emplace(key, m_wanted.size());
        if (isNew)
            m_wanted.push_back(
                {cause, path, path.empty() ? ShownText(finding.wants) : Relative(path), {}});
        m_wanted[place->second].findings.push_back(static_cast<std::uint32_t>(index));
    }
    const auto rank = [this](const Wanted &wanted) {
        Severity worst = Severity::Note;
        for (const std::uint32_t index : wanted.findings)
            worst = std::max(worst, m_report.findings[index].severity);
        return std::pair(worst, wanted.findings.size());
    };
    std::stable_sort(m_wanted.begin() + static_cast<std::ptrdiff_t>(first), m_wanted.end(),
                     [&](const Wanted &a, const Wanted &b) { return rank(a) > rank(b); });
}

std::vector<bool> HealthIndex::UsersWith(const std::string &upper) const
{
    std::vector<bool> found(m_users.size());
    for (std::size_t i = 0; i < m_users.size(); ++i)
        found[i] = m_users[i].find(upper) != std::string::npos;
    return found;
}

bool HealthIndex::Matches(std::size_t finding, const std::string &upper,
                          const std::vector<bool> &users) const
{
    if (m_texts[finding].find(upper) != std::string::npos)
        return true;
    const std::vector<std::uint32_t> &needs = m_report.findings[finding].neededBy;
    return std::any_of(needs.begin(), needs.end(), [&](auto user) { return users[user]; });
}

HealthTree::HealthTree(std::shared_ptr<const HealthIndex> index, const HealthFilter &filter,
                       const Baseline &known)
    : m_index(std::move(index))
{
    compare(known);
    m_isShown = passing(filter);
    build(m_isShown);
}

/// In a part of a report no answer counts as changed, because it does not distinguish misplaced
/// files from missing ones.
void HealthTree::compare(const Baseline &known)
{
    const std::vector<Finding> &findings = m_index->Report().findings;
    m_novelty.assign(findings.size(), Novelty::Plain);
    m_hasKnown = known.Size() > 0;
    if (!m_hasKnown)
        return;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        if (!known.Has(findings[i]))
            m_novelty[i] = Novelty::New;
        else
            m_novelty[i] = known.Knows(findings[i]) || !m_index->IsComplete() ? Novelty::Known
                                                                              : Novelty::Changed;
    }
}

std::vector<bool> HealthTree::passing(const HealthFilter &filter)
{
    const std::vector<Finding> &findings = m_index->Report().findings;
    const std::string search = host::ToUpper(filter.search);
    const std::vector<bool> users =
        search.empty() ? std::vector<bool>() : m_index->UsersWith(search);
    std::vector<bool> shown(findings.size());
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const Finding &finding = findings[i];
        if (!finding.IsProblem() || (finding.profiles & filter.profiles).Empty())
            continue;
        ++m_novelties[static_cast<std::size_t>(m_novelty[i])];
        const auto severity = static_cast<std::size_t>(finding.severity);
        const bool found = search.empty() || m_index->Matches(i, search, users);
        const bool isOpen = filter.known || m_novelty[i] != Novelty::Known;
        m_counts[severity] += found && isOpen;
        shown[i] = found && isOpen && filter.severities[severity];
        m_shown += shown[i];
        m_hidden += !shown[i];
        m_hiddenKnown += found && !isOpen && filter.severities[severity];
    }
    return shown;
}

void HealthTree::build(const std::vector<bool> &shown)
{
    for (const HealthIndex::Wanted &wanted : m_index->WantedFiles())
        addRow(wanted, shown);
    for (std::size_t i = 0; i < m_wanted.size(); ++i) {
        const WantedRow &row = m_wanted[i];
        if (m_causes.empty() || m_causes.back().cause != row.wanted->cause)
            m_causes.push_back({row.wanted->cause, i, i, 0, {}});
        CauseRow &cause = m_causes.back();
        cause.endWanted = i + 1;
        cause.findings += row.findings.size();
        cause.summary.Add(row.summary);
    }
}

void HealthTree::addRow(const HealthIndex::Wanted &wanted, const std::vector<bool> &shown)
{
    WantedRow row;
    row.wanted = &wanted;
    for (const std::uint32_t index : wanted.findings) {
        if (!shown[index])
            continue;
        const Finding &finding = m_index->Report().findings[index];
        row.findings.push_back(index);
        row.users += std::max<std::size_t>(1, finding.neededBy.size());
        row.summary.Add(SummaryOf(index));
    }
    if (!row.findings.empty())
        m_wanted.push_back(std::move(row));
}

void HealthTree::Summary::Add(const Summary &other)
{
    severity = std::max(severity, other.severity);
    profiles = profiles | other.profiles;
    novelty = std::max(novelty, other.novelty);
}

HealthTree::Summary HealthTree::SummaryOf(std::size_t finding) const
{
    const Finding &facts = m_index->Report().findings[finding];
    return {facts.severity, facts.profiles, m_novelty[finding]};
}

std::vector<HealthTree::UserRow> HealthTree::UsersOf(const WantedRow &wanted) const
{
    std::vector<UserRow> rows;
    const HealthReport &report = m_index->Report();
    for (const std::uint32_t index : wanted.findings) {
        const Finding &finding = report.findings[index];
        for (const std::uint32_t user : finding.neededBy)
            rows.push_back({index, report.users[user]});
        if (finding.neededBy.empty())
            rows.push_back({index, finding.file});
    }
    return rows;
}

HealthReport HealthTree::ShownReport() const
{
    return OnlyFindings(m_index->Report(), [this](std::size_t i) { return m_isShown[i]; });
}

} // namespace content
