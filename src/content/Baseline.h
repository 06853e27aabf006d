// SPDX-License-Identifier: MIT
#pragma once

#include "content/Finding.h"

#include <cstddef>
#include <map>
#include <optional>
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
    /// Returns how many of the earlier findings a report no longer has.
    std::size_t CountGone(const HealthReport &report) const;

private:
    std::map<std::string, std::string> m_answers; ///< by id
};

/// Returns the report without the findings that the baseline knows, and without empty causes.
HealthReport WithoutKnown(HealthReport report, const Baseline &baseline);

} // namespace content
