// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <vector>

namespace document {

/// The user's layout of the lists in consist editors. All editors share it: a new one starts with
/// the last layout.
struct EditorLayout
{
    /// Column widths in logical pixels; empty until the user has resized a column.
    std::vector<int> consistWidths, stockWidths;
    StockOrder stockOrder;
};

} // namespace document
