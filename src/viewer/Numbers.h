// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace viewer {

/// Convert degrees to radians and back, in single precision.
float DegToRad(float degrees);
float RadToDeg(float radians);

/// Returns the value; throws error 6 if it is infinite or not a number.
float Finite(float value);

/// Returns the number at the beginning of a text, after any blanks ("25.038m" is 25.038); 0 if
/// there is none. The decimal separator is "." in every locale. Throws error 6 beyond single
/// precision.
float LeadingNumber(std::string_view text);

/// Rounds to a whole number, halves away from 0. Throws error 6 beyond 16 bits; its detail names
/// the value as `what`.
int Rounded16(float value, const char *what);

} // namespace viewer
