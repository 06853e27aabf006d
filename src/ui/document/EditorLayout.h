// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <vector>

namespace document {

/// How the user has laid out the lists of consist editors. All editors share it: a new one begins
/// as the last one was left.
struct EditorLayout
{
    /// Column widths in logical pixels; empty until the user has sized a column.
    std::vector<int> consistWidths, stockWidths;
    StockOrder stockOrder;
};

} // namespace document
