// SPDX-License-Identifier: MIT
#pragma once

#include "host/RuntimeError.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace validation {

/// "code|file|dependent", the form in which a verdict is stored and passed on.
std::string ResultKey(std::int16_t code, std::string_view file, std::string_view dependent);
/// The report line of a verdict, without line end. It is one line whatever the names hold: control
/// characters in them are shown as blanks.
std::string ReportLine(std::int16_t code, std::string_view file, std::string_view dependent);
/// How a run-time error stands in a report: "Error 9 - Subscript out of range".
std::string ErrorText(host::ErrorNumber number);
/// The name of a verdict as TSValidation has it ("IsMissing"), "" for an unknown code.
std::string_view VerdictName(std::int16_t code);

} // namespace validation
