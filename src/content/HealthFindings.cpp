// SPDX-License-Identifier: MIT
// The part of HealthRun that turns drafts into findings.
#include "content/Causes.h"
#include "content/HealthRun.h"
#include "content/Nearest.h"
#include "host/GameFiles.h"
#include "host/Text.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace content {
namespace {

std::size_t indexOf(Profile profile)
{
    return static_cast<std::size_t>(profile);
}

Severity severityOf(const Draft &draft, Profile profile)
{
    if (!draft.rule.empty())
        return draft.severity;
    return IsProblem(draft.at[indexOf(profile)].answer)
               ? draft.reference.Rule().For(profile).severity
               : Severity::Note;
}

/// True if one finding can serve both simulators.
bool agree(const Draft &draft)
{
    const Resolution &msts = draft.at[0], &openRails = draft.at[1];
    return msts.answer == openRails.answer && msts.foundAt == openRails.foundAt &&
           msts.unquoted == openRails.unquoted &&
           severityOf(draft, Profile::Msts) == severityOf(draft, Profile::OpenRails);
}

bool namesStock(Kind kind)
{
    return kind == Kind::ConsistVehicle || kind == Kind::ActivityVehicle;
}

} // namespace

const std::string &Finding::Expected() const
{
    static const std::string kNone;
    if (looked.empty())
        return kNone;
    // Open Rails looks for a vehicle's override first, but the override is optional.
    return namesStock(kind) ? looked.back() : looked.front();
}

HealthRun::Identity HealthRun::identityOf(const Draft &draft)
{
    if (draft.reference.kind == Kind::RouteShape && draft.rule.empty())
        return {"", host::ToUpper(draft.reference.wants)};
    if (namesStock(draft.reference.kind)) // an engine and a wagon of one name are two entries
        return {draft.file, draft.reference.wants + '\n' + draft.reference.name.file};
    return {draft.file, draft.reference.wants};
}

std::string HealthRun::idOf(const Finding &finding, const Draft &draft) const
{
    const auto relative = [this](const std::string &path) {
        std::string text =
            path.starts_with(m_folders.root) ? path.substr(m_folders.root.size()) : path;
        std::replace(text.begin(), text.end(), '\\', '/');
        return host::ToUpper(text);
    };
    const auto [file, wants] = identityOf(draft);
    const std::string rule = IsProblem(finding.answer) ? std::string() : draft.rule;
    return host::Fingerprint(std::string(ProfileName(finding.profiles)) + '\n' + relative(file) +
                             '\n' + KindName(finding.kind) + '\n' + wants + '\n' +
                             relative(draft.stock) + '\n' + rule);
}

Finding HealthRun::findingOf(const Merged &merged, Profiles profiles) const
{
    const Draft &draft = merged.draft;
    const Profile profile = profiles.Has(Profile::OpenRails) ? Profile::OpenRails : Profile::Msts;
    const Resolution &resolution = draft.at[indexOf(profile)];
    Finding finding;
    finding.rule = draft.rule;
    finding.severity = severityOf(draft, profile);
    finding.profiles = profiles;
    finding.file = draft.file;
    finding.line = draft.reference.line;
    finding.kind = draft.reference.kind;
    finding.wants = draft.reference.wants;
    finding.looked = resolution.looked;
    if (profiles == Profiles::Both())
        for (const std::string &path : draft.at[0].looked)
            if (std::find(finding.looked.begin(), finding.looked.end(), path) ==
                finding.looked.end())
                finding.looked.push_back(path);
    finding.answer = resolution.answer;
    finding.foundAt = resolution.foundAt;
    finding.detail = draft.detail;
    if (resolution.unquoted)
        finding.candidates = {resolution.candidate};
    if (finding.rule.empty() && IsProblem(finding.answer))
        finding.rule = resolution.unquoted ? "unquoted-name" : draft.reference.Rule().missing;
    for (const auto &[user, needs] : merged.users)
        if (!(needs & profiles).Empty())
            finding.neededBy.push_back(user);
    finding.id = idOf(finding, draft);
    return finding;
}

void HealthRun::addFindings(const Merged &merged, HealthReport &report) const
{
    const auto add = [&](Profiles profiles) {
        Finding finding = findingOf(merged, profiles);
        if (m_options.keepAll || finding.IsProblem())
            report.findings.push_back(std::move(finding));
    };
    const Profiles profiles = merged.profiles & m_options.profiles;
    if (profiles == Profiles::Both() && agree(merged.draft))
        return add(profiles);
    for (const Profile profile : kProfiles)
        if (profiles.Has(profile))
            add(profile);
}

void HealthRun::findNearest(HealthReport &report) const
{
    if (m_stopped)
        return;
    Nearest nearest(*m_snapshot, m_folders, &m_stopped);
    const auto isOpen = [](const Finding &finding) {
        return finding.answer == Answer::Nowhere && !finding.looked.empty();
    };
    for (const Finding &finding : report.findings)
        if (isOpen(finding))
            nearest.Want(finding.kind, finding.Expected());
    nearest.Search();
    for (Finding &finding : report.findings) {
        if (!isOpen(finding))
            continue;
        auto candidates = nearest.For(finding.kind, finding.Expected());
        finding.candidates = std::move(candidates.paths);
        if (!candidates.isThere)
            continue;
        finding.answer = Answer::Misplaced;
        finding.rule = candidates.sameFolder ? "wrong-extension" : "wrong-folder";
    }
}

void HealthRun::sortUsers(HealthReport &report)
{
    std::vector<std::uint32_t> order(m_users.size()), placeOf(m_users.size());
    std::iota(order.begin(), order.end(), 0u);
    std::sort(order.begin(), order.end(),
              [this](auto a, auto b) { return m_users[a] < m_users[b]; });
    for (std::uint32_t i = 0; i < order.size(); ++i) {
        const bool isSame = i > 0 && m_users[order[i]] == report.users.back();
        if (!isSame)
            report.users.push_back(m_users[order[i]]);
        placeOf[order[i]] = static_cast<std::uint32_t>(report.users.size() - 1);
    }
    for (Finding &finding : report.findings) {
        for (std::uint32_t &user : finding.neededBy)
            user = placeOf[user];
        std::sort(finding.neededBy.begin(), finding.neededBy.end());
        finding.neededBy.erase(std::unique(finding.neededBy.begin(), finding.neededBy.end()),
                               finding.neededBy.end());
    }
}

HealthReport HealthRun::report()
{
    HealthReport report = reportSoFar();
    findNearest(report);
    GroupByCause(report, *m_snapshot, m_folders);
    return report;
}

/// Returns the findings without candidates and causes.
HealthReport HealthRun::reportSoFar()
{
    HealthReport report;
    report.checked = m_checked;
    for (const Merged &merged : m_merged)
        addFindings(merged, report);
    sortUsers(report);
    return report;
}

void HealthRun::handOutPartial()
{
    using Clock = std::chrono::steady_clock;
    if (!Partial)
        return;
    const Clock::time_point now = Clock::now();
    if (!m_nextPartial) {
        m_partialInterval = m_options.firstPartial;
        m_nextPartial = now + m_partialInterval;
    }
    if (now < *m_nextPartial || m_stopped)
        return;
    HealthReport partial = reportSoFar();
    GroupByCause(partial, *m_snapshot, m_folders);
    Partial(std::move(partial));
    // A report of many findings takes a while to make.
    const Clock::duration cost = Clock::now() - now;
    m_partialInterval = std::max(m_partialInterval * 2, cost * 10);
    m_nextPartial = Clock::now() + m_partialInterval;
}

} // namespace content
