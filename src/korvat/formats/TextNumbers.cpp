// SPDX-License-Identifier: MIT
#include "korvat/formats/TextNumbers.h"

#include <charconv>
#include <limits>

namespace korvat {
namespace {

std::string_view unsignedPart(std::string_view word, bool &negative)
{
    negative = word.starts_with('-');
    if (negative || word.starts_with('+'))
        word.remove_prefix(1);
    return word;
}

} // namespace

bool ReadFloat(std::string_view word, float &value)
{
    bool negative = false;
    const std::string_view digits = unsignedPart(word, negative);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // A number too small for a float becomes 0, one too large becomes infinity.
        const bool small = digits.find("e-") != digits.npos || digits.find("E-") != digits.npos ||
                           digits.starts_with("0.") || digits.starts_with('.');
        value = small ? 0 : std::numeric_limits<float>::infinity();
    } else if (result.ec != std::errc()) {
        return false;
    }
    value = negative ? -value : value;
    return true;
}

bool ReadInteger(std::string_view word, std::uint32_t &value)
{
    bool negative = false;
    const std::string_view digits = unsignedPart(word, negative);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        value = std::numeric_limits<std::uint32_t>::max();
    else if (result.ec != std::errc())
        return false;
    else if (negative)
        value = 0U - value;
    return true;
}

bool ReadHex(std::string_view word, std::uint32_t &value)
{
    return std::from_chars(word.data(), word.data() + word.size(), value, 16).ec == std::errc();
}

} // namespace korvat
