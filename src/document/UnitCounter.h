// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>

namespace document {

/// The name of the counter's block. The names of blocks in a train differ by letter case, too.
inline constexpr const char *kUnitCounter = "NextWagonUID";

/// The counter NextWagonUID of a consist: the identifier of the next unit, which also serves as the
/// number of units. A consist without a counter gives every unit the identifier 0 and counts
/// nothing.
class UnitCounter
{
public:
    explicit UnitCounter(const StfNode &trainCfg);

    /// Returns the reason why Take cannot be called so many times, or "". Take needs a number that
    /// fits into 16 bits together with its successor.
    std::string WhyNoNext(int units = 1) const;
    /// Returns the identifier of a new unit and increments the counter. Cuts off a fraction.
    int Take();

    /// Subtracts a number of removed units from any number, whole or not. Returns "", or the reason
    /// why the value was not changed.
    std::string Subtract(int units);

private:
    StfNode m_node; ///< no object if the consist has no counter
    std::string m_text;
};

} // namespace document
