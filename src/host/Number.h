// SPDX-License-Identifier: MIT
#pragma once

#include "host/Text.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>
#include <type_traits>

namespace host {

/// Parses the whole text as a number; blanks around it and a leading "+" are allowed. The decimal
/// separator is "." in every locale. Returns nothing for other text, for words such as "inf" and
/// for numbers that the type cannot hold.
template <typename Number> std::optional<Number> NumberIn(std::string_view text)
{
    text = TrimBlanks(text);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    Number value = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(value))
            return std::nullopt;
    return value;
}

} // namespace host
