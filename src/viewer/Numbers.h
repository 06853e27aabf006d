// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace viewer {

/// Single precision from degrees and back.
float DegToRad(float degrees);
float RadToDeg(float radians);

/// The value itself; error 6 when it is infinite or no number.
float Finite(float value);

/// The number at the beginning of a text, leading blanks allowed ("25.038m" is 25.038); 0 where
/// there is none. The decimal sign is "." in every locale. Error 6 beyond single precision.
float LeadingNumber(std::string_view text);

/// Rounded to a whole number, halves away from 0; error 6 beyond 16 bits, which says `what` it is.
int Rounded16(float value, const char *what);

} // namespace viewer
