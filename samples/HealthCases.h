// SPDX-License-Identifier: MIT
#pragma once

#include "samples/Output.h"

#include <string_view>
#include <vector>

/// The planned cases of the health report, with the answers that the rules of the simulators give.
namespace samples {

/// The expected answer of one simulator.
struct Judgement
{
    std::string_view answer;   ///< "here", "elsewhere", ...; "" if the simulator ignores the entry
    std::string_view severity; ///< of the finding; "" if nothing is wrong
    std::string_view rule;     ///< of the finding
    std::string_view place;    ///< where the file is found, or the nearest candidate; may be ""

    bool operator==(const Judgement &) const = default;
};

/// The samples that contain a case.
enum class InSample
{
    All,         ///< all
    DefaultOnly, ///< those without health cases
    Health,      ///< those with health cases
    Routes       ///< those with health cases, if the report covers routes
};

/// An entry that names a file, or a file at fault. Paths are relative to the installation folder,
/// spelled as on the disk, with "/".
struct HealthCase
{
    std::string_view file;
    int line; ///< 0 if the report gives none
    std::string_view kind;
    std::string_view wants;
    std::string_view what; ///< the point of the case
    Judgement msts;
    Judgement openRails;
    std::string_view cause = "single-files"; ///< of the findings
    InSample in = InSample::Health;
};

/// Returns the planned cases. In a sample with health cases, all findings are among them.
std::vector<HealthCase> HealthCases();

/// Returns the additional files of a sample with health cases.
SampleFiles HealthFiles();

} // namespace samples
