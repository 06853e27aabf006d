// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthText.h"

#include <optional>
#include <string>

namespace content {

/// Writes a table for spreadsheets, with one line for each finding. Fields are separated by commas
/// and quoted where necessary; the items of lists are separated by "|".
void WriteHealthCsv(const HealthReport &report, const TextSink &out);
/// Writes a web page in one file, for screens and paper: a table of findings for each cause.
void WriteHealthHtml(const HealthReport &report, const TextSink &out);
/// Writes a JUnit test suite with one case for each finding. Findings at or above `failing` are
/// failures and other problems are skipped cases; without `failing`, all problems are skipped.
void WriteHealthJunit(const HealthReport &report, std::optional<Severity> failing,
                      const TextSink &out);
/// Writes a SARIF 2.1.0 log. `version` is that of the program.
void WriteHealthSarif(const HealthReport &report, std::string_view version, const TextSink &out);

} // namespace content
