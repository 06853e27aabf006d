// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace validation {

/// One result of a check: a verdict (a constant of TSValidation) about a file.
struct Finding
{
    std::int16_t code = 0;
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
/// The name of a verdict as TSValidation has it ("IsMissing"), "" for an unknown code.
std::string_view VerdictName(std::int16_t code);
/// How a run-time error appears in a report: "Error 9 - Subscript out of range".
std::string ErrorText(host::ErrorNumber number);

} // namespace validation
