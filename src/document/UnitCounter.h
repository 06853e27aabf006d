// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>

namespace document {

/// The counter NextWagonUID of a consist: the identifier for the next unit, kept as the number of
/// units. A consist without one gives every unit the identifier 0 and counts nothing.
class UnitCounter
{
public:
    explicit UnitCounter(const StfNode &trainCfg);

    /// Why Take cannot be called, or "": Take needs a number that fits into 16 bits together with
    /// its successor.
    std::string WhyNoNext() const;
    /// Returns the identifier for a new unit and counts up. A fraction is cut off.
    int Take();

    /// Subtracts a number of removed units from any number, whole or not. Returns "", or why the
    /// value was left alone.
    std::string Subtract(int units);

private:
    StfNode m_node; ///< no object when the consist has no counter
    std::string m_text;
};

} // namespace document
