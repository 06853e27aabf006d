// SPDX-License-Identifier: MIT
#include "viewer/Numbers.h"

#include "host/RuntimeError.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

using host::ErrorNumber;
using host::RuntimeError;

namespace viewer {
namespace {

constexpr double kPi = 3.1415926535898;

std::string wholeText(float number)
{
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%.0f", static_cast<double>(number));
    return text.data();
}

} // namespace

float DegToRad(float degrees)
{
    return Finite(static_cast<float>(degrees / 180.0 * kPi));
}

float RadToDeg(float radians)
{
    return Finite(static_cast<float>(radians * 180.0 / kPi));
}

float Finite(float value)
{
    if (!std::isfinite(value))
        throw RuntimeError(ErrorNumber::Overflow, "a place in the scene is not a finite number");
    return value;
}

float LeadingNumber(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    // In files, words such as "inf" and "nan" are not numbers.
    const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
    if (digits.find_first_of(".0123456789") != 0)
        return 0;
    float value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        throw RuntimeError(ErrorNumber::Overflow, std::string(text));
    return value;
}

int Rounded16(float value, const char *what)
{
    const float rounded = std::round(Finite(value));
    if (rounded < std::numeric_limits<short>::min() || rounded > std::numeric_limits<short>::max())
        throw RuntimeError(ErrorNumber::Overflow, std::string(what) + " is " + wholeText(rounded) +
                                                      " and does not fit into 16 bits");
    return static_cast<int>(rounded);
}

} // namespace viewer
