// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace validation {

/// The result of a check for one file. The values are those of TSValidation's constants.
enum class Verdict : std::int16_t
{
    Ok = -1,
    Valid = 0,
    Missing = 1,
    Compressed = 2,
    Corrupt = 3,
    Empty = 4, ///< no check returns it
    Suspect = 5,
    HasMissingReference = 6,
    Referenced = 7
};

/// Returns the number that TSValidation and result keys use for a verdict.
constexpr std::int16_t CodeOf(Verdict verdict)
{
    return static_cast<std::int16_t>(verdict);
}

/// Returns the name of a verdict's constant in TSValidation ("IsMissing"), "" for an unknown one.
std::string_view VerdictName(Verdict verdict);

} // namespace validation
