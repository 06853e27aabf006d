// SPDX-License-Identifier: MIT
#pragma once

#include "document/StockList.h"

#include <vector>

namespace document {

/// A column of figures that the user has shown: content::FactColumn and its width in logical
/// pixels.
struct ShownFigure
{
    int column = 0, width = 0;

    friend bool operator==(const ShownFigure &, const ShownFigure &) = default;
};

/// The user's layout of the lists in consist editors. All editors share it: a new one starts with
/// the last layout.
struct EditorLayout
{
    /// Widths of the columns Type, Folder and Shape in logical pixels; empty until the user has
    /// resized a column.
    std::vector<int> consistWidths, stockWidths;
    StockOrder stockOrder;
    /// In the order of the columns.
    std::vector<ShownFigure> consistFigures = {}, stockFigures = {};
    bool preview = false;       ///< the preview is shown
    bool stockPictures = false; ///< the rows of the stock list show pictures
    int units = -1; ///< content::UnitSystem; -1 until the user has chosen: the locale decides
};

} // namespace document
