// SPDX-License-Identifier: MIT
#include "document/UnitCounter.h"

#include "host/Number.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace document {
namespace {

/// Formats a number with as many decimals as the text that it replaces, or in the shortest form if
/// that text has an exponent.
std::string written(double value, const std::string &like)
{
    std::array<char, 400> text{}; // the longest double has 309 digits before the point
    char *const begin = text.data(), *const end = begin + text.size();
    const std::size_t point = like.find('.');
    const auto decimals = point == like.npos ? 0 : static_cast<int>(like.size() - point - 1);
    const bool plain = like.find_first_of("eE") == like.npos && decimals < 20;
    const auto [stop, error] =
        plain ? std::to_chars(begin, end, value, std::chars_format::fixed, decimals)
              : std::to_chars(begin, end, value);
    return {begin, stop};
}

/// Returns the number in the text minus `units`, as text; nothing if the text is not a number.
std::optional<std::string> lessened(const std::string &text, int units)
{
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    if (const auto whole = host::NumberIn<std::int64_t>(text); whole && *whole >= least + units)
        return std::to_string(*whole - units);
    const std::optional<double> value = host::NumberIn<double>(text);
    if (!value)
        return std::nullopt;
    const double less = *value - units;
    // A number can be too large for a double to show the difference; it then stays as it is.
    return less == *value ? text : written(less, text);
}

} // namespace

UnitCounter::UnitCounter(const StfNode &trainCfg)
    : m_node(trainCfg.Child(kUnitCounter))
    , m_text(stavfile::ValueAt(m_node))
{
}

std::string UnitCounter::WhyNoNext(int units) const
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (!m_node)
        return {};
    const std::optional<double> value = host::NumberIn<double>(m_text);
    if (!value)
        return std::string(kUnitCounter) + " is \"" + m_text + "\", which is not a number.";
    const double whole = std::trunc(*value);
    if (whole < Limits::min() || whole + units > Limits::max())
        return std::string(kUnitCounter) + " is " + m_text +
               ", and the new value would not fit into 16 bits.";
    return {};
}

int UnitCounter::Take()
{
    const auto next = static_cast<int>(host::NumberIn<double>(m_text).value_or(0));
    if (!m_node)
        return next;
    m_text = std::to_string(next + 1);
    m_node.SetParameter(0, m_text);
    return next;
}

std::string UnitCounter::Subtract(int units)
{
    if (!m_node)
        return {};
    const std::optional<std::string> less = lessened(m_text, units);
    if (!less)
        return std::string(kUnitCounter) + " was not changed: \"" + m_text + "\" is not a number.";
    m_node.SetParameter(0, *less);
    return {};
}

} // namespace document
