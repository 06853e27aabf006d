// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"
#include "validation/Verdict.h"

#include <string>
#include <string_view>

namespace validation {

/// One result of a check: a verdict about a file.
struct Finding
{
    Verdict verdict = Verdict::Valid;
    std::string file;      ///< the checked file, or the file that refers to another
    std::string dependent; ///< the other file or part concerned, "" if there is none

    friend bool operator==(const Finding &, const Finding &) = default;
};

/// True if the verdict is more than information. Reports then show "ERROR: ...".
bool IsError(const Finding &finding);
/// Returns the report line of a finding, as OneLine, without line end.
std::string ReportLine(const Finding &finding);
/// Returns a text as one line, whatever names it contains: control characters become blanks.
std::string OneLine(std::string text);
/// Returns "code|file|dependent". Names may contain "|", so a key cannot always be split again:
/// decide and print from the finding.
std::string ResultKey(const Finding &finding);
/// Returns the finding of a key. The file ends at the key's second "|".
Finding FindingOf(std::string_view key);
/// Returns a run-time error as reports show it: "Error 9 - Subscript out of range".
std::string ErrorText(host::ErrorNumber number);

} // namespace validation
