// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace samples {

/// A straight stroke of a letter: from the foot of the line upwards 0 to 6, to the right 0 to 4.
struct Stroke
{
    float x0 = 0;
    float y0 = 0;
    float x1 = 0;
    float y1 = 0;
};

inline constexpr float kLetterHeight = 6;
inline constexpr float kLetterPitch = 5.4F;

/// The strokes of a text, the letters side by side. Capitals, digits and "&.-#/" are known, small
/// letters are drawn as capitals, all else is a gap.
std::vector<Stroke> StrokesOf(std::string_view text);

} // namespace samples
