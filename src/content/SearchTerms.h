// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The text of a search field: words and terms separated by blanks, all of which must match.
/// Letter case is ignored. Quotes keep blanks together: `"Long Wagon"`, `folder:"My Stock"`.
namespace content {

/// A part of a search text. In `length>20`, the key is "LENGTH", the operator ">" and the value
/// "20".
struct SearchTerm
{
    std::string text;  ///< all of it, in upper case, without quotes
    std::string key;   ///< in upper case; "" for a word
    std::string op;    ///< ":", "=", "<", "<=", ">" or ">="; "" for a word
    std::string value; ///< in upper case, without quotes

    bool IsWord() const { return op.empty(); }
};

/// Splits a search text. A quote that is not closed ends with the text.
std::vector<SearchTerm> SplitSearch(std::string_view text);

/// A query for a list of consists: words match the name, `has:NAME` the vehicles. A term with
/// another key matches as text.
class ConsistQuery
{
public:
    ConsistQuery() = default;
    explicit ConsistQuery(std::string_view text);

    bool IsEmpty() const { return m_words.empty() && m_vehicles.empty(); }
    /// True if Matches needs the vehicles of the consists.
    bool NeedsVehicles() const { return !m_vehicles.empty(); }
    /// `name` is in upper case. `vehicles` is the VehicleKey of each vehicle, joined; "" while it
    /// is not known.
    bool Matches(std::string_view name, std::string_view vehicles) const;

private:
    std::vector<std::string> m_words, m_vehicles;
};

/// Returns the text of one vehicle for `has:` terms. A consist has the texts of all its vehicles,
/// one after the other.
std::string VehicleKey(std::string_view folder, std::string_view name);

} // namespace content
