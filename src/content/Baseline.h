// SPDX-License-Identifier: MIT
#pragma once

#include "content/Finding.h"

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace content {

/// The findings of an earlier report. A later report can leave them out.
class Baseline
{
public:
    static Baseline Of(const HealthReport &report);
    /// Reads a text that ToText returned. Returns nothing for any other text.
    static std::optional<Baseline> FromText(std::string_view text);
    /// Returns a header line and one line for each finding: its id and its answer.
    std::string ToText() const;

    /// True for a finding that the earlier report had with the same answer.
    bool Knows(const Finding &finding) const;
    /// True if the earlier report had this finding, with any answer.
    bool Has(const Finding &finding) const { return m_answers.contains(finding.id); }
    std::size_t Size() const { return m_answers.size(); }
    /// Adds a finding, or replaces its answer.
    void Add(const Finding &finding);
    void Remove(const Finding &finding) { m_answers.erase(finding.id); }
    /// Removes the earlier findings that a report no longer has.
    void RemoveGone(const HealthReport &report);
    /// Returns how many of the earlier findings a report no longer has.
    std::size_t CountGone(const HealthReport &report) const;

private:
    static std::set<std::string> idsOf(const HealthReport &report);

    std::map<std::string, std::string> m_answers; ///< by id
};

/// Returns the report with only the findings to keep, and without empty causes. `keep` gets the
/// index of each finding.
HealthReport OnlyFindings(HealthReport report, const std::function<bool(std::size_t)> &keep);
/// Returns the report without the findings that the baseline knows, and without empty causes.
HealthReport WithoutKnown(HealthReport report, const Baseline &baseline);

} // namespace content
