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
    std::string file;      ///< the subject: the file that was checked, or that refers to another
    std::string dependent; ///< the other file or the part concerned, "" when there is none

    friend bool operator==(const Finding &, const Finding &) = default;
};

/// True unless the verdict only informs. Reports show such findings as "ERROR: ...".
bool IsError(const Finding &finding);
/// The report line of a finding, as OneLine, without line end.
std::string ReportLine(const Finding &finding);
/// A text that is one line whatever the names in it hold: control characters become blanks.
std::string OneLine(std::string text);
/// "code|file|dependent". Names may hold "|" themselves, so a key cannot always be taken apart
/// again: decide and print from the finding.
std::string ResultKey(const Finding &finding);
/// Returns the finding of a key. The file ends at the key's second "|".
Finding FindingOf(std::string_view key);
/// How a run-time error appears in a report: "Error 9 - Subscript out of range".
std::string ErrorText(host::ErrorNumber number);

} // namespace validation
