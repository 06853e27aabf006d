// SPDX-License-Identifier: MIT
#include "samples/Painter.h"

#include <array>
#include <utility>

namespace samples {
namespace {

/// The lines of each letter, separated by blanks. Each line is a series of points "xy".
constexpr std::array kLetters = std::to_array<std::pair<char, const char *>>({
    {'A', "0004264440 0343"},
    {'B', "00063645443303 3342413000"},
    {'C', "4536160501103041"},
    {'D', "00063645413000"},
    {'E', "46060040 0333"},
    {'F', "460600 0333"},
    {'G', "45361605011030414323"},
    {'H', "0006 4046 0343"},
    {'I', "1030 2026 1636"},
    {'J', "4641301001"},
    {'K', "0006 4602 1340"},
    {'L', "060040"},
    {'M', "0006234640"},
    {'N', "00064046"},
    {'O', "103041453616050110"},
    {'P', "00063645443303"},
    {'Q', "103041453616050110 2240"},
    {'R', "00063645443303 2340"},
    {'S', "453616050413334241301001"},
    {'T', "0646 2620"},
    {'U', "060110304146"},
    {'V', "062046"},
    {'W', "0610233046"},
    {'X', "0046 0640"},
    {'Y', "062346 2320"},
    {'Z', "06460040"},
    {'0', "103041453616050110"},
    {'1', "0526 2620 1030"},
    {'2', "05163645440040"},
    {'3', "064624334241301001"},
    {'4', "30360242"},
    {'5', "460604344341301001"},
    {'6', "4536160501103041423303"},
    {'7', "064610"},
    {'8', "130405163645443313 1302011030414233"},
    {'9', "4313040516364541301001"},
    {'&', "4004051625240201103042"},
    {'.', "1011"},
    {'-', "1333"},
    {'#', "1016 3036 0444 0242"},
    {'/', "0046"},
});

const char *linesOf(char letter)
{
    const char capital =
        letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    for (const auto &[known, lines] : kLetters)
        if (known == capital)
            return lines;
    return "";
}

} // namespace

std::vector<Stroke> StrokesOf(std::string_view text)
{
    std::vector<Stroke> strokes;
    float left = 0;
    for (const char letter : text) {
        const std::string_view lines = linesOf(letter);
        for (std::size_t i = 0; i + 3 < lines.size(); i += 2) {
            if (lines[i + 2] == ' ') {
                ++i; // together with the loop's step, skips the last point of the line
                continue;
            }
            const auto unit = [&](std::size_t at) { return static_cast<float>(lines[at] - '0'); };
            strokes.push_back({left + unit(i), unit(i + 1), left + unit(i + 2), unit(i + 3)});
        }
        left += kLetterPitch;
    }
    return strokes;
}

} // namespace samples
