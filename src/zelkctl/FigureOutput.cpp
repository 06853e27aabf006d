// SPDX-License-Identifier: MIT
#include "zelkctl/FigureOutput.h"

#include <charconv>
#include <cmath>

namespace zelkctl {

std::string JsonNumber(std::optional<double> value)
{
    if (!value || !std::isfinite(*value))
        return "null";
    // With 15 digits, a sum of decimal numbers is the decimal number that people expect.
    constexpr int kDigits = 15;
    std::array<char, 400> text; // the longest double has 309 digits before the point
    char *const last = text.data() + text.size();
    const auto rounded =
        std::to_chars(text.data(), last, *value, std::chars_format::scientific, kDigits - 1);
    std::from_chars(text.data(), rounded.ptr, *value);
    const auto end = std::to_chars(text.data(), last, *value, std::chars_format::fixed);
    return {text.data(), end.ptr};
}

void WriteLine(Output &out, const std::string &label, const std::string &text)
{
    constexpr std::size_t kWidth = 19;
    const std::size_t gap = label.size() < kWidth ? kWidth - label.size() : 1;
    out.Write("  " + label + std::string(gap, ' ') + text + '\n');
}

} // namespace zelkctl
