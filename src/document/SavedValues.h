// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/StfNode.h"

#include <string>
#include <vector>

namespace document {

/// The values of a block at one moment, to put them back later. Values that come from the file get
/// their bytes back.
class SavedValues
{
public:
    /// No block: nothing to put back.
    SavedValues() = default;
    explicit SavedValues(const StfNode &node);

    /// Puts the values back.
    void Restore();
    /// Puts the values back, and holds those that the block had until now.
    void Exchange();
    /// True if the block still has these values.
    bool Hold() const;

private:
    StfNode m_node;
    std::vector<std::string> m_texts; ///< as SetParameter takes them
};

} // namespace document
