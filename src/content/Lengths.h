// SPDX-License-Identifier: MIT
#pragma once

#include "content/Block.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads the numbers that place something on a vehicle, as leniently as simulators do.
namespace content {

/// Nothing that a vehicle carries is farther from it, in metres.
inline constexpr float kFarthestAdded = 1000;

/// Returns the values of a block from `first` on, also those that only commas divide.
std::vector<std::string> Words(const Block &block, std::size_t first = 0);

/// Returns the number that a text begins with; nothing if there is none or it is not finite.
std::optional<double> LeadingNumber(std::string_view text);

/// Returns a length in metres; nothing if it is no number or beyond kFarthestAdded. Simulators
/// ignore what follows a number, so an unknown unit is ignored too. A text that gives nothing is 0.
std::optional<float> Metres(const std::string &text);

/// A place that a file gives; `fault` holds the text of a value that cannot be used.
struct Offset
{
    std::array<float, 3> at{};
    std::string fault;

    void Add(std::size_t axis, const std::string &text);
};

/// Reads up to three lengths.
Offset OffsetOf(const std::vector<std::string> &texts);

} // namespace content
