// SPDX-License-Identifier: MIT
#pragma once

#include "content/ReferenceRules.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace content {

/// One result of a health run: a reference with its answer, or a fault of a file.
struct Finding
{
    std::string rule; ///< "missing-sound"; "" for a reference that is in order
    Severity severity = Severity::Note;
    Profiles profiles;
    std::string file; ///< the file with the entry, or the damaged file
    int line = 0;     ///< 0 if the file has no lines
    Kind kind = Kind::Include;
    std::string wants;
    std::vector<std::string> looked; ///< paths tried, in order
    Answer answer = Answer::Here;
    std::string foundAt;                 ///< "" if it is not found
    std::vector<std::uint32_t> neededBy; ///< indexes into HealthReport::users, rising
    std::vector<std::string> candidates; ///< nearest first
    std::string cause;                   ///< id of its group; "" if nothing is wrong
    std::string id;                      ///< the same in every run
    std::string detail;                  ///< the fault of a damaged file; may be ""

    /// False for references that are in order, which only a verbose report shows.
    bool IsProblem() const { return !rule.empty(); }
    /// Returns the path where the file should be; "" if the simulators look for none.
    const std::string &Expected() const;
};

/// A group of findings that one action would resolve.
struct Cause
{
    std::string id;
    std::string what;                   ///< "Stock folder GP38 is not installed"
    std::string title;                  ///< `what` with counts: "...: 250 references from 31 files"
    Severity severity = Severity::Note; ///< the worst of its findings
    std::vector<std::size_t> findings;  ///< indexes, in order
    std::size_t users = 0;              ///< number of files that its findings affect
    bool isSingles = false;             ///< the group of findings without a common cause
};

/// How many files of each kind a run has read.
struct HealthCounts
{
    std::size_t stockFolders = 0, consists = 0, services = 0, activities = 0, timetables = 0;
};

struct HealthReport
{
    HealthCounts checked;
    std::vector<std::string> users; ///< vehicles, consists, services, ... sorted by path
    std::vector<Finding> findings;
    std::vector<Cause> causes; ///< each problem is in exactly one; worst and largest first
};

} // namespace content
