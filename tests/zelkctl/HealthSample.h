// SPDX-License-Identifier: MIT
#pragma once

#include "ZelkctlTest.h"
#include "samples/HealthCases.h"

#include <set>
#include <string>
#include <vector>

/// A finding that the health report of a sample must hold. Paths are absolute, as zelkctl shows
/// them.
struct PlannedFinding
{
    std::string profile, severity, rule, answer, kind, file, wants, cause;
    std::string place; ///< the nearest candidate; "" if the case is not about that
    int line = 0;
};
/// Rows of a report, to compare reports of different formats regardless of order.
using Rows = std::multiset<std::string>;

/// Runs zelkctl health on a private sample, which is made by makeSample.
class HealthSample : public ZelkctlTest
{
protected:
    /// Makes a sample with or without health cases. Reports cover routes only if `routes` is true.
    void makeSample(bool cases, bool routes);
    Outcome health(std::vector<std::string> arguments) const;
    std::string at(std::string_view file) const;
    /// Returns the cases of the current sample.
    std::vector<samples::HealthCase> cases() const;
    /// Returns the planned findings for --profile `profile`.
    std::vector<PlannedFinding> planned(std::string_view profile) const;

private:
    std::string m_sample;
    bool m_hasCases = false, m_hasRoutes = false;
};

inline constexpr const char *kProfiles[] = {"msts", "openrails", "both"};

/// Returns what only one of two reports holds, for messages; "" if they are equal.
std::string Difference(const Rows &expected, const Rows &found);
/// Returns the start of the sentence that describes a finding in texts for people. Details that
/// follow after a colon are left out.
std::string SentenceOf(const PlannedFinding &finding);
/// Removes those details from a sentence.
std::string WithoutDetail(const std::string &sentence);
/// Returns "3 findings", "1 finding".
std::string Counted(std::size_t count, const std::string &one);
/// Returns how many findings have a severity.
std::size_t CountOf(const std::vector<PlannedFinding> &findings, std::string_view severity);
/// Returns "1 error, 2 warnings, 3 notes".
std::string TotalsOf(const std::vector<PlannedFinding> &findings);
