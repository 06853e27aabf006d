// SPDX-License-Identifier: MIT
#include "content/Lengths.h"

#include "content/Units.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace content {

std::vector<std::string> Words(const Block &block, std::size_t first)
{
    std::vector<std::string> all;
    for (std::size_t i = first; i < block.ValueCount(); ++i) {
        std::string word;
        for (const char c : block.Value(i) + ',')
            if (c != ',')
                word += c;
            else if (!word.empty())
                all.push_back(std::exchange(word, {}));
    }
    return all;
}

std::optional<double> LeadingNumber(std::string_view text)
{
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double number = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), number);
    return end.ec == std::errc() && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<float> Metres(const std::string &text)
{
    const Quantity read = ReadQuantity(text, Measure::Length);
    if (read.state == Quantity::State::NotGiven)
        return 0.0F;
    const auto number = read.IsGiven() ? std::optional(read.value) : LeadingNumber(text);
    if (!number || std::abs(*number) > static_cast<double>(kFarthestAdded))
        return std::nullopt;
    return static_cast<float>(*number);
}

void Offset::Add(std::size_t axis, const std::string &text)
{
    const std::optional<float> value = Metres(text);
    if (!value || std::abs(at.at(axis) + *value) > kFarthestAdded)
        fault = text;
    else
        at.at(axis) += *value;
}

Offset OffsetOf(const std::vector<std::string> &texts)
{
    Offset offset;
    for (std::size_t i = 0; i < std::min(texts.size(), offset.at.size()); ++i)
        offset.Add(i, texts[i]);
    return offset;
}

} // namespace content
