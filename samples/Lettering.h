// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace samples {

/// A straight stroke of a letter: x from 0 to 4, y from 0 at the foot to 6.
struct Stroke
{
    float x0 = 0;
    float y0 = 0;
    float x1 = 0;
    float y1 = 0;
};

inline constexpr float kLetterHeight = 6;
inline constexpr float kLetterPitch = 5.4F;

/// Returns the strokes of a text, with the letters side by side. Knows capitals, digits and
/// "&.-#/". Draws small letters as capitals and leaves a gap for other characters.
std::vector<Stroke> StrokesOf(std::string_view text);

} // namespace samples
